#include "host_drive/RunProgram.h"

#include <QJsonDocument>
#include <QProcess>

namespace host::testing {

namespace {

constexpr int Patience = 120000;

QJsonValue Parsed(const QByteArray& line) {
    // A document cannot be a bare null, so the line goes into a list.
    return QJsonDocument::fromJson('[' + line + ']').array().at(0);
}

}  // namespace

ProgramRun RunProgram(const QStringList& arguments, const QString& script) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    process.setProcessEnvironment(environment);
    process.start(HOST_PROGRAM, arguments);
    process.write(script.toUtf8());
    process.closeWriteChannel();
    ProgramRun run;
    if (!process.waitForFinished(Patience)) {
        process.kill();
        process.waitForFinished();
    } else if (process.exitStatus() == QProcess::NormalExit) {
        run.exitCode = process.exitCode();
    }
    const QByteArray output = process.readAllStandardOutput();
    for (const QByteArray& line : output.split('\n'))
        if (!line.isEmpty()) run.answers.push_back(Parsed(line));
    run.output = QString::fromUtf8(output);
    run.errors = QString::fromUtf8(process.readAllStandardError());
    return run;
}

}  // namespace host::testing
