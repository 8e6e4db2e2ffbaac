#include "platform/curl/Sockets.h"

#include "platform/system/SocketCalls.h"

namespace lumarin::curl {

void Sockets::Watch(CURL* easy) {
    curl_easy_setopt(easy, CURLOPT_SOCKOPTFUNCTION, &Opened);
    curl_easy_setopt(easy, CURLOPT_SOCKOPTDATA, this);
    curl_easy_setopt(easy, CURLOPT_CLOSESOCKETFUNCTION, &Close);
    curl_easy_setopt(easy, CURLOPT_CLOSESOCKETDATA, this);
}

void Sockets::Interrupt() {
    const std::lock_guard lock(mutex_);
    interrupted_ = true;
    // Closing stays with the library: its number might belong to another socket by the time it is read.
    for (const curl_socket_t socket : open_)
        platform::ShutDownSocket(static_cast<platform::SocketNumber>(socket));
}

bool Sockets::Interrupted() const {
    const std::lock_guard lock(mutex_);
    return interrupted_;
}

void Sockets::Resume() {
    const std::lock_guard lock(mutex_);
    interrupted_ = false;
}

int Sockets::Opened(void* self, curl_socket_t socket, curlsocktype) {
    auto& sockets = *static_cast<Sockets*>(self);
    const std::lock_guard lock(sockets.mutex_);
    if (sockets.interrupted_) return CURL_SOCKOPT_ERROR;
    sockets.open_.insert(socket);
    return CURL_SOCKOPT_OK;
}

int Sockets::Close(void* self, curl_socket_t socket) {
    auto& sockets = *static_cast<Sockets*>(self);
    const std::lock_guard lock(sockets.mutex_);
    sockets.open_.erase(socket);
    return platform::CloseSocket(static_cast<platform::SocketNumber>(socket));
}

}  // namespace lumarin::curl
