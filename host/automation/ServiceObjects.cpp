#include "host/automation/ServiceObjects.h"

#include "host/automation/RecordsetObject.h"

namespace host {

using lumarin::automation::Arguments;
using lumarin::automation::BytesOf;
using lumarin::automation::DispatchObject;
using lumarin::automation::IntegerOf;
using lumarin::automation::MakeObject;
using lumarin::automation::TextOf;
using lumarin::automation::Variant;

namespace {

class DbObject final : public DispatchObject {
public:
    explicit DbObject(std::shared_ptr<lumarin::DbInterface> service) {
        Member(L"Execute", [service](const Arguments& arguments) {
            auto rows = service->Execute(TextOf(arguments[0]), TextOf(arguments[1]));
            return Variant(MakeObject<RecordsetObject>(std::move(rows)).Get());
        });
    }
};

class PhotoObject final : public DispatchObject {
public:
    explicit PhotoObject(std::shared_ptr<lumarin::PhotoInterface> service) {
        // One argument is a chunk, two are a name and a mode.
        Member(L"UploadPhotoFile", [service](const Arguments& arguments) {
            if (arguments.Count() == 1)
                service->UploadPhotoFile(BytesOf(arguments[0]));
            else
                service->UploadPhotoFile(TextOf(arguments[0]),
                                         static_cast<lumarin::UploadMode>(IntegerOf(arguments[1])));
            return Variant();
        });
        Member(L"BatchUpdate", [service](const Arguments& arguments) {
            const auto kind = static_cast<lumarin::BatchKind>(IntegerOf(arguments[2]));
            return Variant(
                std::int32_t{service->BatchUpdate(TextOf(arguments[0]), TextOf(arguments[1]), kind)});
        });
    }
};

class DocObject final : public DispatchObject {
public:
    explicit DocObject(std::shared_ptr<lumarin::DocInterface> service) {
        Member(L"Update", [service](const Arguments& arguments) {
            std::string command = TextOf(arguments[0]), errorText = TextOf(arguments[1]);
            const bool refused = service->Update(command, errorText);
            arguments.PutText(0, command);
            arguments.PutText(1, errorText);
            return Variant(refused);
        });
    }
};

/// The service's object when it is of this kind.
template <class ServiceObject, class Service>
bool Wrap(const std::shared_ptr<lumarin::HostService>& service, Microsoft::WRL::ComPtr<IDispatch>& object) {
    if (auto known = std::dynamic_pointer_cast<Service>(service)) object = MakeObject<ServiceObject>(known);
    return object != nullptr;
}

}  // namespace

BrokerObject::BrokerObject(lumarin::ServiceBroker& broker) {
    Member(L"GetClassInstance", [&broker](const Arguments& arguments) {
        return Variant(MakeServiceObject(broker.GetClassInstance(TextOf(arguments[0]))).Get());
    });
}

Microsoft::WRL::ComPtr<IDispatch> MakeServiceObject(std::unique_ptr<lumarin::HostService> service) {
    const std::shared_ptr<lumarin::HostService> shared = std::move(service);
    Microsoft::WRL::ComPtr<IDispatch> object;
    if (!Wrap<DbObject, lumarin::DbInterface>(shared, object) &&
        !Wrap<PhotoObject, lumarin::PhotoInterface>(shared, object))
        Wrap<DocObject, lumarin::DocInterface>(shared, object);
    return object;
}

}  // namespace host
