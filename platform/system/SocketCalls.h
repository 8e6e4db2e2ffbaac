#pragma once

#include <cstdint>

namespace lumarin::platform {

/// A socket as the system numbers it.
using SocketNumber = std::uintptr_t;

/// Ends sending and receiving, so that whoever waits for the socket wakes up; it stays open.
void ShutDownSocket(SocketNumber socket) noexcept;
/// 0 when it is closed.
int CloseSocket(SocketNumber socket) noexcept;
/// In the calling thread, writing to a connection that has ended is an error and nothing more.
void IgnoreBrokenConnections() noexcept;

}  // namespace lumarin::platform
