#pragma once

#include <string>

#include "support/Command.h"

namespace lumarin::testing {

/// A real FTP server in a process of its own, as long as this lives; see ftp_server.py.
class FtpServer {
public:
    explicit FtpServer(const std::string& folder, const std::string& fault = "none")
        : command_("exec /usr/bin/python3 " FTP_SERVER_SCRIPT " '" + folder + "' " + fault),
          port_(command_.ReadLine()) {}

    std::string Address() const { return "localhost:" + port_; }
    /// Waits until it stalls; false when it ends without.
    bool WaitForStall() { return command_.ReadLine() == "stalled"; }

private:
    Command command_;
    std::string port_;
};

}  // namespace lumarin::testing
