#include "support/Command.h"

#include <winsock2.h>

#include <cstdlib>

namespace lumarin::testing {

// outside.py listens on a port of this machine. It takes a command line, sends what that prints, and at its
// end a zero byte and the exit code in decimal digits.

Command::Command(const std::string& line) {
    WSADATA ignored;
    WSAStartup(MAKEWORD(2, 2), &ignored);
    const SOCKET socket = ::socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    const char* port = std::getenv("LUMARIN_OUTSIDE_PORT");
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<u_short>(port != nullptr ? std::atoi(port) : 0));
    connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    const std::string request = line + '\0';
    send(socket, request.data(), static_cast<int>(request.size()), 0);
    channel_ = static_cast<std::intptr_t>(socket);
}

Command::~Command() { closesocket(static_cast<SOCKET>(channel_)); }

std::string Command::ReadOutput(bool untilLineEnd) {
    std::string output;
    for (char byte = 0; recv(static_cast<SOCKET>(channel_), &byte, 1, 0) == 1 && byte != '\0' &&
                        !(untilLineEnd && byte == '\n');)
        output += byte;
    return output;
}

std::string Command::ReadLine() { return ReadOutput(true); }

std::string Command::ReadAll(int& exitCode) {
    std::string output = ReadOutput(false);
    const std::string code = ReadOutput(false);
    exitCode = code.empty() ? -1 : std::atoi(code.c_str());
    return output;
}

}  // namespace lumarin::testing
