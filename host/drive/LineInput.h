#pragma once

#include <QByteArray>

#include <functional>

#include "host/drive/Driver.h"

namespace host {

/// Feeds a driver from a file or from standard input ("-") and prints one line of JSON for each command on
/// standard output, at once. Blank lines and lines that start with "#" are passed over. "quit" and the end
/// of the input end the program. Standard input is read as it comes, without holding up the windows.
class LineInput : public QObject {
public:
    /// Throws DriveError when the file cannot be read. `ended` is called once, after everything that waits
    /// for the user was dismissed.
    LineInput(Driver& driver, const QString& source, std::function<void()> ended);

    /// For commands that are left when the program has ended without being asked to: answers each with an
    /// error. False when there were any.
    bool AnswerTheRest();

private:
    void Begin();
    void Take(const QByteArray& bytes);
    void Next();
    bool TakeLine(QString& line);
    void End();

    Driver& driver_;
    std::function<void()> ended_;
    QByteArray buffer_;
    bool atEnd_ = false;
    bool busy_ = false;
    bool quit_ = false;
};

}  // namespace host
