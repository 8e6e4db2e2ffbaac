#include "automation/ports/HostCommon.h"

namespace lumarin::automation {

namespace {

/// What `read` gives; `missing` when the host has no such member.
template <class Value, class Read>
Value Or(Value missing, Read read) {
    try {
        return read();
    } catch (const MissingMember&) {
        return missing;
    }
}

}  // namespace

// The host is asked each time; what is known of a form stays known as long as it is the same one.
HostWindow& HostCommon::MainWindow() {
    const Microsoft::WRL::ComPtr<IDispatch> form = ObjectOf(common_.Get(L"MainForm").Get());
    if (!mainForm_ || !mainForm_->Is(form.Get())) mainForm_.emplace(Object(form, "MainForm"));
    return *mainForm_;
}

void HostCommon::EndJob(int jobIndex) { common_.Call(L"EndJob", {Variant(std::int32_t{jobIndex})}); }

lumarin::ServiceBroker& HostCommon::ServiceBroker() {
    broker_ = std::make_unique<Broker>(common_.AsObject(L"ServiceBroker"));
    return *broker_;
}

std::string HostCommon::Text(MemberName member, const char* missing) const {
    return Or<std::string>(missing, [&] { return Text(member); });
}

bool HostCommon::Truth(MemberName member, bool missing) const {
    return Or(missing, [&] { return TruthOf(common_.Get(member).Get()); });
}

int HostCommon::UserLevel() const {
    constexpr int Agent = 0;  // whose listings are their own alone
    return Or(Agent, [&] { return static_cast<int>(IntegerOf(common_.Get(L"UserLevel").Get())); });
}

// A folder of the user's own that nothing else lies in.
std::string HostCommon::PhotoFolder() const {
    return Or<std::string>(UserFolder() + "Published Photos\\", [&] { return Text(L"PhotoFolder"); });
}

std::string HostCommon::ListingPhotoFolder(std::int32_t listingNumber) const {
    try {
        return TextOf(common_.Get(L"ListingPhotoFolder", {Variant(listingNumber)}).Get());
    } catch (const MissingMember&) {
        return PhotoFolder();
    }
}

std::string HostCommon::FetchPhoto(std::int32_t listingNumber, int number, const std::string& version) {
    return TextOf(
        common_.Get(L"FetchPhoto", {Variant(listingNumber), Variant(std::int32_t{number}), Variant(version)})
            .Get());
}

void HostCommon::ExpectFetches() {
    Or(0, [&] { return common_.Call(L"ExpectFetches"), 0; });
}

/// Codes and texts by turns.
template <class Entry>
std::vector<Entry> HostCommon::Table(MemberName member) const {
    const std::vector<Variant> values = ElementsOf(Or(Variant(), [&] { return common_.Get(member); }).Get());
    std::vector<Entry> entries;
    for (std::size_t place = 0; place + 1 < values.size(); place += 2)
        entries.push_back({IntegerOf(values[place].Get()), TextOf(values[place + 1].Get())});
    return entries;
}

std::vector<PhotoDescription> HostCommon::PhotoDescriptions() const {
    return Table<PhotoDescription>(L"PhotoDescriptions");
}

std::vector<ListingStatus> HostCommon::ListingStatuses() const {
    return Table<ListingStatus>(L"ListingStatuses");
}

}  // namespace lumarin::automation
