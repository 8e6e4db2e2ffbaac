#pragma once

#include "forms/Desktop.h"

class QWidget;

namespace lumarin::qt {

/// Shows the message and returns the button. `owner` may be null.
Answer RunMessageBox(const Message& message, QWidget* owner);

}  // namespace lumarin::qt
