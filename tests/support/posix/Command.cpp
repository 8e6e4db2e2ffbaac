#include "support/Command.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

namespace lumarin::testing {

namespace {

std::FILE* Stream(std::intptr_t channel) { return reinterpret_cast<std::FILE*>(channel); }

}  // namespace

Command::Command(const std::string& line) {
    // The shell says its process before it becomes the command, or runs it.
    channel_ = reinterpret_cast<std::intptr_t>(popen(("echo $$\n" + line).c_str(), "r"));
    process_ = std::atoi(ReadLine().c_str());
}

Command::~Command() {
    if (channel_ == 0) return;
    if (process_ > 0) kill(process_, SIGKILL);
    pclose(Stream(channel_));
}

std::string Command::ReadOutput(bool untilLineEnd) {
    std::string output;
    for (int byte = std::fgetc(Stream(channel_)); byte != EOF && !(untilLineEnd && byte == '\n');
         byte = std::fgetc(Stream(channel_)))
        output += static_cast<char>(byte);
    return output;
}

std::string Command::ReadLine() { return ReadOutput(true); }

std::string Command::ReadAll(int& exitCode) {
    std::string output = ReadOutput(false);
    exitCode = pclose(Stream(channel_));
    channel_ = 0;
    return output;
}

}  // namespace lumarin::testing
