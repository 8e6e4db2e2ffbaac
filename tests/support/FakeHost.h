#pragma once

#include <concepts>
#include <functional>
#include <string>
#include <vector>

#include "base/Files.h"
#include "entry/VelCommon.h"
#include "support/TemporaryFolder.h"

namespace lumarin::testing {

/// A field as a test writes it: a number, a text, or {} for null.
struct FakeField : FieldValue {
    FakeField() = default;
    FakeField(FieldValue value) : FieldValue(std::move(value)) {}
    FakeField(std::integral auto number) : FieldValue(static_cast<std::int64_t>(number)) {}
    FakeField(const char* text) : FieldValue(std::string(text)) {}
    FakeField(std::string text) : FieldValue(std::move(text)) {}
};

/// Rows in memory, as a query's result.
struct FakeTable {
    std::vector<std::string> columns;
    std::vector<std::vector<FakeField>> rows;
};

/// A host in a temporary folder: what it is asked is answered from public members, what it is given is kept.
class FakeHost final : public VelCommon, private HostMainForm, private lumarin::ServiceBroker {
public:
    FakeHost();

    /// Answers a query; throws for one that fails. By default no query finds anything.
    std::function<FakeTable(const std::string& sql)> onQuery = [](const std::string&) { return FakeTable{}; };
    std::vector<std::string> queries;
    /// Throws for an operation of a recordset ("Eof", "Close") that fails.
    std::function<void(const std::string& operation)> onRecordset = [](const std::string&) {};
    int closedRecordsets = 0;

    /// Everything that the photo service was asked: "begin NAME", "chunk 5120", "end", "abort", "apply NAME".
    std::vector<std::string> uploads;
    std::string uploaded;  ///< bytes since the last begin
    /// Throws for a step of that form that fails.
    std::function<void(const std::string& step)> onUpload = [](const std::string&) {};
    int batchResult = 0;

    /// Every command that the document service got.
    std::vector<std::string> commands;
    /// The reason for which it refuses a command; "" accepts. Throws for one that fails.
    std::function<std::string(const std::string& command)> onUpdate = [](const std::string&) { return ""; };

    /// Makes published photos of these numbers of bytes available to FetchPhoto.
    void Publish(std::int32_t listNum, const std::vector<std::size_t>& lengths);
    std::vector<std::string> fetched;  ///< "LISTNUM NUMBER VERSION"

    int switchValue = 0;
    std::vector<int> endedJobs;
    std::function<void(int)> onEndJob = [](int) {};
    std::function<void()> onProg = [] {};
    std::vector<std::pair<int, int>> progCalls;
    int level = 10;
    std::string agent = "A101", office = "OF1", board = "1", managedOffices = ",OF1,'OF1',",
                connection = "VEL";
    bool severalOffices = false, showsDirection = true, reportsUpdates = false;
    bool online = true, offline = false;
    std::vector<ListingStatus> statuses = {{2001, "Active"},    {2002, "Pending"}, {2003, "Sold"},
                                           {2004, "Withdrawn"}, {2005, "Expired"}, {2006, "Cancelled"},
                                           {2007, "Leased"}};
    std::vector<PhotoDescription> descriptions = {{2110, "Front"}, {2111, "Rear"}, {2112, "Kitchen"}};

    HostMainForm& MainForm() override { return *this; }
    void EndJob(int jobIndex) override {
        endedJobs.push_back(jobIndex);
        onEndJob(jobIndex);
    }
    std::string ProgramFolder() const override { return Folder("program\\"); }
    std::string CityFolder() const override { return Folder("city\\"); }
    std::string UserFolder() const override { return Folder("user\\"); }
    std::string WorkingFolder() const { return Folder("user\\Photo Import\\"); }
    std::string ConnectionName() const override { return connection; }
    std::string AgentId() const override { return agent; }
    std::string OfficeId() const override { return office; }
    std::string HelpFilePath() const override { return ProgramFolder() + "help.html"; }
    bool IsOnline() const override { return online; }
    lumarin::ServiceBroker& ServiceBroker() override { return *this; }
    bool IsOffline() const override { return offline; }
    int UserLevel() const override { return level; }
    std::string UserBoardId() const override { return board; }
    std::string ManagedOffices() const override { return managedOffices; }
    bool HasSeveralOffices() const override { return severalOffices; }
    std::string DocDomain() const override { return "example.org"; }
    std::string PdfInfoText() const override { return "Host text"; }
    std::string HelpSite() const override { return "http://help.example"; }
    std::string PhotoFolder() const override { return Folder("photos\\"); }
    std::string ListingPhotoFolder(std::int32_t listingNumber) const override;
    std::string FetchPhoto(std::int32_t listingNumber, int number, const std::string& version) override;
    std::string StreetDirectionCaption() const override { return "Dir"; }
    bool ShowsStreetDirection() const override { return showsDirection; }
    bool ReportsPhotoUpdates() const override { return reportsUpdates; }
    std::vector<PhotoDescription> PhotoDescriptions() const override { return descriptions; }
    std::vector<ListingStatus> ListingStatuses() const override { return statuses; }

private:
    /// A folder below the temporary one, with separators of the system, as hosts have them.
    std::string Folder(const std::string& name) const { return folder_.Path() + files::FixedPath(name); }
    std::string PhotoFile(std::int32_t listNum, int number) const;
    void* NativeWindow() const override { return nullptr; }
    int Switch() const override { return switchValue; }
    void Prog(int first, int second) override {
        progCalls.emplace_back(first, second);
        onProg();
    }
    std::unique_ptr<HostService> GetClassInstance(const std::string& name) override;

    TemporaryFolder folder_;
};

}  // namespace lumarin::testing
