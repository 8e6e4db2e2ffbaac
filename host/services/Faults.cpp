#include "host/services/Faults.h"

#include <sstream>
#include <thread>

#include "base/Error.h"
#include "base/Numbers.h"
#include "base/Text.h"

namespace host {

namespace {

const std::map<std::string, HostCall> CallNames = {
    {"query", HostCall::Query}, {"begin", HostCall::Begin},     {"chunk", HostCall::Chunk},
    {"end", HostCall::End},     {"abort", HostCall::Abort},     {"apply", HostCall::Apply},
    {"fetch", HostCall::Fetch}, {"command", HostCall::Command}, {"any", HostCall::Any},
};

const std::map<std::string, FaultKind> KindNames = {
    {"fail", FaultKind::Fail}, {"stall", FaultKind::Stall}, {"lose", FaultKind::LoseReply}};

}  // namespace

FaultScript::Fault FaultScript::ParseOne(const std::string& text) {
    std::istringstream words(text);
    std::string call, number, kind, more;
    words >> call >> number >> kind >> more;
    Fault fault;
    fault.onwards = number.ends_with('+');
    if (fault.onwards) number.pop_back();
    const auto knownCall = CallNames.find(call);
    const auto knownKind = KindNames.find(kind);
    const auto count = lumarin::ParseListingNumber(number);  // the same form: 1 or more, digits only
    if (knownCall == CallNames.end() || knownKind == KindNames.end() || !count || !more.empty())
        throw lumarin::Error(lumarin::ApplicationErrorNumber, "faults",
                             "\"" + std::string(lumarin::text::Trim(text)) +
                                 "\" is not a fault. A fault is a call (query, begin, chunk, end, abort, apply, "
                                 "command, fetch, any), a number from 1 on and fail, stall or lose, such as "
                                 "\"chunk 3 lose\"");
    fault.call = knownCall->second;
    fault.number = *count;
    fault.kind = knownKind->second;
    return fault;
}

FaultScript FaultScript::Parse(const std::string& text) {
    FaultScript script;
    for (const std::string& one : lumarin::text::Split(text, ';'))
        if (!lumarin::text::Trim(one).empty()) script.faults_.push_back(ParseOne(one));
    return script;
}

int FaultScript::Calls(HostCall call) const {
    const auto found = calls_.find(call);
    return found == calls_.end() ? 0 : found->second;
}

std::optional<FaultKind> FaultScript::Next(HostCall call) {
    ++calls_[call];
    ++calls_[HostCall::Any];
    for (const Fault& fault : faults_) {
        if (fault.call != call && fault.call != HostCall::Any) continue;
        const int number = calls_[fault.call];
        if (number == fault.number || (fault.onwards && number > fault.number)) return fault.kind;
    }
    return std::nullopt;
}

void FaultScript::Break(FaultKind kind) const {
    if (kind == FaultKind::Stall) std::this_thread::sleep_for(patience_);
    const char* reason = kind == FaultKind::Fail    ? "The server cannot be reached"
                         : kind == FaultKind::Stall ? "The server does not answer"
                                                    : "The connection broke before the server had answered";
    throw lumarin::Error(lumarin::ApplicationErrorNumber, "host", reason);
}

namespace {

class FaultyDb final : public lumarin::DbInterface {
public:
    FaultyDb(std::unique_ptr<DbInterface> service, FaultScript& faults)
        : service_(std::move(service)), faults_(faults) {}

    std::unique_ptr<lumarin::Recordset> Execute(const std::string& connectionName,
                                                const std::string& sql) override {
        return faults_.Do(HostCall::Query, [&] { return service_->Execute(connectionName, sql); });
    }

private:
    std::unique_ptr<DbInterface> service_;
    FaultScript& faults_;
};

class FaultyPhotos final : public lumarin::PhotoInterface {
public:
    FaultyPhotos(std::unique_ptr<PhotoInterface> service, FaultScript& faults)
        : service_(std::move(service)), faults_(faults) {}

    void UploadPhotoFile(const std::string& name, lumarin::UploadMode mode) override {
        const HostCall call = mode == lumarin::UploadMode::Begin ? HostCall::Begin
                              : mode == lumarin::UploadMode::End ? HostCall::End
                                                                 : HostCall::Abort;
        faults_.Do(call, [&] { service_->UploadPhotoFile(name, mode); });
    }
    void UploadPhotoFile(std::span<const std::byte> chunk) override {
        faults_.Do(HostCall::Chunk, [&] { service_->UploadPhotoFile(chunk); });
    }
    int BatchUpdate(const std::string& connectionName, const std::string& packageName,
                    lumarin::BatchKind kind) override {
        return faults_.Do(HostCall::Apply,
                          [&] { return service_->BatchUpdate(connectionName, packageName, kind); });
    }

private:
    std::unique_ptr<PhotoInterface> service_;
    FaultScript& faults_;
};

class FaultyDocuments final : public lumarin::DocInterface {
public:
    FaultyDocuments(std::unique_ptr<DocInterface> service, FaultScript& faults)
        : service_(std::move(service)), faults_(faults) {}

    bool Update(std::string& Command, std::string& ErrorText) override {
        return faults_.Do(HostCall::Command, [&] { return service_->Update(Command, ErrorText); });
    }

private:
    std::unique_ptr<DocInterface> service_;
    FaultScript& faults_;
};

/// The service as one of this kind, with faults; null, and nothing taken, when it is another.
template <class Faulty, class Interface>
std::unique_ptr<lumarin::HostService> Wrapped(std::unique_ptr<lumarin::HostService>& service,
                                              FaultScript& faults) {
    auto* const wanted = dynamic_cast<Interface*>(service.get());
    if (wanted == nullptr) return nullptr;
    std::unique_ptr<Interface> taken(wanted);
    static_cast<void>(service.release());
    return std::make_unique<Faulty>(std::move(taken), faults);
}

}  // namespace

std::unique_ptr<lumarin::HostService> WithFaults(std::unique_ptr<lumarin::HostService> service,
                                                 FaultScript& faults) {
    if (auto db = Wrapped<FaultyDb, lumarin::DbInterface>(service, faults)) return db;
    if (auto photos = Wrapped<FaultyPhotos, lumarin::PhotoInterface>(service, faults)) return photos;
    if (auto documents = Wrapped<FaultyDocuments, lumarin::DocInterface>(service, faults)) return documents;
    return service;
}

}  // namespace host
