#include "platform/curl/Failures.h"

#include <algorithm>
#include <iterator>

namespace lumarin::curl {

namespace {

constexpr std::size_t LongestReply = 300;  // bytes: the text stands in a message box

/// The library's words of what happened, or of its kind where they are only an error number.
std::string Detail(const Circumstances& at) {
    const bool isNumber = at.detail.empty() || at.detail.find("errno") != std::string::npos;
    return isNumber ? curl_easy_strerror(at.code) : at.detail;
}

FtpFailure Sentence(const Circumstances& at) {
    const std::string server = "The server \"" + at.server + "\"";
    switch (at.code) {
        case CURLE_COULDNT_RESOLVE_HOST:
            return {server + " was not found."};
        case CURLE_URL_MALFORMAT:
            return {server + " has a name or port that cannot be used.", false};
        case CURLE_COULDNT_CONNECT:
            return {server + " cannot be reached."};
        case CURLE_SEND_ERROR:
        case CURLE_RECV_ERROR:
        case CURLE_GOT_NOTHING:
        case CURLE_PARTIAL_FILE:
            return {server + " has ended the connection."};
        case CURLE_OPERATION_TIMEDOUT:
            // The library takes a server that hangs up by its own decision for one that is silent.
            if (at.reply.starts_with("421")) return {server + " has ended the connection."};
            return {server + " did not answer for " + std::to_string(at.timeout) + " seconds."};
        case CURLE_LOGIN_DENIED:
            return {server + " does not accept the user name or password.", false};
        case CURLE_REMOTE_ACCESS_DENIED:
            return {server + " does not give access to the remote folder."};
        case CURLE_REMOTE_DISK_FULL:
            return {server + " has no room left."};
        case CURLE_UPLOAD_FAILED:
            return {server + " does not take the file."};
        case CURLE_PEER_FAILED_VERIFICATION:
        case CURLE_SSL_CACERT_BADFILE:
            return {server + " has a certificate that is not trusted here (" + Detail(at) + ").", false};
        case CURLE_USE_SSL_FAILED:
            return {server + " does not offer an encrypted connection.", false};
        case CURLE_SSL_CONNECT_ERROR:
            return {"An encrypted connection to \"" + at.server + "\" could not be made (" + Detail(at) +
                    ")."};
        default:
            return {"The connection to the server \"" + at.server + "\" failed (" + Detail(at) + ")."};
    }
}

/// Whether the last refusal is about this failure. A server that went away or fell silent may have refused
/// something before that does not matter, such as to encrypt.
bool IsAnswer(const Circumstances& at) {
    constexpr CURLcode Unanswered[] = {CURLE_SEND_ERROR, CURLE_RECV_ERROR, CURLE_GOT_NOTHING,
                                       CURLE_PARTIAL_FILE, CURLE_OPERATION_TIMEDOUT};
    const bool unanswered =
        std::find(std::begin(Unanswered), std::end(Unanswered), at.code) != std::end(Unanswered);
    return !at.reply.empty() && (!unanswered || at.reply.starts_with("421"));
}

}  // namespace

FtpFailure Describe(const Circumstances& circumstances) {
    FtpFailure failure = Sentence(circumstances);
    if (!IsAnswer(circumstances)) return failure;
    std::string reply = circumstances.reply.substr(0, LongestReply);
    std::erase_if(reply, [](char c) { return static_cast<unsigned char>(c) < ' '; });
    failure.text += "\nIts answer was: " + reply;
    return failure;
}

}  // namespace lumarin::curl
