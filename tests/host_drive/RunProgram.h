#pragma once

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <vector>

namespace host::testing {

/// What a run of the host program left behind.
struct ProgramRun {
    int exitCode = -1;
    std::vector<QJsonValue> answers;  ///< one a line of standard output
    QString output;
    QString errors;

    QJsonArray Rows(std::size_t answer) const { return answers.at(answer)["rows"].toArray(); }
    std::string Text(std::size_t answer) const { return answers.at(answer)["text"].toString().toStdString(); }
    bool IsEnabled(std::size_t answer) const { return answers.at(answer)["enabled"].toBool(); }
};

/// Runs the built program on the offscreen platform with `script` on its standard input.
ProgramRun RunProgram(const QStringList& arguments, const QString& script = {});

/// Runs the program on a data folder of its own.
class ProgramTest : public ::testing::Test {
protected:
    ProgramRun Drive(const QStringList& commands, QStringList options = {}) const {
        options += {"--data", folder.filePath("data"), "--drive", "-"};
        return RunProgram(options, commands.join('\n') + '\n');
    }
    std::string Path(const QString& name) const { return folder.filePath(name).toStdString(); }

    QTemporaryDir folder;
};

}  // namespace host::testing
