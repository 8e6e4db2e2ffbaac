#include "host/drive/DriveLine.h"

#include "host/drive/DriveError.h"

namespace host {

namespace {

QString QuotedWord(const QString& line, qsizetype& position) {
    QString word;
    for (++position; position < line.size(); ++position) {
        QChar next = line[position];
        if (next == '"') {
            ++position;
            return word;
        }
        const bool escapes = next == '\\' && position + 1 < line.size() &&
                             (line[position + 1] == '"' || line[position + 1] == '\\');
        if (escapes) next = line[++position];
        word += next;
    }
    throw DriveError("A quote is not closed");
}

QString PlainWord(const QString& line, qsizetype& position) {
    const qsizetype start = position;
    while (position < line.size() && !line[position].isSpace() && line[position] != '"') ++position;
    return line.mid(start, position - start);
}

}  // namespace

QStringList SplitDriveLine(const QString& line) {
    QStringList words;
    qsizetype position = 0;
    while (true) {
        while (position < line.size() && line[position].isSpace()) ++position;
        if (position >= line.size()) return words;
        words += line[position] == '"' ? QuotedWord(line, position) : PlainWord(line, position);
        if (position < line.size() && !line[position].isSpace())
            throw DriveError("A quote stands inside a word");
    }
}

bool IsDriveComment(const QString& line) {
    const QString text = line.trimmed();
    return text.isEmpty() || text.startsWith('#');
}

}  // namespace host
