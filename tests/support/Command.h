#pragma once

#include <cstdint>
#include <string>

namespace lumarin::testing {

/// A command line of the build machine's shell, run as long as this lives. The tools that judge the system's
/// files from outside are programs of that machine, also where the test itself is a program for another
/// system: there outside.py runs them, and turns the test's paths into the machine's.
class Command {
public:
    explicit Command(const std::string& line);
    /// Kills it when it still runs.
    ~Command();
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;

    /// The next line that it prints, without its end; "" when there is none.
    std::string ReadLine();
    /// The rest of what it prints, and its exit code, 0 when it went well.
    std::string ReadAll(int& exitCode);

private:
    std::string ReadOutput(bool untilLineEnd);

    std::intptr_t channel_ = 0;  // a stream, a socket
    int process_ = 0;
};

/// What a command prints; its failure is a failure of the test.
std::string OutputOf(const std::string& line);

}  // namespace lumarin::testing
