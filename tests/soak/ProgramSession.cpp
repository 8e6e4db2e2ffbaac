#include "soak/ProgramSession.h"

#include <unistd.h>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace host::testing {

namespace {

constexpr int Patience = 60000;

[[noreturn]] void Fail(const QString& reason) { throw std::runtime_error(reason.toStdString()); }

}  // namespace

ProgramSession::ProgramSession(const QString& program, const QStringList& arguments) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(program, arguments + QStringList{"--drive", "-"});
    if (!process_.waitForStarted()) Fail("cannot start " + program);
}

QByteArray ProgramSession::Ask(const QString& command) {
    process_.write(command.toUtf8() + '\n');
    while (!process_.canReadLine())
        if (!process_.waitForReadyRead(Patience)) Fail("no answer to " + command);
    const QByteArray answer = process_.readLine();
    if (answer.startsWith("{\"error\"")) Fail(command + ": " + answer + Ask("message"));
    return answer;
}

void ProgramSession::Step(const std::string& kind, const QStringList& commands) {
    const auto start = std::chrono::steady_clock::now();
    for (const QString& command : commands) Ask(command);
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    times_[kind].push_back(taken.count());
}

Holdings ProgramSession::Held() const {
    const std::string folder = "/proc/" + std::to_string(process_.processId());
    long size = 0, resident = 0;
    std::ifstream(folder + "/statm") >> size >> resident;
    const std::filesystem::directory_iterator descriptors(folder + "/fd");
    return {static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / 1'048'576,
            static_cast<int>(std::distance(begin(descriptors), end(descriptors)))};
}

int ProgramSession::Quit() {
    Ask("quit");
    if (!process_.waitForFinished(Patience)) Fail("the program does not end");
    return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
}

}  // namespace host::testing
