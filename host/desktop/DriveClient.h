#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>

#include <functional>
#include <stdexcept>

#include "host/drive/Driver.h"

namespace host {

/// The demo came to something that is not as it should be.
class DemoFailure : public std::runtime_error {
public:
    explicit DemoFailure(const QString& what) : std::runtime_error(what.toStdString()) {}
};

/// Gives a driver its commands from another thread and waits for the answers, so that a story can be told
/// in sequence while the windows live. Any thread but the driver's.
class DriveClient {
public:
    explicit DriveClient(Driver& driver) : driver_(driver) {}

    /// Throws DemoFailure when the command cannot be done.
    QJsonValue Do(const QString& command);
    /// Several commands without a pause between them, for what passes quickly. The last one's answer.
    QJsonValue DoAll(const QStringList& commands);
    /// The object that a "get" command answers with.
    QJsonObject Get(const QString& target) { return Do("get " + target).toObject(); }
    /// Runs something on the driver's thread.
    void OnUserInterface(const std::function<void()>& work);

private:
    Driver& driver_;
};

}  // namespace host
