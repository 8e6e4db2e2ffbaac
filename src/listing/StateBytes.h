#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// How what is saved of a listing is written: integers little-endian, texts as a two-byte length and bytes in
/// the single-byte code page.
namespace lumarin {

/// Throws the Error for saved work that cannot be read.
[[noreturn]] void ThrowUnreadable(const std::string& reason);

/// FNV-1a in four bytes: every change of a single byte gives another text.
std::string CheckOf(std::string_view bytes);

class StateWriter {
public:
    void Integer(std::int32_t value) { Unsigned(static_cast<std::uint32_t>(value), 4); }
    void Unsigned(std::uint32_t value, int byteCount);
    void Text(const std::string& utf8);
    std::string Bytes() { return std::move(bytes_); }

private:
    std::string bytes_;
};

/// Every reading throws as `ThrowUnreadable` does where the bytes end too early.
class StateReader {
public:
    explicit StateReader(std::string_view bytes) : bytes_(bytes) {}

    std::int32_t Integer() { return static_cast<std::int32_t>(Unsigned(4)); }
    std::uint32_t Unsigned(int byteCount);
    std::string Text();
    std::size_t Position() const { return at_; }
    bool AtEnd() const { return at_ == bytes_.size(); }

private:
    std::string_view Take(std::size_t count);

    std::string_view bytes_;
    std::size_t at_ = 0;
};

}  // namespace lumarin
