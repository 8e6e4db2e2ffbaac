#pragma once

#include <string>
#include <vector>

class QEvent;

namespace lumarin::qt {

/// Drags of files over a widget that accepts drops. True when `event` belongs to a drag; dropped files are
/// then in `dropped`. A drag without files is refused.
bool HandleFileDrag(QEvent& event, std::vector<std::string>& dropped);

}  // namespace lumarin::qt
