#pragma once

#include <string>

namespace lumarin {

/// "1 photo", "2 photos".
inline std::string Counted(int count, const std::string& thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

}  // namespace lumarin
