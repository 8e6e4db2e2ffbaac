#include "documents/frmAddDocument.h"

#include "documents/frmPromptLinkText.h"
#include "support/FakePdfLibrary.h"
#include "support/WindowTest.h"

namespace lumarin {

class AddDocument : public testing::WindowTest {
protected:
    AddDocument() {
        host.onQuery = [this](const std::string& sql) { return Answered(sql); };
        window = std::make_unique<frmAddDocument>(DocumentPorts{Ports(), pdf});
    }

    void WillType(const std::string& number) {
        desktop.Play("frmListnumPrompt", [this, number](frmListnumPrompt& prompt) {
            offered.push_back(prompt.txtPropertyId.Text());
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
        desktop.Play("frmPromptLinkText", [=](frmPromptLinkText& prompt) {
            if (!description.empty()) prompt.txtLinkText.SetText(description);
            prompt.txtUrl.SetText(address);
            prompt.cmdOK.Press();
        });
    }
    void Click(const char* tool) { window->ActiveBar1.ClickTool(tool); }
    void AddFile(const std::string& name, const std::string& bytes) {
        files::WriteWhole(host.UserFolder() + name, bytes);
        desktop.Choose(host.UserFolder() + name);
        Click("miAddExistingFile");
    }

    Texts offered;  ///< by the prompt for a listing
    bool failsToRead = false;
    testing::FakePdfLibrary pdf;
    std::string listingTable = "Listings", agent = "A101", office = "OF1", board = "1";
    std::vector<std::vector<testing::FakeField>> documents = {{17, "Plan", {}, 2049},
                                                              {18, "Map", "www.x.y/map", 0}};
    std::unique_ptr<frmAddDocument> window;

private:
    testing::FakeTable Answered(const std::string& sql) const {
        if (sql.find(" = 5;") != std::string::npos) throw Error(1, "db", "gone");
        if (sql.find("FROM Documents WHERE DocListNum = 100123 ") != std::string::npos)
            return failsToRead ? throw Error(1, "db", "slow")
                               : testing::FakeTable{{"DocID", "DocDesc", "DocUrl", "DocFilesize"}, documents};
        if (sql.find("FROM " + listingTable + " WHERE Listnum = 100123;") == std::string::npos) return {};
        return {{"ListOfficeId", "ListAgentId", "BoardId", "StreetName", "StreetNumber", "StreetDirection"},
                {{office, agent, board, "Elm St", 12, {}}}};
    }
};

TEST_F(AddDocument, SelectListing_ShowsItsDocumentsAndTheirSize) {
    for (const char* table : {"Listings", "Rentals"}) {
        listingTable = table;
        Open("0100,123");
        EXPECT_EQ(window->Caption(), "Qor Documents - Listing #100123 - 12 Elm St");
        EXPECT_EQ(window->lblDocuments.Caption(), "Listing #100123: 2 documents, 3KB in all");
        ASSERT_EQ(window->lvFiles.Count(), 2);
        EXPECT_EQ(window->lvFiles.Cell(0, 1) + " " + window->lvFiles.Cell(1, 1), "3KB www.x.y/map");
        EXPECT_TRUE(window->cmdDelete.Enabled());
    }
    WillType("");
    Click("miSelectListing");
    EXPECT_EQ(window->lvFiles.Count(), 2);
}

TEST_F(AddDocument, SelectListing_Refused_AsksAgainUntilTheUserGivesUp) {
    agent = "A102";
    const std::pair<const char*, const char*> cases[] = {
        {"9", "Listing #9 not found"},
        {"1.5", "Listing #1.5 not found"},
        {"100123", "Listing does not belong to you."},
        {"5", "Error accessing server"},
    };
    for (const auto& [typed, told] : cases) {
        WillType(typed);
        desktop.Expect(told, *typed == '5' ? Answer::Cancel : Answer::Retry);
    }
    window->Init(7);
    EXPECT_EQ(offered, (Texts{"", "9", "1.5", "100123"}));
    EXPECT_EQ(window->Caption(), "Document Manager");
    EXPECT_FALSE(window->ActiveBar1.IsEnabled("miMakePdf"));
}

TEST_F(AddDocument, Access_ByLevel) {
    const struct {
        int level;
        const char *agent, *office, *board, *managed;
        bool allowed;
    } cases[] = {
        {59, "A101", "X", "9", "", true},           {59, "A102", "OF1", "1", "", false},
        {60, "A102", "OF1", "9", "", true},         {60, "A101", "OF2", "1", "", false},
        {89, "A101", "A1", "1", "'A1','B2'", true}, {89, "A101", "A", "1", "'A1','B2'", false},
        {60, "A101", "OF1", "1", "'A1'", false},    {90, "X", "X", "1", "", true},
        {99, "A101", "OF1", "2", "", false},        {100, "X", "X", "9", "", true},
    };
    for (const auto& [level, agentId, officeId, boardId, managed, allowed] : cases) {
        std::tie(host.level, agent, office, board, host.managedOffices) =
            std::tie(level, agentId, officeId, boardId, managed);
        if (!allowed) desktop.Expect("Listing does not belong to you.", Answer::Cancel);
        WillType("100123");
        window->Init(7);
        desktop.VerifyAllUsed();
    }
}

TEST_F(AddDocument, Preview_OpensWebAddressesOnly) {
    const Texts web = {"http://x",     "HTTPS://x", "www.x.y",        "www.x.y:8080/a",
                       "localhost:80", "/a:b",      "x/y?z=file:///a"},
                other = {"file:///etc/passwd", " java\tscript:x()", "data:text/html,x",
                         "mailto:a@b",         "javascript:1+1",    "C:\\x.pdf"};
    documents.resize(1);
    for (const Texts& addresses : {web, other})
        for (const std::string& address : addresses) documents.push_back({1, "Link", address, 0});
    for (const std::string& trap : other)
        desktop.Expect("This link was not opened, because it does not lead to a web page:\n\n" + trap);
    Open();
    window->lvFiles.DoubleClicked();
    EXPECT_EQ(desktop.opened, Texts{"Docs.example.org\\VEL\\Docs\\2\\3\\100123_17.pdf"});
    desktop.opened.clear();
    for (int row = 1; row < window->lvFiles.Count(); ++row) {
        window->lvFiles.Select(row);
        window->lvFiles.PressKey({Key::Enter});
    }
    EXPECT_EQ(desktop.opened, web);
}

TEST_F(AddDocument, AddExistingFile_SmallEnoughAndNotCancelled_IsRecordedAndKept) {
    files::WriteWhole(host.CityFolder() + "CityInfo.ini", "[Lumarin]\nDocMaxSize=6\n");
    Open();
    const std::string bytes = "%PDF-" + std::string(6 * 1024 - 5, 'x');
    WillDescribe("");  // as it was offered
    AddFile("report.v2.pdf", bytes);
    EXPECT_EQ(host.uploads, (Texts{"begin VEL_A101100123_42Doc.pdf", "chunk 5120", "chunk 1024", "end"}));
    EXPECT_TRUE(files::FileExists(host.UserFolder() + "report.v2.pdf"));
    desktop.Expect("File is too large!\nFilesize of 7KB exceeds maximum allowed (6KB)");
    AddFile("more.pdf", bytes + "x");
    desktop.Expect("File must be in PDF format");
    AddFile("no.pdf", "<html> %PDF-1.4");
    WillDescribe("Cancelled");
    desktop.AtPendingEvents(2, [&] {
        EXPECT_FALSE(window->Enabled());
        EXPECT_FALSE(desktop.shown.at("frmProgress")->Unload(CloseReason::Frame));
    });
    AddFile("a.pdf", bytes);
    EXPECT_EQ(host.uploads.back(), "abort");
    EXPECT_TRUE(window->Enabled());
    EXPECT_EQ(host.commands, Texts{"ADD|VEL|A101|100123|VEL_A101100123_42Doc.pdf|report.v2"});
}

TEST_F(AddDocument, SeveralDropped_AreCheckedDescribedAndSentAndTheRefusedNamedOnce) {
    struct RunningClock final : Clock {
        LocalTime Now() const override { return {.year = 2026, .second = ++calls / 20}; }
        mutable int calls = 0;
    } running;
    files::WriteWhole(host.CityFolder() + "CityInfo.ini", "[Lumarin]\nDocMaxSize=6\n");
    window = std::make_unique<frmAddDocument>(
        DocumentPorts{{{desktop, link, engine}, imaging, running, nullptr}, pdf});
    Open();
    const std::string folder = host.UserFolder();
    for (const char* name : {"a.pdf", "b.pdf", "c.pdf"}) files::WriteWhole(folder + name, "%PDF-1.4");
    files::WriteWhole(folder + "large.pdf", std::string(6145, 'x'));
    files::WriteWhole(folder + "no.txt", "no PDF");
    const std::string refused =
        "Not added:\n\nlarge.pdf: File is too large! Filesize of 7KB exceeds maximum allowed (6KB)\nno.txt: "
        "File must be in PDF format";
    WillDescribe("Plan");
    WillDescribe("");
    desktop.Expect(refused);
    window->lvFiles.DropFiles({folder + "large.pdf", folder + "a.pdf", folder + "no.txt", folder + "b.pdf"});
    ASSERT_EQ(host.commands.size(), 2U);
    EXPECT_NE(host.uploads.at(0), host.uploads.at(3)) << "one took the other's name";
    EXPECT_TRUE(host.commands.at(0).ends_with("|Plan") && host.commands.at(1).ends_with("|b"));

    for (int i = 0; i < 3; ++i) WillDescribe("");
    desktop.Expect("Unable to update document on server, please call Tech support.\nfull");
    desktop.Expect("Not added:\n\nb.pdf: It was not sent\nc.pdf: It was not sent");
    host.commands.clear();
    host.onUpdate = [this](const std::string&) { return host.commands.size() < 2 ? "" : "full"; };
    window->lvFiles.DropFiles({folder + "a.pdf", folder + "b.pdf", folder + "c.pdf"});
}

TEST_F(AddDocument, Rows_TellAllAndGiveTheirLink) {
    Open();
    EXPECT_EQ(window->lvFiles.At(1).toolTip, "Map\nwww.x.y/map");
    EXPECT_FALSE(window->ActiveBar1.IsEnabled("miCopyLink"));
    window->lvFiles.Select(1);
    Click("miCopyLink");
    EXPECT_EQ(desktop.clipboardText, "www.x.y/map");
}

TEST_F(AddDocument, LinkAndDelete_AreSentAndTheListIsReadAnew) {
    Open();
    WillDescribe("Town | plan", " http://x/a|b ");
    Click("miAddUrl");
    window->lvFiles.Select(1);
    const std::string question = "Preparing to delete document:\n\nMap\n\nDo you wish to continue?";
    for (const Answer answer : {Answer::Cancel, Answer::No}) {  // No deletes all the same
        desktop.Expect(question, answer);
        window->lvFiles.PressKey({Key::Delete});
    }
    host.onUpdate = [](const std::string&) { return "no such document"; };
    desktop.Expect(question, Answer::Yes);
    desktop.Expect("Unable to update document on server, please call Tech support.\nno such document");
    documents.clear();
    window->cmdDelete.Press();
    EXPECT_EQ(host.commands, (Texts{"ADD|VEL|A101|100123||Town \u00A6 plan|http://x/a%7Cb",
                                    "DELETE|VEL|A101|18", "DELETE|VEL|A101|18"}));
    EXPECT_FALSE(window->cmdDelete.Enabled());
    EXPECT_EQ(desktop.pointer, Pointer::Default);
}

TEST_F(AddDocument, Change_LeavesTheAddedRowOrTheNeighbourOfTheDeletedOneSelected) {
    documents.push_back({19, "Deed", {}, 7});
    Open();
    const auto selected = [&] { return window->lvFiles.At(window->lvFiles.Selected()).key; };
    for (const auto& [deleted, next] : {std::pair{1, "19"}, {1, "17"}, {0, "20"}}) {
        host.onUpdate = [&, row = deleted](const std::string&) {
            documents.erase(documents.begin() + row);
            if (documents.empty()) documents.push_back({20, "Another's", {}, 7});
            return "";
        };
        window->lvFiles.Select(deleted);
        desktop.Expect("Preparing to delete document:\n\n" + window->lvFiles.At(deleted).text +
                           "\n\nDo you wish to continue?",
                       Answer::Yes);
        window->cmdDelete.Press();
        EXPECT_EQ(selected(), next);
    }
    host.onUpdate = [&](const std::string&) -> std::string {
        documents.push_back({21, "Map", "x.y", 0});
        throw Error(1, "net", "its answer is lost");
    };
    WillDescribe("Map", "x.y");
    desktop.Expect("The link could not be sent to the server.\nits answer is lost", Answer::Cancel);
    Click("miAddUrl");
    EXPECT_EQ(selected(), "21");
}

TEST_F(AddDocument, ServerNotReachedOrRefusing_AChangeAndAReadingCanBeRepeated) {
    Open();
    const std::string unread = "The documents could not be read from the server.\nslow";
    host.onUpdate = [&](const std::string&) -> std::string {
        if (host.commands.size() == 1) throw Error(1, "net", "gone");
        failsToRead = host.commands.size() == 3;
        return host.commands.size() == 2 ? "no web page" : "";
    };
    WillDescribe("Tour", "Virtual tour");
    desktop.Expect("The link could not be sent to the server.\ngone", Answer::Retry);
    desktop.Expect("Unable to update document on server, please call Tech support.\nno web page");
    desktop.Play("frmPromptLinkText", [](frmPromptLinkText& prompt) {
        EXPECT_EQ(prompt.txtLinkText.Text() + prompt.txtUrl.Text(), "TourVirtual tour");
        prompt.cmdOK.Press();
    });
    desktop.Expect(unread, Answer::Retry);
    desktop.Expect(unread, Answer::Cancel);
    Click("miAddUrl");
    EXPECT_EQ(host.commands, Texts(3, "ADD|VEL|A101|100123||Tour|Virtual tour"));
    EXPECT_EQ(window->lvFiles.Count(), 2) << "the rows stay";
    EXPECT_EQ(window->lblDocuments.Caption(), "Listing #100123: the list could not be read again");
    host.onUpdate = [&](const std::string&) -> std::string { throw Error(1, "net", "gone"); };
    desktop.Expect("Preparing to delete document:\n\nPlan\n\nDo you wish to continue?", Answer::Yes);
    desktop.Expect("The document could not be deleted at the server.\ngone", Answer::Cancel);
    desktop.Expect(unread, Answer::Cancel);
    window->cmdDelete.Press();
    WillType("100123");
    desktop.Expect(unread, Answer::Cancel);
    Click("miSelectListing");
    EXPECT_EQ(window->lblDocuments.Caption(), "Listing #100123: the documents could not be read");
    EXPECT_FALSE(window->cmdDelete.Enabled());
}

TEST_F(AddDocument, ClosingByItselfOrByTheUser_TellsTheHost) {
    Open();
    host.onUpdate = [&](const std::string&) { return host.online = false, ""; };
    WillDescribe("Map", "x.y");
    desktop.Expect("No Internet connection! - This function requires an internet connection.");
    Click("miAddUrl");
    EXPECT_EQ(host.endedJobs, std::vector<int>{7});
    EXPECT_FALSE(window->IsLoaded());
    host.online = true;
    Open();
    Click("miExit");
    EXPECT_EQ(host.endedJobs, (std::vector<int>{7, 7}));
}

}  // namespace lumarin
