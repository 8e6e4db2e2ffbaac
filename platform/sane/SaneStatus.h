#pragma once

#include <sane/sane.h>

namespace lumarin {

/// Throws ScannerError, in words for the user, unless the status is good.
void CheckSane(SANE_Status status);

}  // namespace lumarin
