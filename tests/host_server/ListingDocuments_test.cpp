#include "host_server/ServerTest.h"

namespace host {

constexpr int Largest = 20'000;
const std::string Done = "done";

DocumentSender Agent() { return {"VELTRANE", "A101", 10, {"OF1"}, "1", Largest}; }

std::string Pdf(std::size_t size, char fill = 'x') { return "%PDF-" + std::string(size - 5, fill); }

class ListingDocumentsTest : public ServerTest {
protected:
    std::string Reason(const std::string& command, const DocumentSender& sender = Agent()) {
        return ReasonOf([&] { server_->ApplyDocument(command, sender); });
    }
    std::string Add(const std::string& bytes, const std::string& listing = "1001",
                    const std::string& description = "Floor plan") {
        Upload(*server_, "u.pdf", bytes);
        return Reason("ADD|VELTRANE|A101|" + listing + "|u.pdf|" + description);
    }

    /// "id listing description address size" of every document; ";" between them.
    std::string Rows() {
        Database database(DatabasePath(folder_.Path()), DatabaseUse::Queries);
        Statement row(
            database,
            "SELECT group_concat(DocID || ' ' || DocListNum || ' ' || DocDesc || ' ' || DocUrl || ' ' "
            "|| DocFilesize, ';') FROM Documents");
        row.Step();
        return row.Text(0);
    }
    /// Of listing 1001.
    std::size_t Files() { return FilesIn("server/documents/VELTRANE/Docs/0/1/"); }
};

TEST_F(ListingDocumentsTest, FilesAndLinks_AreAddedAndDeletedUnderIdsOfTheirOwn) {
    EXPECT_EQ(Add(Pdf(Largest)), Done);
    EXPECT_EQ(lumarin::files::ReadAll(folder_.Path() + "server/documents/VELTRANE/Docs/0/1/1001_1.pdf"),
              Pdf(Largest))
        << "where the address says";
    EXPECT_EQ(Reason("ADD|VELTRANE|A101|5001||  Plan of the town |www.example.org:8080/a?b=c"), Done);
    EXPECT_EQ(Rows(), "1 1001 Floor plan  20000;2 5001 Plan of the town www.example.org:8080/a?b=c 0");
    EXPECT_EQ(server_->DocumentFile(5001, 2) + server_->DocumentFile(1002, 1), "");

    EXPECT_EQ(Reason("DELETE|VELTRANE|A101|1"), Done);
    EXPECT_EQ(Reason("DELETE|VELTRANE|A101|2"), Done);
    EXPECT_EQ(Rows(), "");
    EXPECT_EQ(Files(), 0U);
    Restart();
    EXPECT_EQ(Add(Pdf(6), "5001"), Done);
    EXPECT_EQ(Rows(), "3 5001 Floor plan  6") << "an id is not used again";
}

TEST_F(ListingDocumentsTest, CommandRepeatedAfterALostAnswer_ChangesNothing) {
    const std::string link = "ADD|VELTRANE|A101|1001||Town|http://example.org";
    EXPECT_EQ(Add(Pdf(10), "1001", "Plan"), Done);
    EXPECT_EQ(Add(Pdf(10)), Done) << "it may be described anew";
    Restart();
    EXPECT_EQ(Reason("ADD|VELTRANE|A101|1001|u.pdf|Floor plan"), Done) << "without another upload";
    EXPECT_EQ(Reason(link) + Reason(link), Done + Done);
    EXPECT_EQ(Rows(), "1 1001 Floor plan  10;2 1001 Town http://example.org 0");
    EXPECT_EQ(SpooledFiles(), 0U);
    EXPECT_EQ(Add(Pdf(10, 'y')), Done) << "another file under the same name";
    for (int time = 0; time < 2; ++time) EXPECT_EQ(Reason("DELETE|VELTRANE|A101|1"), Done);
    EXPECT_EQ(Reason("DELETE|VELTRANE|A101|2"), Done);
    EXPECT_EQ(Reason(link), Done) << "a link may come back";
    EXPECT_EQ(Rows(), "3 1001 Floor plan  10;4 1001 Town http://example.org 0");
    EXPECT_EQ(Reason("DELETE|VELTRANE|A101|3"), Done);
    EXPECT_EQ(Add(Pdf(10, 'y')), Done);
    EXPECT_EQ(Rows(), "4 1001 Town http://example.org 0;5 1001 Floor plan  10")
        << "what was deleted comes anew";
}

TEST_F(ListingDocumentsTest, BadCommand_IsRefusedWholeWithItsReason) {
    ASSERT_EQ(Reason("ADD|VELTRANE|A101|1001||Town|http://example.org"), Done);
    const std::string add = "ADD|VELTRANE|A101|";
    const struct {
        std::string command;
        const char* reason;
        std::string upload = Pdf(9);
    } cases[] = {
        {add + "1001|u.pdf|Plan||x", "does not know the command"},
        {add + "1001|u.pdf|Pl\nan", "control characters"},
        {"ADD|OTHER|A101|1001|u.pdf|Plan", "no user code \"OTHER\""},
        {"ADD|VELTRANE|A202|1001|u.pdf|Plan", "\"A202\" is not signed in"},
        {add + "7|u.pdf|Plan", "no listing 7"},
        {add + "1002|u.pdf|Plan", "1002 does not belong to A101"},
        {add + "1001|u.pdf|  ", "no description"},
        {add + "1001|other.pdf|Plan", "No file other.pdf was uploaded"},
        {add + "1001|u.pdf|Plan", "20001 bytes; 20000 are allowed", Pdf(Largest + 1)},
        {add + "1001|u.pdf|Plan", "not in PDF format", "%PDF-"},
        {add + "1001|u.pdf|Plan", "not in PDF format", "<html> %PDF-1.4"},
        {add + "1001|u.pdf|Plan|http://example.org", "either a file or a link"},
        {"DELETE|VELTRANE|A101|0", "\"0\" is no document id"},
        {"DELETE|VELTRANE|A101|2", "no document 2"},
    };
    for (const auto& bad : cases) {
        Upload(*server_, "u.pdf", bad.upload);
        EXPECT_TRUE(Says(Reason(bad.command), bad.reason)) << bad.command << ": " << Reason(bad.command);
        EXPECT_EQ(Rows(), "1 1001 Town http://example.org 0") << bad.command;
        EXPECT_EQ(Files(), 0U) << bad.command;
    }
}

TEST_F(ListingDocumentsTest, Address_ThatNoBrowserOpens_IsRefused) {
    for (const std::string address : {"www.example.org/my tour.html", "HTTP://intranet", "localhost/a?b=c:d",
                                      "tour:8080", "https://[::1]:443/x", "grüße.example.#7", "10.0.0.1\\x"})
        EXPECT_EQ(Reason("ADD|VELTRANE|A101|1001||Plan|" + address), Done) << address;
    for (const std::string address : {"Virtual tour", "tour", "tour.", "http://Virtual tour", "https://",
                                      "http:x.y", "FILE:///etc/passwd", "javascript:1+1", "www..example.org",
                                      "me@example.org", "x.y:65536", "[x.y]", ".", "/x.y"})
        EXPECT_TRUE(Says(Reason("ADD|VELTRANE|A101|1001||Plan|" + address), "not the address of a web page"))
            << address;
}

TEST_F(ListingDocumentsTest, Ownership_GoesByLevel) {
    const std::tuple<int, const char*, const char*, const char*, bool> cases[] = {
        {59, "OF2", "1", "1002", false}, {60, "OF2", "9", "1002", true},  {60, "OF1", "1", "1002", false},
        {90, "OF1", "1", "1002", true},  {90, "OF1", "1", "5001", false}, {100, "", "", "5001", true},
    };
    for (const auto& [level, offices, board, listing, allowed] : cases) {
        DocumentSender sender{"VELTRANE", "A909", level, {offices}, board, Largest};
        const std::string added =
            Reason(std::string("ADD|VELTRANE|A909|") + listing + "||Town|http://example.org", sender);
        EXPECT_EQ(added == Done, allowed) << level << listing << added;
    }
    EXPECT_TRUE(Says(Reason("DELETE|VELTRANE|A101|1"), "does not belong"));
}

}  // namespace host
