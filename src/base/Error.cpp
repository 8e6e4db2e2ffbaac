#include "base/Error.h"

namespace lumarin {

namespace {
// The platform's numbers for these two kinds of failure.
constexpr std::int32_t SubscriptOutOfRange = 9;
constexpr std::int32_t FileAccessError = 75;
}  // namespace

IndexError::IndexError(std::string source, long long index, const std::string& what)
    : Error(SubscriptOutOfRange, std::move(source),
            "Subscript out of range: " + std::to_string(index) + (what.empty() ? "" : ", " + what)) {}

FileError::FileError(const std::string& operation, const std::string& path, const std::string& reason)
    : Error(FileAccessError, "files", "Cannot " + operation + " \"" + path + "\": " + reason) {}

}  // namespace lumarin
