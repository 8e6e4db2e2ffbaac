#pragma once

#include <QJsonValue>
#include <QString>

#include <functional>

namespace host {

/// What one command comes down to. A reading step is done at once in `read`; an acting step runs `act`,
/// which may stay in a modal window for long. Both may throw DriveError.
struct Step {
    /// The window that the command is about: the step begins when the program is not working on it. "" for
    /// a command about no window.
    QString window{};
    /// The step is about what waits for the user: it begins when something does, or when the program is idle.
    bool untilIdle = false;
    /// What else must hold before the step begins; empty for nothing.
    std::function<bool()> ready{};
    /// How long the step waits to begin, in milliseconds; then it begins all the same.
    int patience = 120000;

    std::function<QJsonValue()> read{};
    std::function<void()> act{};
    /// Called while `act` runs whenever windows came or went; empty for nothing.
    std::function<void()> meanwhile{};
    /// The answer when `act` has returned; {"ok":true} without it. A step with an answer of its own is
    /// never answered earlier.
    std::function<QJsonValue()> result{};
};

}  // namespace host
