#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>

#include <vector>

namespace host::testing {

/// What a run of the host program left behind.
struct ProgramRun {
    int exitCode = -1;
    std::vector<QJsonValue> answers;  ///< one a line of standard output
    QString output;
    QString errors;
};

/// Runs the built program on the offscreen platform with `script` on its standard input.
ProgramRun RunProgram(const QStringList& arguments, const QString& script = {});

}  // namespace host::testing
