#include "host/server/Manifest.h"

#include "base/Text.h"
#include "host/server/Refusal.h"

#include <algorithm>

namespace host {

namespace {

constexpr std::size_t LongestCode = 16;

class ByteReader {
public:
    explicit ByteReader(std::string_view bytes) : bytes_(bytes) {}

    std::int32_t Integer() { return static_cast<std::int32_t>(LittleEndian(4)); }
    std::string_view Text() { return Take(LittleEndian(2)); }

private:
    std::uint32_t LittleEndian(std::size_t count) {
        const std::string_view taken = Take(count);
        std::uint32_t value = 0;
        for (std::size_t i = count; i-- > 0;) value = value << 8 | static_cast<std::uint8_t>(taken[i]);
        return value;
    }
    std::string_view Take(std::size_t count) {
        if (bytes_.size() < count) throw Refusal("A manifest is cut short");
        const std::string_view taken = bytes_.substr(0, count);
        bytes_.remove_prefix(count);
        return taken;
    }

    std::string_view bytes_;
};

/// Codes are kept in one text, joined by commas.
std::string CheckedCode(std::string_view code) {
    const bool plain = std::none_of(code.begin(), code.end(),
                                    [](char c) { return c == ',' || static_cast<std::uint8_t>(c) < 0x20; });
    if (!plain || code.size() > LongestCode) throw Refusal("A manifest holds an impossible description code");
    return lumarin::text::FromCodePage(code);
}

int PublishedIndex(std::string_view letter) {
    if (letter.empty()) return ManifestPhoto::NoneYet;
    if (letter.size() != 1 || letter[0] < 'a' || letter[0] > 'z')
        throw Refusal("A manifest names a published photo by something else than a letter");
    return letter[0] - 'a';
}

}  // namespace

Manifest ReadManifest(std::string_view bytes) {
    ByteReader reader(bytes);
    Manifest manifest{.listing = reader.Integer(), .photos = {}};
    const std::int32_t count = reader.Integer();
    if (manifest.listing <= 0)
        throw Refusal("A manifest has the listing number " + std::to_string(manifest.listing));
    if (count < 0 || count > static_cast<std::int32_t>(MostPhotos))
        throw Refusal("A manifest has " + std::to_string(count) + " photos");
    constexpr int AddressParts = 3;
    for (int part = 0; part < AddressParts; ++part) reader.Text();
    for (std::size_t entry = 0; entry < MostPhotos; ++entry) {
        const std::string_view code = reader.Text();
        reader.Text();  // The description's text is only for the sender.
        const std::string_view letter = reader.Text();
        if (entry >= static_cast<std::size_t>(count)) continue;
        manifest.photos.push_back({CheckedCode(code), PublishedIndex(letter)});
    }
    return manifest;
}

char PhotoLetter(std::size_t photo) { return static_cast<char>('a' + photo); }

}  // namespace host
