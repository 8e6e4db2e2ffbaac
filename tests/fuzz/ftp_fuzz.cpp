#include <algorithm>
#include <string>

#include "base/Error.h"
#include "fuzz/Promise.h"
#include "util/FtpJob.h"

namespace {

using namespace lumarin;

bool IsHarmless(const std::string& text) {
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; });
}

template <class Work>
void UnlessRefused(Work work) {
    try {
        work();
    } catch (const ApplicationError&) {
    }
}

}  // namespace

/// Whatever a host says of a server and its files: it is refused, or nothing in it can become another
/// command, host or path.
FUZZ(const std::string& bytes) {
    const std::string folder = bytes.substr(0, bytes.find('\n'));
    const std::string list = bytes.substr(std::min(folder.size() + 1, bytes.size()));
    UnlessRefused([&] {
        const FtpServer server = ftp::ParseServer(bytes);
        PROMISE(server.address.size() > 6 && server.address.find_first_of("/@?#% ", 6) == std::string::npos);
        PROMISE(IsHarmless(server.address + server.user + server.password) && !server.user.empty());
    });
    UnlessRefused([&] {
        for (const std::string& path : ftp::SplitFileList(list)) {
            const ftp::Send parts =
                ftp::ParseSendCommand(ftp::SendCommand(path, ftp::RemoteName(folder, path)));
            const std::string names = path + parts.remoteName;
            PROMISE(parts.localPath == path && IsHarmless(names) && names.find('"') == std::string::npos);
        }
    });
    UnlessRefused([&] {
        const ftp::Send parts = ftp::ParseSendCommand(bytes);
        PROMISE(ftp::SendCommand(parts.localPath, parts.remoteName) == bytes);
    });
}
