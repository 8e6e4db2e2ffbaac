#pragma once

#include "forms/Desktop.h"
#include "platform/qt/Owner.h"

namespace lumarin::qt {

/// Shows the message and returns the button.
Answer RunMessageBox(const Message& message, const Owner& owner);

}  // namespace lumarin::qt
