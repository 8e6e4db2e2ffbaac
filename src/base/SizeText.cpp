#include "base/SizeText.h"

namespace lumarin {

namespace {
constexpr std::int64_t Kilobyte = 1024;
/// A thousand kilobytes, on purpose: 1000KB is followed by 1MB, not by 1024KB.
constexpr std::int64_t Megabyte = 1000 * Kilobyte;

std::string InUnits(std::int64_t bytes, std::int64_t unit, const char* name) {
    return std::to_string(bytes / unit + (bytes % unit != 0 ? 1 : 0)) + name;
}
}  // namespace

std::string SizeText(std::int64_t bytes) {
    if (bytes <= 0) return {};
    if (bytes < Kilobyte) return std::to_string(bytes);
    return bytes < Megabyte ? InUnits(bytes, Kilobyte, "KB") : InUnits(bytes, Megabyte, "MB");
}

}  // namespace lumarin
