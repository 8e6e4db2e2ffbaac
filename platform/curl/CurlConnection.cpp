#include "platform/curl/CurlConnection.h"

#include <algorithm>
#include <utility>

#include "base/Error.h"
#include "base/Files.h"
#include "base/Text.h"
#include "platform/curl/Failures.h"

namespace lumarin::curl {

namespace {

constexpr int LongestWait = 100;  // milliseconds until an interruption is noticed while a name is looked up
constexpr std::int64_t UnknownLength = -1;

/// Reads the file for the library, which cannot be thrown through.
struct Source {
    explicit Source(const std::string& path) : reader(path) {}

    static std::size_t Read(char* buffer, std::size_t size, std::size_t count, void* self) {
        auto& source = *static_cast<Source*>(self);
        try {
            const std::string bytes = source.reader.Read(size * count);
            std::copy(bytes.begin(), bytes.end(), buffer);
            source.sent += bytes.size();
            return bytes.size();
        } catch (...) {
            source.error = std::current_exception();
            return CURL_READFUNC_ABORT;
        }
    }

    files::Reader reader;
    std::uint64_t sent = 0;
    std::exception_ptr error;
};

std::size_t Discard(const char*, std::size_t size, std::size_t count, void*) { return size * count; }

/// Where the library itself waits for a reply it asks this now and then; not every system wakes it when its
/// socket is shut down.
int EndsWhenInterrupted(void* sockets, curl_off_t, curl_off_t, curl_off_t, curl_off_t) {
    return static_cast<const Sockets*>(sockets)->Interrupted() ? 1 : 0;
}

long SecurityOption(FtpSecurity security) {
    switch (security) {
        case FtpSecurity::WhenOffered:
            return CURLUSESSL_TRY;
        case FtpSecurity::Required:
            return CURLUSESSL_ALL;
        default:
            return CURLUSESSL_NONE;
    }
}

bool IsAscii(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// Commands for before the transfer; a "*" lets the server refuse one.
struct Commands {
    explicit Commands(const char* command) : list(curl_slist_append(nullptr, command)) {}
    ~Commands() { curl_slist_free_all(list); }
    Commands(const Commands&) = delete;
    Commands& operator=(const Commands&) = delete;
    curl_slist* list;
};

}  // namespace

CurlConnection::CurlConnection(std::string certificates, Sockets& sockets)
    : certificates_(std::move(certificates)), sockets_(sockets) {
    static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (started == CURLE_OK) easy_ = curl_easy_init();
    multi_ = curl_multi_init();
    if (easy_ == nullptr || multi_ == nullptr)
        throw ApplicationError("CurlFtp", "The transfer library could not be started.");
}

CurlConnection::~CurlConnection() {
    curl_multi_cleanup(multi_);
    curl_easy_cleanup(easy_);
}

void CurlConnection::Close() {
    curl_multi_cleanup(multi_);
    multi_ = curl_multi_init();
}

void CurlConnection::Send(const SendOrder& order) {
    const std::uint64_t sent = Upload(order);
    const std::int64_t there = RemoteLength(order);
    if (there == UnknownLength)
        throw FailedTransfer(
            {"The server cannot say how long the file is there, so it is not known whether all "
             "of it has arrived."});
    if (static_cast<std::uint64_t>(there) != sent)
        throw FailedTransfer({"Only a part of the file has arrived: the server has " + std::to_string(there) +
                              " of " + std::to_string(sent) + " bytes."});
}

std::uint64_t CurlConnection::Upload(const SendOrder& order) {
    Source source(order.file.localPath);
    const Commands utf8("*OPTS UTF8 ON");
    Prepare(order);
    curl_easy_setopt(easy_, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(easy_, CURLOPT_READFUNCTION, &Source::Read);
    curl_easy_setopt(easy_, CURLOPT_READDATA, &source);
    curl_easy_setopt(easy_, CURLOPT_FTP_CREATE_MISSING_DIRS, static_cast<long>(CURLFTP_CREATE_DIR_RETRY));
    if (!IsAscii(order.file.remoteName)) curl_easy_setopt(easy_, CURLOPT_QUOTE, utf8.list);
    try {
        Perform(order);
    } catch (const FailedTransfer&) {
        if (source.error) std::rethrow_exception(source.error);
        throw;
    }
    if (source.sent != source.reader.Length())
        throw FailedTransfer({"The file was changed while it was being sent."});
    return source.sent;
}

std::int64_t CurlConnection::RemoteLength(const SendOrder& order) {
    Prepare(order);
    curl_easy_setopt(easy_, CURLOPT_NOBODY, 1L);
    Perform(order);
    curl_off_t length = UnknownLength;
    curl_easy_getinfo(easy_, CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
    return length;
}

void CurlConnection::Prepare(const SendOrder& order) {
    curl_easy_reset(easy_);
    sockets_.Watch(easy_);
    const long timeout = order.timeout;
    curl_easy_setopt(easy_, CURLOPT_ERRORBUFFER, detail_);
    curl_easy_setopt(easy_, CURLOPT_URL, UrlOf(order).c_str());
    curl_easy_setopt(easy_, CURLOPT_PROTOCOLS_STR, "ftp");
    curl_easy_setopt(easy_, CURLOPT_PATH_AS_IS, 1L);
    curl_easy_setopt(easy_, CURLOPT_PROXY, "");  // the password goes to the server and to nobody else
    curl_easy_setopt(easy_, CURLOPT_USERNAME, order.server.user.c_str());
    curl_easy_setopt(easy_, CURLOPT_PASSWORD, order.server.password.c_str());
    curl_easy_setopt(easy_, CURLOPT_USE_SSL, SecurityOption(order.server.security));
    if (!certificates_.empty()) curl_easy_setopt(easy_, CURLOPT_CAINFO, certificates_.c_str());
    curl_easy_setopt(easy_, CURLOPT_CONNECTTIMEOUT, timeout);
    curl_easy_setopt(easy_, CURLOPT_SERVER_RESPONSE_TIMEOUT, timeout);
    curl_easy_setopt(easy_, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy_, CURLOPT_QUICK_EXIT, 1L);  // a name look-up that does not end is left behind
    curl_easy_setopt(easy_, CURLOPT_HEADERFUNCTION, &ReplyArrived);
    curl_easy_setopt(easy_, CURLOPT_HEADERDATA, this);
    curl_easy_setopt(easy_, CURLOPT_WRITEFUNCTION, &Discard);
    curl_easy_setopt(easy_, CURLOPT_XFERINFOFUNCTION, &EndsWhenInterrupted);
    curl_easy_setopt(easy_, CURLOPT_XFERINFODATA, &sockets_);
    curl_easy_setopt(easy_, CURLOPT_NOPROGRESS, 0L);
}

void CurlConnection::Perform(const SendOrder& order) {
    refusal_.clear();
    detail_[0] = '\0';
    curl_multi_add_handle(multi_, easy_);
    const CURLcode code = WaitForEnd(std::chrono::seconds(order.timeout));
    curl_multi_remove_handle(multi_, easy_);
    if (code != CURLE_OK) Fail(code, order);
}

CURLcode CurlConnection::WaitForEnd(std::chrono::seconds timeout) {
    using std::chrono::steady_clock;
    int running = 1;
    curl_off_t moved = 0;
    auto lastMove = steady_clock::now();
    while (running > 0 && !sockets_.Interrupted()) {
        if (curl_multi_perform(multi_, &running) != CURLM_OK) return CURLE_FAILED_INIT;
        if (running > 0) curl_multi_poll(multi_, nullptr, 0, LongestWait, nullptr);
        // The library watches over connections and replies; its measure of the bytes between them is the mean
        // of several seconds.
        curl_off_t now = 0;
        curl_easy_getinfo(easy_, CURLINFO_SIZE_UPLOAD_T, &now);
        if (std::exchange(moved, now) != now)
            lastMove = steady_clock::now();
        else if (moved > 0 && steady_clock::now() - lastMove > timeout && running > 0)
            return CURLE_OPERATION_TIMEDOUT;
    }
    int left = 0;
    const CURLMsg* message = curl_multi_info_read(multi_, &left);
    return message != nullptr ? message->data.result : CURLE_ABORTED_BY_CALLBACK;
}

std::string CurlConnection::UrlOf(const SendOrder& order) const {
    std::string url = order.server.address;
    for (const std::string& part : text::Split(order.file.remoteName, '/')) {
        char* escaped = curl_easy_escape(easy_, part.c_str(), static_cast<int>(part.size()));
        if (escaped == nullptr) throw ApplicationError("CurlFtp", "The remote name is too long.");
        url.append("/").append(escaped);
        curl_free(escaped);
    }
    return url;
}

void CurlConnection::Fail(CURLcode code, const SendOrder& order) const {
    throw FailedTransfer(Describe({.code = code,
                                   .server = text::AfterLastSeparator(order.server.address),
                                   .timeout = order.timeout,
                                   .reply = refusal_,
                                   .detail = detail_}));
}

std::size_t CurlConnection::ReplyArrived(const char* line, std::size_t size, std::size_t count, void* self) {
    auto& connection = *static_cast<CurlConnection*>(self);
    const std::size_t length = size * count;
    const bool isRefusal = length > 3 && (line[0] == '4' || line[0] == '5');
    connection.refusal_ = isRefusal ? std::string(line, length) : std::string();
    return length;
}

}  // namespace lumarin::curl
