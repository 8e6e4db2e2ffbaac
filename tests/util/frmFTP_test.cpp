#include "util/frmFTP.h"

#include "support/FakeTransfer.h"
#include "support/WindowTest.h"
#include "util/FtpJob.h"

namespace lumarin {

class FtpWindow : public testing::WindowTest {
protected:
    FtpWindow() {
        for (const char* name : {"a.jpg", "b c.jpg"}) files::WriteWhole(folder.Path() + name, name);
        both = folder.Path() + "a.jpg" + '\0' + folder.Path() + "b c.jpg";
    }
    void Send(const frmFTP::Order& order) { window.SendFiles(order, result, nullptr); }

    testing::TemporaryFolder folder;
    testing::FakeTransfer transfer;
    frmFTP window{desktop, clock, link, transfer};
    FtpResult result;
    std::string both;
};

TEST_F(FtpWindow, Failure_IsRetriedWhereThatMayHelp) {
    const std::string told = "Gone.\n\nThe file \"b c.jpg\" was not sent. 1 of 2 files were sent.";
    const std::tuple<const char*, Answer, bool, FtpOutcome, std::size_t> cases[] = {
        {"retry", Answer::Retry, true, FtpOutcome::Sent, 3},
        {"give up", Answer::Cancel, true, FtpOutcome::Failed, 2},
        {"hopeless", Answer::Ok, false, FtpOutcome::Failed, 2}};
    for (const auto& [name, answer, canBeRetried, outcome, commands] : cases) {
        SCOPED_TRACE(name);
        transfer.commands.clear();
        transfer.failures = {{2, {"Gone.", canBeRetried}}};
        desktop.Play("frmFTP", [&](Form&) {
            while (window.IsShown()) window.Timer.Tick();
        });
        desktop.Expect(told, answer);
        Send({"host", "", both});
        EXPECT_EQ(result.outcome, outcome);
        EXPECT_EQ(result.sent, outcome == FtpOutcome::Sent ? 2 : 1);
        EXPECT_EQ(result.problem, outcome == FtpOutcome::Sent ? "" : told);
        EXPECT_EQ(transfer.commands.size(), commands);
        EXPECT_EQ(desktop.messages.back().buttons, canBeRetried ? Buttons::RetryCancel : Buttons::Ok);
    }
}

TEST_F(FtpWindow, CancelCloseBoxAndEnd_EndTheTransfer) {
    const std::pair<const char*, std::function<void()>> ways[] = {
        {"cmdCancel", [&] { window.cmdCancel.Press(); }},
        {"close box", [&] { EXPECT_FALSE(window.Unload(CloseReason::Frame)); }},
        {"program ends", [&] { EXPECT_TRUE(window.Unload(CloseReason::Host)); }}};
    for (const auto& [name, leave] : ways) {
        transfer.cancels = 0;
        desktop.Play("frmFTP", [&, leave = leave](Form&) {
            EXPECT_EQ(window.lblFile.Caption(), "a.jpg (1 of 2)");
            window.Timer.Tick();
            EXPECT_EQ(window.lblFile.Caption(), "b c.jpg (2 of 2)");
            EXPECT_EQ(transfer.commands.back(), "Send \"" + folder.Path() + "b c.jpg\" \"in/new/b c.jpg\"");
            leave();
        });
        Send({"host", "in/new", both});
        EXPECT_EQ(result.outcome, FtpOutcome::Cancelled) << name;
        EXPECT_EQ(result.sent, 1) << name;
        EXPECT_GT(transfer.cancels, 0) << name;
        EXPECT_FALSE(window.Timer.Enabled() || window.IsLoaded()) << name;
    }
}

TEST_F(FtpWindow, UnsoundOrder_IsRefusedBeforeAnythingIsSent) {
    const std::string a = folder.Path() + "a.jpg", end = " Nothing was sent.";
    const std::string harmful = "line breaks or other control characters." + end;
    const struct {
        std::string server, remoteFolder, list, told;
    } cases[] = {
        {"", "", a, "The name of the FTP server is missing."},
        {"a@b", "", a, "\"a@b\" is not the name of an FTP server."},
        {"host/../x", "", a, "\"host/../x\" is not the name of an FTP server."},
        {"host|u\r\nDELE x|p", "", a, "The user name for the FTP server must not contain " + harmful},
        {std::string("host|u|p\0q", 10), "", a,
         "The password for the FTP server must not contain " + harmful},
        {"host", "in\nDELE x", a, "The remote folder must not contain quotes, " + harmful},
        {"host", "", a + "\"", "The name of a file to send must not contain quotes, " + harmful},
        {"host", "", std::string(2, '\0'), "There is no file to send."},
        {"host", "", folder.Path(), "The name of a file to send is missing."},
        {"host", "", a + '\0' + folder.Path() + "none",
         "Cannot send \"" + folder.Path() + "none\": there is no such file"},
        {"host", "", a + '\0' + "/other\\a.jpg",
         "Two of the files to send have the name \"a.jpg\"; on the server one would replace the other." +
             end},
    };
    for (const auto& one : cases) {
        desktop.Expect(one.told);
        Send({one.server, one.remoteFolder, one.list});
        EXPECT_EQ(result.outcome, FtpOutcome::Failed);
        EXPECT_EQ(result.problem, one.told);
    }
    EXPECT_TRUE(transfer.commands.empty());
}

TEST(FtpJob, Server_IsSplitIntoItsParts) {
    const std::pair<const char*, const char*> cases[] = {
        {" [::1]:2121 |me|p|\"w", "ftp://[::1]:2121 me p|\"w"},
        {"host|me|", "ftp://host me "},
        {"host|me", "ftp://host Anonymous Anonymous"},
        {"host||", "ftp://host Anonymous Anonymous"},
    };
    for (const auto& [description, parts] : cases) {
        const FtpServer server = ftp::ParseServer(description);
        EXPECT_EQ(server.address + " " + server.user + " " + server.password, parts);
    }
}

}  // namespace lumarin
