#include "automation/ports/HostServices.h"

#include "automation/ports/HostRecordset.h"

namespace lumarin::automation {

namespace {

class Database final : public DbInterface {
public:
    explicit Database(Object service) : service_(std::move(service)) {}

    std::unique_ptr<Recordset> Execute(const std::string& connectionName, const std::string& sql) override {
        Bstr statement(sql);
        return std::make_unique<HostRecordset>(
            service_.AsObject(L"Execute", {Variant(connectionName), Variant::Reference(statement)}));
    }

private:
    Object service_;
};

class Photos final : public PhotoInterface {
public:
    explicit Photos(Object service) : service_(std::move(service)) {}

    void UploadPhotoFile(const std::string& name, UploadMode mode) override {
        Bstr file(name);
        service_.Call(L"UploadPhotoFile",
                      {Variant::Reference(file), Variant(static_cast<std::int32_t>(mode))});
    }
    void UploadPhotoFile(std::span<const std::byte> chunk) override {
        Variant bytes(chunk);
        try {
            service_.Call(L"UploadPhotoFile", {Variant::Reference(bytes)});
        } catch (const WrongArgumentCount&) {
            // A script, whose arguments cannot be optional, has one for the mode in any case.
            service_.Call(L"UploadPhotoFile", {Variant::Reference(bytes), Variant::Missing()});
        }
    }
    int BatchUpdate(const std::string& connectionName, const std::string& packageName,
                    BatchKind kind) override {
        Bstr package(packageName);
        return IntegerOf(service_
                             .Get(L"BatchUpdate", {Variant(connectionName), Variant::Reference(package),
                                                   Variant(static_cast<std::int32_t>(kind))})
                             .Get());
    }

private:
    Object service_;
};

class Documents final : public DocInterface {
public:
    explicit Documents(Object service) : service_(std::move(service)) {}

    bool Update(std::string& Command, std::string& ErrorText) override {
        Variant command(Command), reason(ErrorText);
        const auto reference = service_.IsOfScript()
                                   ? &Variant::ReferenceToWhole
                                   : static_cast<Variant (*)(Variant&)>(&Variant::Reference);
        const Variant refused = service_.Get(L"Update", {reference(command), reference(reason)});
        Command = TextOf(command.Get());
        ErrorText = TextOf(reason.Get());
        return TruthOf(refused.Get());
    }

private:
    Object service_;
};

template <class Service>
std::unique_ptr<HostService> Make(Object service) {
    return std::make_unique<Service>(std::move(service));
}

struct Kind {
    const char* name;
    std::unique_ptr<HostService> (*make)(Object service);
};

constexpr Kind Kinds[] = {{DbInterface::ServiceName, &Make<Database>},
                          {PhotoInterface::ServiceName, &Make<Photos>},
                          {DocInterface::ServiceName, &Make<Documents>}};

}  // namespace

std::unique_ptr<HostService> Broker::GetClassInstance(const std::string& name) {
    for (const Kind& kind : Kinds)
        if (name == kind.name) {
            const Variant service = broker_.Get(L"GetClassInstance", {Variant(name)});
            return kind.make(Object(ObjectOf(service.Get()), name));
        }
    throw Error(E_INVALIDARG, "ServiceBroker", "There is no service \"" + name + "\"");
}

}  // namespace lumarin::automation
