#pragma once

#include <curl/curl.h>

#include <chrono>
#include <cstdint>
#include <exception>
#include <memory>
#include <string>

#include "platform/curl/Sockets.h"
#include "util/FtpJob.h"

namespace lumarin::curl {

/// One file to send, and everything that is needed for it.
struct SendOrder {
    FtpServer server;
    int timeout = 0;  ///< seconds
    ftp::Send file;
};

/// The library's side of a transfer, on one thread. The connection of the last order is used again.
class CurlConnection {
public:
    /// `sockets` outlives this. Throws Error when the library cannot be set up.
    CurlConnection(std::string certificates, Sockets& sockets);
    ~CurlConnection();
    CurlConnection(const CurlConnection&) = delete;
    CurlConnection& operator=(const CurlConnection&) = delete;

    /// Sends the file and has its length confirmed. Throws FailedTransfer, and FileError for the local file.
    void Send(const SendOrder& order);
    /// Lets go of the connection.
    void Close();

private:
    std::uint64_t Upload(const SendOrder& order);
    /// The length in bytes that the server gives for the file; -1 when it cannot say.
    std::int64_t RemoteLength(const SendOrder& order);
    void Prepare(const SendOrder& order);
    /// Throws FailedTransfer unless all went well.
    void Perform(const SendOrder& order);
    CURLcode WaitForEnd(std::chrono::seconds timeout);
    std::string UrlOf(const SendOrder& order) const;
    [[noreturn]] void Fail(CURLcode code, const SendOrder& order) const;
    static std::size_t ReplyArrived(const char* line, std::size_t size, std::size_t count, void* self);

    std::string certificates_;
    Sockets& sockets_;
    CURL* easy_ = nullptr;
    CURLM* multi_ = nullptr;
    char detail_[CURL_ERROR_SIZE] = {};
    std::string refusal_;  ///< the server's last reply, when it was one
};

}  // namespace lumarin::curl
