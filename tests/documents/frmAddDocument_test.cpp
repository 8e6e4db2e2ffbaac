#include "documents/frmAddDocument.h"

#include <gtest/gtest.h>

#include "FakePdfLibrary.h"
#include "base/Files.h"
#include "documents/frmPromptLinkText.h"
#include "imaging/FakeImaging.h"
#include "support/FakeHost.h"
#include "support/ScriptedDesktop.h"

namespace lumarin {
namespace {

constexpr const char* NotYours = "Listing does not belong to you.";

struct StillClock final : Clock {
    LocalTime Now() const override { return {.year = 2026, .month = 1, .day = 1, .second = 42}; }
};

FieldValue Text(const char* text) { return FieldValue(std::string(text)); }

class AddDocument : public ::testing::Test {
protected:
    AddDocument() {
        link.Set(host);
        host.onQuery = [this](const std::string& sql) { return Answered(sql); };
        window =
            std::make_unique<frmAddDocument>(DocumentWindowPorts{desktop, imaging, pdf, clock, link, engine});
    }
    ~AddDocument() override { desktop.VerifyAllUsed(); }

    void WillType(const std::string& number) {
        desktop.Play("frmListnumPrompt", [number](Form& form) {
            auto& prompt = static_cast<frmListnumPrompt&>(form);
            prompt.txtPropertyId.SetText(number);
            (number.empty() ? prompt.cmdCancel : prompt.cmdOK).Press();
        });
    }
    void Open(const std::string& number = "100123") {
        WillType(number);
        window->Init(7);
        window->Show(nullptr);
    }
    void WillDescribe(const std::string& description, const std::string& address = {}) {
        desktop.Play("frmPromptLinkText", [=](Form& form) {
            auto& prompt = static_cast<frmPromptLinkText&>(form);
            if (!description.empty()) prompt.txtLinkText.SetText(description);
            prompt.txtUrl.SetText(address);
            prompt.cmdOK.Press();
        });
    }
    std::string GivenFile(const std::string& name, const std::string& bytes) const {
        files::WriteWhole(host.UserFolder() + name, bytes);
        return host.UserFolder() + name;
    }
    void AddFile(const std::string& path) {
        desktop.Choose(path);
        window->ActiveBar1.ClickTool("miAddExistingFile");
    }

    testing::ScriptedDesktop desktop;
    testing::FakeHost host;
    testing::FakeImaging imaging;
    testing::FakePdfLibrary pdf;
    StillClock clock;
    NoEngineVersion engine;
    HostLink link;
    std::string listingTable = "Listings", agent = "A101", office = "OF1", board = "1";
    std::vector<std::vector<FieldValue>> documents = {
        {FieldValue(17), Text("Plan"), FieldValue(), FieldValue(2049)},
        {FieldValue(18), Text("Map"), Text("www.x.y/map"), FieldValue(0)}};
    std::unique_ptr<frmAddDocument> window;

private:
    testing::FakeTable Answered(const std::string& sql) const {
        if (sql ==
            "SELECT DocID,DocDesc,DocUrl,DocFilesize FROM Documents WHERE DocListNum = 100123 ORDER BY "
            "DocID;")
            return {{"DocID", "DocDesc", "DocUrl", "DocFilesize"}, documents};
        testing::FakeTable found{
            {"ListOfficeId", "ListAgentId", "BoardId", "StreetName", "StreetNumber", "StreetDirection"}, {}};
        if (sql == "SELECT ListOfficeId,ListAgentId,BoardId,StreetName,StreetNumber,StreetDirection FROM " +
                       listingTable + " WHERE Listnum = 100123;")
            found.rows.push_back({FieldValue(office), FieldValue(agent), FieldValue(board), Text("Elm St"),
                                  FieldValue(12), FieldValue()});
        return found;
    }
};

TEST_F(AddDocument, SelectListing_ShowsItsDocumentsAndTheirSize) {
    for (const char* table : {"Listings", "Rentals"}) {
        listingTable = table;
        Open("0100,123");
        EXPECT_EQ(window->Caption(), "Qor Documents - Listing #100123 - 12 Elm St");
        EXPECT_EQ(window->lblDocuments.Caption(), "Listing #100123: 2 documents, 3KB in all");
        ASSERT_EQ(window->lvFiles.Count(), 2);
        EXPECT_EQ(window->lvFiles.Cell(0, 1), "3KB");
        EXPECT_EQ(window->lvFiles.Cell(1, 1), "www.x.y/map");
        EXPECT_TRUE(window->cmdDelete.Enabled());
    }
    WillType("");
    window->ActiveBar1.ClickTool("miSelectListing");
    EXPECT_EQ(window->lvFiles.Count(), 2);
}

TEST_F(AddDocument, SelectListing_Refused_AsksAgainUntilTheUserGivesUp) {
    WillType("9");
    desktop.Expect("Listing #9 not found", Answer::Retry);
    WillType("1.5");
    desktop.Expect("Listing #1.5 not found", Answer::Retry);
    agent = "A102";
    WillType("100123");
    desktop.Expect(NotYours, Answer::Retry);
    host.onQuery = [query = host.onQuery](const std::string& sql) {
        if (sql.find(" = 5;") != std::string::npos) throw Error(1, "db", "gone");
        return query(sql);
    };
    WillType("5");
    desktop.Expect("Error accessing server", Answer::Cancel);
    window->Init(7);
    EXPECT_EQ(window->Caption(), "Document Manager");
    EXPECT_FALSE(window->ActiveBar1.IsEnabled("miMakePdf"));
}

TEST_F(AddDocument, Access_ByLevel) {
    const struct {
        int level;
        const char *agent, *office, *board, *managed;
        bool allowed;
    } cases[] = {{59, "A101", "X", "9", "", true},           {59, "A102", "OF1", "1", "", false},
                 {60, "A102", "OF1", "9", "", true},         {60, "A101", "OF2", "1", "", false},
                 {89, "A101", "A1", "1", "'A1','B2'", true}, {89, "A101", "A", "1", "'A1','B2'", false},
                 {60, "A101", "OF1", "1", "'A1'", false},    {90, "X", "X", "1", "", true},
                 {99, "A101", "OF1", "2", "", false},        {100, "X", "X", "9", "", true}};
    for (const auto& c : cases) {
        host.level = c.level;
        agent = c.agent;
        office = c.office;
        board = c.board;
        host.managedOffices = c.managed;
        if (!c.allowed) desktop.Expect(NotYours, Answer::Cancel);
        WillType("100123");
        window->Init(7);
        desktop.VerifyAllUsed();
    }
}

TEST_F(AddDocument, Preview_OpensWebAddressesOnly) {
    documents.push_back({FieldValue(19), Text("Trap"), Text("file:///etc/passwd"), FieldValue(0)});
    Open();
    window->cmdPreview.Press();
    window->lvFiles.Select(1);
    window->lvFiles.PressKey({Key::Enter});
    window->lvFiles.Select(2);
    desktop.Expect("This link was not opened, because it does not lead to a web page:\n\nfile:///etc/passwd");
    window->lvFiles.DoubleClicked();
    EXPECT_EQ(desktop.opened,
              (std::vector<std::string>{"Docs.example.org\\VEL\\Docs\\2\\3\\100123_17.pdf", "www.x.y/map"}));
}

TEST_F(AddDocument, AddExistingFile_GoesInChunksAndIsRecorded) {
    files::WriteWhole(host.CityFolder() + "CityInfo.ini", "[Lumarin]\nDocMaxSize=6\n");
    Open();
    const std::string bytes = "%PDF-" + std::string(5116, 'x');
    WillDescribe("");  // as it was offered
    AddFile(GivenFile("report.v2.pdf", bytes));
    EXPECT_EQ(host.uploads,
              (std::vector<std::string>{"begin VEL_A101100123_42Doc.pdf", "chunk 5120", "chunk 1", "end"}));
    EXPECT_EQ(host.uploaded, bytes);
    EXPECT_EQ(host.commands,
              std::vector<std::string>{"ADD|VEL|A101|100123|VEL_A101100123_42Doc.pdf|report.v2"});
    EXPECT_TRUE(files::FileExists(host.UserFolder() + "report.v2.pdf"));

    WillDescribe("Exact");
    AddFile(GivenFile("exact.pdf", "%PDF-" + std::string(6 * 1024 - 5, 'x')));
    EXPECT_EQ(host.commands.size(), 2U);
    desktop.Expect("File is too large!\nFilesize of 7KB exceeds maximum allowed (6KB)");
    AddFile(GivenFile("more.pdf", "%PDF-" + std::string(6 * 1024 - 4, 'x')));
    for (const char* content : {"%PDF-", "%pdf-1.4 and more", ""}) {
        desktop.Expect("File must be in PDF format");
        AddFile(GivenFile("no.pdf", content));
    }
    EXPECT_EQ(host.commands.size(), 2U);
}

TEST_F(AddDocument, Upload_Cancelled_AbandonsAndRecordsNothing) {
    Open();
    WillDescribe("Plan");
    desktop.AtPendingEvents(2, [&] {
        EXPECT_FALSE(window->Enabled());
        EXPECT_FALSE(desktop.shown.at("frmProgress")->Unload(CloseReason::Frame));
    });
    AddFile(GivenFile("a.pdf", "%PDF-" + std::string(20000, 'x')));
    EXPECT_EQ(host.uploads.back(), "abort");
    EXPECT_TRUE(host.commands.empty());
    EXPECT_TRUE(window->Enabled());
}

TEST_F(AddDocument, Upload_ServerGone_RetriesUnderTheSameName) {
    Open();
    WillDescribe("Plan");
    bool gone = true;
    host.onUpload = [&](const std::string& step) {
        if (step != "end" || !gone) return;
        gone = false;
        throw Error(1, "server", "gone");
    };
    desktop.Expect("The document could not be sent to the server.\ngone", Answer::Retry);
    AddFile(GivenFile("a.pdf", "%PDF-1.4"));
    EXPECT_EQ(host.uploads[3], "abort");
    EXPECT_EQ(host.uploads[0], host.uploads[4]);
    EXPECT_EQ(host.commands.size(), 1U);
}

TEST_F(AddDocument, LinkAndDelete_AreSentAndTheListIsReadAnew) {
    Open();
    WillDescribe("Map", " http://x/y ");
    window->ActiveBar1.ClickTool("miAddUrl");
    window->lvFiles.Select(1);
    const std::string question = "Preparing to delete document:\n\nMap\n\nDo you wish to continue?";
    desktop.Expect(question, Answer::No);  // deletes all the same
    window->lvFiles.PressKey({Key::Delete});
    host.onUpdate = [](const std::string&) { return "no such document"; };
    desktop.Expect(question, Answer::Yes);
    desktop.Expect("Unable to update document on server, please call Tech support.\nno such document");
    documents.clear();
    window->cmdDelete.Press();
    EXPECT_EQ(host.commands, (std::vector<std::string>{"ADD|VEL|A101|100123||Map|http://x/y",
                                                       "DELETE|VEL|A101|18", "DELETE|VEL|A101|18"}));
    EXPECT_FALSE(window->cmdDelete.Enabled());
    EXPECT_EQ(desktop.pointer, Pointer::Default);
}

TEST_F(AddDocument, BuiltPdf_IsGivenUpOnlyWhenItsRecordIsThere) {
    imaging.pictures["/in/a.png"] = {10, 10};
    Open();
    const std::string built = host.UserFolder() + "CreatePDFTmp.pdf";
    const auto build = [&](bool again) {
        desktop.Play("frmMakePDF", [&, again](Form& form) {
            auto& builder = static_cast<frmMakePDF&>(form);
            if (!again) desktop.Choose("/in/a.png");
            if (!again) builder.cmdAddFiles.Press();
            builder.txtLinkText.SetText("Built");
            builder.cmdOK.Press();
        });
        window->ActiveBar1.ClickTool("miMakePdf");
    };
    host.onUpdate = [](const std::string&) { return "full"; };
    desktop.Expect("Unable to update document on server, please call Tech support.\nfull");
    build(false);
    EXPECT_TRUE(files::FileExists(built));
    EXPECT_EQ(host.uploads.back(), "abort");

    host.onUpdate = [](const std::string&) { return ""; };
    desktop.Expect(
        "A document of 1 page was begun for this listing and has not been sent. Do you want to go on "
        "with it?\n\nNo throws its pages away.",
        Answer::Yes);
    build(true);
    EXPECT_EQ(host.uploaded.size(), 100U);
    EXPECT_EQ(host.commands.back(), "ADD|VEL|A101|100123|VEL_A101100123_42Doc.pdf|Built");
    EXPECT_FALSE(files::FileExists(host.UserFolder() + "CreatePDFTmp.dat"));
    EXPECT_FALSE(files::FileExists(built));
}

TEST_F(AddDocument, ClosingByItselfOrByTheUser_TellsTheHost) {
    Open();
    host.onUpdate = [&](const std::string&) { return host.online = false, ""; };
    WillDescribe("Map", "x.y");
    desktop.Expect("No Internet connection! - This function requires an internet connection.");
    window->ActiveBar1.ClickTool("miAddUrl");
    EXPECT_EQ(host.endedJobs, std::vector<int>{7});
    EXPECT_FALSE(window->IsLoaded());
    host.online = true;
    Open();
    window->ActiveBar1.ClickTool("miExit");
    EXPECT_EQ(host.endedJobs, (std::vector<int>{7, 7}));
}

}  // namespace
}  // namespace lumarin
