#include "bench/day/ProgramSession.h"

#include <QDeadlineTimer>

#include <chrono>
#include <stdexcept>

namespace bench {

namespace {

constexpr int Forever = -1;

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
        if (!process_.waitForReadyRead(Forever)) Fail("no answer to " + command);
    QByteArray answer = process_.readLine();
    if (answer.startsWith("{\"error\"")) Fail(command + ": " + answer + Ask("message"));
    return answer;
}

void ProgramSession::Step(const std::string& kind, const QStringList& commands) {
    const auto start = std::chrono::steady_clock::now();
    Ask(commands);
    const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
    times[kind].push_back(taken.count());
}

void ProgramSession::End() {
    Ask("quit");
    process_.waitForFinished(Forever);
    if (process_.exitStatus() != QProcess::NormalExit || process_.exitCode() != 0)
        Fail("the program ended badly");
}

bool ProgramSession::KillDuring(const QStringList& commands, int milliseconds) {
    process_.write(commands.join('\n').toUtf8() + '\n');
    qsizetype answers = 0;
    for (const QDeadlineTimer end(milliseconds); answers < commands.size() && !end.hasExpired();) {
        process_.waitForReadyRead(static_cast<int>(end.remainingTime()));
        for (; process_.canReadLine(); ++answers) process_.readLine();
    }
    process_.kill();
    process_.waitForFinished(Forever);
    return answers == commands.size();
}

}  // namespace bench
