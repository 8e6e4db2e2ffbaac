#pragma once

#include <QProcess>
#include <QString>

#include <map>
#include <string>
#include <vector>

namespace host::testing {

/// What a running program holds at a moment.
struct Holdings {
    double megabytes = 0;
    int descriptors = 0;
};

/// The program, driven command by command; it says how long each took and what it left held.
class ProgramSession {
public:
    /// Throws std::runtime_error when the program cannot be started, here and in every other function when it
    /// ended, stalled or could not do a command.
    ProgramSession(const QString& program, const QStringList& arguments);

    /// Does the commands and counts their time together as one step of this kind.
    void Step(const std::string& kind, const QStringList& commands);
    /// The answer to one command that is not timed.
    QByteArray Ask(const QString& command);

    Holdings Held() const;
    /// Milliseconds of every step so far, by kind, in order.
    const std::map<std::string, std::vector<double>>& Times() const { return times_; }
    int Quit();

private:
    QProcess process_;
    std::map<std::string, std::vector<double>> times_;
};

}  // namespace host::testing
