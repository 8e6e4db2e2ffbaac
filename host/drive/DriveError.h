#pragma once

#include <QString>

#include <stdexcept>

namespace host {

/// A command that cannot be done; the text becomes the command's answer.
class DriveError : public std::runtime_error {
public:
    explicit DriveError(const QString& reason) : std::runtime_error(reason.toStdString()) {}
    QString Reason() const { return QString::fromUtf8(what()); }
};

}  // namespace host
