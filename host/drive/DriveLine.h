#pragma once

#include <QString>
#include <QStringList>

namespace host {

/// The words of a command line: separated by blanks; a word in double quotes may hold blanks, and \" and
/// \\ in it stand for a quote and a backslash. Throws DriveError for a quote that is not closed or that
/// stands in the middle of a word.
QStringList SplitDriveLine(const QString& line);

/// Whether a line holds no command: it is blank or a comment that starts with "#".
bool IsDriveComment(const QString& line);

}  // namespace host
