#pragma once

#include <cstdint>
#include <string>

namespace lumarin {

/// A number of bytes for people: "" for none, "812", "2KB", "3MB", rounded up.
std::string SizeText(std::int64_t bytes);

}  // namespace lumarin
