#include "platform/system/SocketCalls.h"

#include <winsock2.h>

namespace lumarin::platform {

void ShutDownSocket(SocketNumber socket) noexcept { shutdown(static_cast<SOCKET>(socket), SD_BOTH); }

int CloseSocket(SocketNumber socket) noexcept { return closesocket(static_cast<SOCKET>(socket)); }

void IgnoreBrokenConnections() noexcept {}  // there they are errors anyway

}  // namespace lumarin::platform
