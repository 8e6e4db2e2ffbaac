#pragma once

#include <string>
#include <vector>

class QEvent;

namespace lumarin::qt {

/// Drags of files over a widget that accepts drops. True when `event` belongs to a drag; dropped files are
/// then in `dropped`. Anything may be dropped, so that a person is told why it cannot be used.
bool HandleFileDrag(QEvent& event, std::vector<std::string>& dropped);

}  // namespace lumarin::qt
