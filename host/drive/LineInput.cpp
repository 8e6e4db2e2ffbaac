#include "host/drive/LineInput.h"

#include <QCoreApplication>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QTimer>

#include <unistd.h>
#include <algorithm>
#include <cstdio>
#include <thread>
#include <utility>

#include "host/drive/DriveError.h"
#include "host/drive/DriveLine.h"

namespace host {

namespace {

QByteArray Json(const QJsonValue& value) {
    if (value.isObject()) return QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact);
    if (value.isArray()) return QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact);
    return "null";
}

void Print(const QJsonValue& answer) {
    std::fputs((Json(answer) + '\n').constData(), stdout);
    std::fflush(stdout);
}

}  // namespace

LineInput::LineInput(Driver& driver, const QString& source, std::function<void()> ended)
    : driver_(driver), ended_(std::move(ended)) {
    if (source != "-") {
        QFile file(source);
        if (!file.open(QIODevice::ReadOnly))
            throw DriveError("Cannot read \"" + source + "\": " + file.errorString());
        buffer_ = file.readAll();
        atEnd_ = true;
    }
    // What the program does at its start comes before the first command.
    QTimer::singleShot(0, this, [this] { Begin(); });
}

void LineInput::Begin() {
    if (atEnd_) return Next();
    // A thread, because not every system can wait for input and windows at once. It may wait for ever: it
    // holds nothing, and ends with the program.
    std::thread([reader = QPointer(this)] {
        char bytes[4096];
        for (auto count = ::read(STDIN_FILENO, bytes, sizeof bytes);;
             count = ::read(STDIN_FILENO, bytes, sizeof bytes)) {
            const QByteArray read(bytes, std::max<qsizetype>(count, 0));
            QMetaObject::invokeMethod(
                qApp,
                [reader, read] {
                    if (reader) reader->Take(read);
                },
                Qt::QueuedConnection);
            if (read.isEmpty()) return;
        }
    }).detach();
}

/// None means the end.
void LineInput::Take(const QByteArray& bytes) {
    buffer_.append(bytes);
    atEnd_ = bytes.isEmpty();
    Next();
}

bool LineInput::TakeLine(QString& line) {
    while (true) {
        qsizetype end = buffer_.indexOf('\n');
        if (end < 0) {
            if (!atEnd_ || buffer_.isEmpty()) return false;
            end = buffer_.size();
        }
        line = QString::fromUtf8(buffer_.left(end)).trimmed();
        buffer_.remove(0, end + 1);
        if (!IsDriveComment(line)) return true;
    }
}

void LineInput::Next() {
    if (busy_ || quit_) return;
    QString line;
    if (!TakeLine(line)) {
        if (atEnd_) End();
        return;
    }
    if (line == "quit") {
        Print(QJsonObject{{"ok", true}});
        return End();
    }
    busy_ = true;
    driver_.Submit(line, [this](const QJsonValue& answer) {
        Print(answer);
        busy_ = false;
        QMetaObject::invokeMethod(
            this, [this] { Next(); }, Qt::QueuedConnection);
    });
}

void LineInput::End() {
    quit_ = true;
    driver_.Quit(ended_);
}

bool LineInput::AnswerTheRest() {
    if (quit_) return true;
    atEnd_ = true;
    QString line;
    bool any = busy_;
    if (busy_) Print(QJsonObject{{"error", "The program has ended"}});
    while (TakeLine(line) && line != "quit") {
        any = true;
        Print(QJsonObject{{"error", "The program has ended"}});
    }
    return !any;
}

}  // namespace host
