#pragma once

#include <curl/curl.h>

#include <mutex>
#include <set>

namespace lumarin::curl {

/// The sockets that the library has open, so that another thread can end whatever waits for them.
class Sockets {
public:
    /// For the connections of this handle; this outlives the handle and its connections.
    void Watch(CURL* easy);

    /// From any thread: what waits for a server fails at once, and no socket is opened any more.
    void Interrupt();
    bool Interrupted() const;
    /// New sockets are welcome again.
    void Resume();

private:
    static int Opened(void* self, curl_socket_t socket, curlsocktype purpose);
    static int Close(void* self, curl_socket_t socket);

    mutable std::mutex mutex_;
    std::set<curl_socket_t> open_;
    bool interrupted_ = false;
};

}  // namespace lumarin::curl
