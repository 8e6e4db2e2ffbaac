#pragma once

#include <csignal>

#include <cstdio>
#include <string>

namespace lumarin::testing {

/// A real FTP server in a process of its own, as long as this lives; see ftp_server.py.
class FtpServer {
public:
    explicit FtpServer(const std::string& folder, const std::string& fault = "none")
        : output_(
              popen(("exec /usr/bin/python3 " FTP_SERVER_SCRIPT " " + folder + " " + fault).c_str(), "r")) {
        if (std::fscanf(output_, "%d %d", &process_, &port_) != 2) process_ = 0;
    }
    ~FtpServer() {
        if (process_ > 0) kill(process_, SIGKILL);
        pclose(output_);
    }
    FtpServer(const FtpServer&) = delete;
    FtpServer& operator=(const FtpServer&) = delete;

    std::string Address() const { return "localhost:" + std::to_string(port_); }
    /// Waits until it stalls; false when it ends without.
    bool WaitForStall() { return std::fgetc(output_) == '\n' && std::fgetc(output_) == 's'; }

private:
    FILE* output_;
    int process_ = 0, port_ = 0;
};

}  // namespace lumarin::testing
