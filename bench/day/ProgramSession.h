#pragma once

#include <QProcess>

#include <map>
#include <string>
#include <vector>

#include "bench/day/Holdings.h"

namespace bench {

/// The program, driven command by command. What goes wrong throws std::runtime_error.
class ProgramSession {
public:
    ProgramSession(const QString& program, const QStringList& arguments);

    /// A command's answer.
    QByteArray Ask(const QString& command);
    void Ask(const QStringList& commands) {
        for (const QString& command : commands) Ask(command);
    }
    /// Does the commands and counts their time together as one step of this kind.
    void Step(const std::string& kind, const QStringList& commands);
    Holdings Held() const { return HeldBy(process_.processId()); }
    void End();
    /// Kills it this long after it was given the commands, or as soon as it has answered all; says whether it
    /// has.
    bool KillDuring(const QStringList& commands, int milliseconds);

    std::map<std::string, std::vector<double>> times;  ///< milliseconds of every step, by kind, in order

private:
    QProcess process_;
};

}  // namespace bench
