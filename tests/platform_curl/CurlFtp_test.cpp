#include "platform/curl/CurlFtp.h"

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <optional>
#include <thread>

#include "base/Files.h"
#include "platform_curl/FtpServer.h"
#include "support/WindowTest.h"
#include "util/FtpJob.h"
#include "util/frmFTP.h"

namespace lumarin::testing {

using curl::CurlFtp;
using std::chrono::milliseconds;

constexpr const char* Agent = "|agent|se|cr\"et";

class CurlFtpTest : public WindowTest {
protected:
    CurlFtpTest() { files::EnsureFolder(Remote()); }

    std::string Remote() const { return folder.Path() + "remote"; }
    std::string GivenFile(const std::string& name, const std::string& bytes) {
        files::WriteWhole(folder.Path() + name, bytes);
        return folder.Path() + name;
    }
    static void Prepare(CurlFtp& ftp, const std::string& server, FtpSecurity security = FtpSecurity::None) {
        lumarin::FtpServer description = ftp::ParseServer(server);
        description.security = security;
        ftp.SetServer(description);
    }
    /// "sent", or the message that the user would see.
    static std::string Send(CurlFtp& ftp, const std::string& local, const std::string& remote) {
        std::optional<FtpState> state;
        ftp.StateChanged = [&](FtpState changed) { state = changed; };
        ftp.Execute(ftp::SendCommand(local, remote));
        for (; !state; std::this_thread::sleep_for(milliseconds(2))) ftp.Poll();
        return *state == FtpState::ResponseCompleted ? "sent" : ftp.Failure().text;
    }

    TemporaryFolder folder;
};

TEST_F(CurlFtpTest, Window_SendsSeveralFilesToAMissingFolder) {
    const FtpServer server(Remote());
    const std::string large(3'000'001, 'x');
    const std::string paths[] = {GivenFile("plain.txt", "plain"),
                                 GivenFile("two words #1 %41;type=a.jpg", large),
                                 GivenFile("Küche größer 厨房.jpg", "kitchen"), GivenFile("empty", "")};
    std::string list;
    for (const std::string& path : paths) list += path + '\0';
    CurlFtp ftp;
    frmFTP window(desktop, clock, link, ftp);
    for (const std::string folderName : {"", "Büro 7/in", "/abs"}) {
        desktop.Play("frmFTP", [&](Form&) {
            for (; window.IsShown(); std::this_thread::sleep_for(milliseconds(2))) window.Timer.Tick();
        });
        FtpResult result;
        window.SendFiles({server.Address() + Agent, folderName, list}, result, nullptr);
        EXPECT_EQ(result.outcome, FtpOutcome::Sent) << folderName;
        EXPECT_EQ(result.sent, 4);
        for (const std::string& path : paths)
            EXPECT_EQ(files::ReadAll(Remote() + "/" + ftp::RemoteName(folderName, path)),
                      files::ReadAll(path));
    }
}

TEST_F(CurlFtpTest, Failures_AreToldAndNeverTakenForSuccess) {
    const std::string path = GivenFile("file.bin", std::string(6'000'000, 'x'));
    struct Case {
        std::string name, fault;
        const char *account, *told;
    };
    std::vector<Case> cases = {
        {"wrong password", "none", "|agent|wrong", "does not accept the user name or password"},
        {"not allowed", "none", "|guest|guest", "Its answer was: 550 Not enough privileges."},
        {"short file", "short", Agent, "the server has 3000000 of 6000000 bytes"},
        {"no SIZE", "sizeless", Agent, "cannot say how long the file is"},
    };
    for (const std::string at : {"220", "331", "data", "226", "213"}) {
        cases.push_back({"stalls " + at, "stall " + at, Agent, "did not answer for 1 seconds"});
        if (at != "220") cases.push_back({"dies " + at, "die " + at, Agent, "has ended the connection"});
    }
    std::vector<std::future<std::string>> told;  // all at once: most of them wait for a time-out
    for (const auto& one : cases)
        told.push_back(std::async(std::launch::async, [&] {
            const FtpServer server(Remote(), one.fault);
            CurlFtp ftp;
            Prepare(ftp, server.Address() + one.account, FtpSecurity::WhenOffered);
            if (one.fault.starts_with("stall")) ftp.SetRequestTimeout(1);
            return Send(ftp, path, one.name);
        }));
    for (std::size_t i = 0; i < told.size(); ++i) {
        const std::string text = told[i].get();
        EXPECT_NE(text.find(cases[i].told), std::string::npos) << cases[i].name << ": " << text;
        EXPECT_EQ(text.find("AUTH"), std::string::npos) << cases[i].name << ": an older refusal";
    }
    CurlFtp ftp;
    Prepare(ftp, "localhost:1");
    EXPECT_EQ(Send(ftp, path, "x"), "The server \"localhost:1\" cannot be reached.");
    EXPECT_NE(Send(ftp, folder.Path() + "gone", "x").find("gone"), std::string::npos);
}

// Whoever waited for the server here would wait as long as a test may take.
TEST_F(CurlFtpTest, Cancel_WhereverTheServerStalls_DoesNotWaitForIt) {
    const std::string path = GivenFile("file.bin", std::string(6'000'000, 'x'));
    for (const char* at : {"220", "331", "data", "226", "213"}) {
        SCOPED_TRACE(at);
        FtpServer stalling(Remote(), std::string("stall ") + at);
        const FtpServer sound(Remote());
        CurlFtp ftp;
        Prepare(ftp, stalling.Address() + Agent);
        ftp.SetRequestTimeout(100'000);
        ftp.StateChanged = [](FtpState) { ADD_FAILURE() << "told after a cancel"; };
        ftp.Execute(ftp::SendCommand(path, "file.bin"));
        EXPECT_THROW(ftp.Execute(ftp::SendCommand(path, "file.bin")), Error) << "one at a time";
        ASSERT_TRUE(stalling.WaitForStall());
        ftp.Cancel();
        ftp.Poll();
        Prepare(ftp, sound.Address() + Agent);
        EXPECT_EQ(Send(ftp, GivenFile("small", "1"), "small"), "sent");
    }
}

TEST_F(CurlFtpTest, Encryption_IsUsedWhenAskedForAndOffered) {
    const FtpServer tls(Remote(), "tls");
    const FtpServer plain(Remote());
    files::EnsureFolder(folder.Path() + "other");
    const FtpServer another(folder.Path() + "other", "tls");
    const std::string path = GivenFile("file.txt", "secret");
    const std::string trusted = Remote() + ".pem", others = folder.Path() + "other.pem";
    const std::tuple<const char*, const FtpServer&, FtpSecurity, std::string, const char*> cases[] = {
        {"offered", tls, FtpSecurity::WhenOffered, trusted, "sent"},
        {"offered and required", tls, FtpSecurity::Required, trusted, "sent"},
        {"not asked for", tls, FtpSecurity::None, trusted, "550 SSL/TLS required on the control channel."},
        {"not trusted", tls, FtpSecurity::WhenOffered, others, "has a certificate that is not trusted here"},
        {"not offered", plain, FtpSecurity::WhenOffered, trusted, "sent"},
        {"required, not offered", plain, FtpSecurity::Required, trusted,
         "does not offer an encrypted connection"},
    };
    for (const auto& [name, server, security, certificates, said] : cases) {
        CurlFtp ftp({certificates});
        Prepare(ftp, server.Address() + Agent, security);
        const std::string told = Send(ftp, path, "file.txt");
        EXPECT_NE(told.find(said), std::string::npos) << name << ": " << told;
    }
}

}  // namespace lumarin::testing
