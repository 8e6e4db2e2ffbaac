#include "platform/system/SocketCalls.h"

#include <sys/socket.h>
#include <unistd.h>
#include <csignal>

namespace lumarin::platform {

void ShutDownSocket(SocketNumber socket) noexcept { shutdown(static_cast<int>(socket), SHUT_RDWR); }

int CloseSocket(SocketNumber socket) noexcept { return close(static_cast<int>(socket)); }

void IgnoreBrokenConnections() noexcept {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGPIPE);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

}  // namespace lumarin::platform
