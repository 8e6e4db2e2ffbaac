#include "host_server/ServerTest.h"
#include "reliability/DiskFaults.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

namespace host {

void ServerTest::AtEachKill(const std::function<void(Server&)>& work, const std::function<void()>& check) {
    namespace fs = std::filesystem;
    namespace faults = lumarin::disk_faults;
    server_.reset();
    const lumarin::testing::TemporaryFolder before;
    fs::copy(folder_.Path(), before.Path(), fs::copy_options::recursive);
    int status = SIGKILL;
    for (int call = 1; WIFSIGNALED(status); ++call) {
        SCOPED_TRACE(call);
        server_.reset();
        for (const auto& entry : fs::directory_iterator(folder_.Path())) fs::remove_all(entry);
        fs::copy(before.Path(), folder_.Path(), fs::copy_options::recursive);
        const pid_t child = fork();
        if (child == 0) {
            Server doomed(folder_.Path());
            const auto kind = call % 2 == 0 ? faults::Kind::Killed : faults::Kind::KilledHalf;
            faults::Begin(folder_.Path(), kind, call);
            work(doomed);
            _exit(0);
        }
        waitpid(child, &status, 0);
        ASSERT_TRUE(status == 0 || WTERMSIG(status) == SIGKILL) << status;
        Restart();
        check();
    }
}

}  // namespace host
