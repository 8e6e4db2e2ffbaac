#include "listing/StateBytes.h"

#include "base/Error.h"
#include "base/Text.h"

namespace lumarin {

namespace {
constexpr std::size_t LongestText = 0xFFFF;
}

void ThrowUnreadable(const std::string& reason) {
    throw Error(ApplicationErrorNumber, "state file",
                "The saved state of a listing cannot be read: " + reason);
}

std::string CheckOf(std::string_view bytes) {
    std::uint32_t hash = 0x811C9DC5U;
    for (const char c : bytes) hash = (hash ^ static_cast<unsigned char>(c)) * 0x01000193U;
    StateWriter check;
    check.Unsigned(hash, 4);
    return check.Bytes();
}

void StateWriter::Unsigned(std::uint32_t value, int byteCount) {
    for (int i = 0; i < byteCount; ++i) bytes_ += static_cast<char>((value >> (8 * i)) & 0xFF);
}

void StateWriter::Text(const std::string& utf8) {
    const std::string encoded = text::ToCodePage(utf8).substr(0, LongestText);
    Unsigned(static_cast<std::uint32_t>(encoded.size()), 2);
    bytes_ += encoded;
}

std::uint32_t StateReader::Unsigned(int byteCount) {
    std::uint32_t value = 0;
    int shift = 0;
    for (const char c : Take(static_cast<std::size_t>(byteCount))) {
        value |= static_cast<std::uint32_t>(static_cast<unsigned char>(c)) << shift;
        shift += 8;
    }
    return value;
}

std::string StateReader::Text() { return text::FromCodePage(Take(Unsigned(2))); }

std::string_view StateReader::Take(std::size_t count) {
    if (count > bytes_.size() - at_)
        ThrowUnreadable("it is cut short at byte " + std::to_string(bytes_.size()));
    const std::string_view taken = bytes_.substr(at_, count);
    at_ += count;
    return taken;
}

}  // namespace lumarin
