#pragma once

#include <string>

#include "platform/windows/twain/Twain.h"

namespace lumarin::twain {

/// A condition code in words for the user.
std::string ConditionText(TW_UINT16 code);

}  // namespace lumarin::twain
