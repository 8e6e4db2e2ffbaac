#pragma once

#include <curl/curl.h>

#include <stdexcept>
#include <string>

#include "util/FtpTransfer.h"

namespace lumarin::curl {

/// A transfer that failed, on its way from the worker's thread to the caller's.
struct FailedTransfer : std::runtime_error {
    explicit FailedTransfer(FtpFailure why) : std::runtime_error(why.text), failure(std::move(why)) {}
    FtpFailure failure;
};

/// What is known when the library gives up.
struct Circumstances {
    CURLcode code = CURLE_OK;
    std::string server;  ///< its address
    int timeout = 0;     ///< seconds
    std::string reply;   ///< the server's last refusal, as it came; "" when there was none
    std::string detail;  ///< the library's own words
};

FtpFailure Describe(const Circumstances& circumstances);

}  // namespace lumarin::curl
