#pragma once

#include <sane/sane.h>

namespace lumarin::sane {

/// Throws ScannerError, in words for the user, unless the status is good.
void CheckSane(SANE_Status status);

}  // namespace lumarin::sane
