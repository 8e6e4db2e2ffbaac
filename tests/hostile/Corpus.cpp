#include "hostile/Corpus.h"

#include <random>

#include "base/Text.h"
#include "platform_vips/Samples.h"

namespace lumarin::hostile {

namespace {

using samples::Encode;
using samples::VImage;
using namespace std::string_literals;

std::string Noise(std::size_t size, unsigned seed) {
    std::minstd_rand random(seed);
    std::string bytes(size, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random() >> 8);
    return bytes;
}

std::string With(std::string bytes, std::size_t at, const std::string& put) {
    return bytes.replace(at, put.size(), put);
}

/// A JPEG with a further segment at its start.
std::string WithSegment(std::string jpeg, char marker, const std::string& content) {
    const std::size_t length = content.size() + 2;
    return jpeg.insert(
        2, std::string{'\xFF', marker, static_cast<char>(length >> 8), static_cast<char>(length)} + content);
}

std::string Exif(int orientation) {
    const char value = static_cast<char>(orientation);
    return "Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0"s + value + std::string(6, '\0');
}

}  // namespace

std::vector<Sample> Damaged(const std::string& name, const std::string& bytes) {
    std::vector<Sample> damaged;
    const std::size_t size = bytes.size();
    for (const std::size_t kept : {size_t{0}, size_t{1}, size_t{2}, size_t{8}, size_t{20}, size_t{33},
                                   size / 4, size / 2, size * 9 / 10, size - 2, size - 1})
        if (kept < size)
            damaged.emplace_back(name + " cut to " + std::to_string(kept), bytes.substr(0, kept));
    damaged.emplace_back(name + " with more behind it", bytes + Noise(5000, 1));
    damaged.emplace_back(name + " twice", bytes + bytes);
    for (unsigned seed = 1; seed <= 12; ++seed) {
        std::minstd_rand random(seed);
        std::string changed = bytes;
        // The first half of them in the header, where it hurts most.
        const std::size_t reach = seed % 2 == 0 ? size : std::min<std::size_t>(size, 64);
        for (int i = 0; i < 4; ++i) changed[random() % reach] = static_cast<char>(random() >> 8);
        damaged.emplace_back(name + " changed " + std::to_string(seed), std::move(changed));
    }
    return damaged;
}

std::vector<Sample> Pictures() {
    const VImage drawn = samples::Detailed(160, 100);
    const VImage grey = drawn.extract_band(0);
    std::vector<Sample> pictures;
    for (const char* format : {".jpg", ".png", ".webp", ".gif", ".tif", ".jpg[interlace]", ".png[palette]"})
        for (Sample& sample : Damaged(format, Encode(drawn, format))) pictures.push_back(std::move(sample));

    const std::string jpeg = Encode(drawn, ".jpg"), png = Encode(drawn, ".png"), gif = Encode(drawn, ".gif");
    const std::size_t frame = jpeg.find("\xFF\xC0");
    const std::string huge = "\xFF\xFF\xFF\xFF", none(4, '\0');
    VImage pages = VImage::arrayjoin({drawn, drawn.invert()}, VImage::option()->set("across", 1));
    pages.set("page-height", 100);
    const std::vector<Sample> strange = {
        {"nothing but noise", Noise(4000, 7)},
        {"text", "This is not a picture.\n"},
        {"JPEG of 65535 x 65535", With(jpeg, frame + 5, huge)},
        {"JPEG of 0 x 0", With(jpeg, frame + 5, none)},
        {"PNG of 2 billion pixels a side", With(png, 16, "\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF")},
        {"PNG with a wrong check sum", With(png, 29, "abcd")},
        {"GIF of 65535 x 65535", With(gif, 6, huge)},
        {"1 x 1", Encode(drawn.crop(0, 0, 1, 1), ".png")},
        {"1 x 20000", Encode(samples::Plain(1, 20000, {9, 99, 200}), ".png")},
        {"20000 x 1", Encode(samples::Plain(20000, 1, {9, 99, 200}), ".jpg")},
        {"grey", Encode(grey, ".jpg")},
        {"CMYK", Encode(drawn.colourspace(VIPS_INTERPRETATION_CMYK), ".jpg")},
        {"16 bits", Encode((drawn.cast(VIPS_FORMAT_USHORT) * 257)
                               .cast(VIPS_FORMAT_USHORT)
                               .copy(VImage::option()->set("interpretation", VIPS_INTERPRETATION_RGB16)),
                           ".png")},
        {"floating point", Encode(drawn.cast(VIPS_FORMAT_FLOAT), ".tif")},
        {"1 bit", Encode(grey, ".png[bitdepth=1]")},
        {"palette with alpha", Encode(drawn.bandjoin(grey), ".png[palette]")},
        {"see-through", Encode(drawn.bandjoin(0), ".webp")},
        {"animated GIF", Encode(pages, ".gif")},
        {"animated WebP", Encode(pages, ".webp")},
        {"garbage in Exif", WithSegment(jpeg, '\xE1', std::string("Exif\0\0", 6) + Noise(900, 3))},
        {"an Exif that points at itself",
         WithSegment(jpeg, '\xE1',
                     std::string("Exif\0\0II*\0\x08\0\0\0\xFF\xFF\x69\x87\x04\0\x01\0\0\0\x08\0\0\0", 28))},
        {"a garbage profile",
         WithSegment(jpeg, '\xE2', std::string("ICC_PROFILE\0\x01\x01", 14) + Noise(900, 4))},
        {"part 2 of 200 of a profile",
         WithSegment(jpeg, '\xE2', std::string("ICC_PROFILE\0\x02\xC8", 14) + Noise(900, 5))},
    };
    pictures.insert(pictures.end(), strange.begin(), strange.end());
    for (const int orientation : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 255})
        pictures.emplace_back("orientation " + std::to_string(orientation),
                              WithSegment(jpeg, '\xE1', Exif(orientation)));
    return pictures;
}

std::vector<std::string> Names() {
    std::vector<std::string> names = text::Split(
        "CON.jpg~nul~COM1.jpg~-rf~--help.jpg~trailing. ~two..dots..jpg~ leading.jpg~.jpg~...~"
        "it's.jpg~\"quoted\".jpg~line\nbreak.jpg~tab\t.jpg~back\\slash.jpg~C:\\Photos\\x.jpg~"
        "%s%n%x.jpg~[1]*?.jpg~x[page=9999].jpg~x.jpg[shrink=0]~x.png:2,3~$(touch x).jpg~a;b|c&d.jpg~"
        "Haus \u00FCber \u65E5\u672C\u8A9E \U0001F3E0.jpg~\xFF\xFE\xC3.jpg~\u202Egpj.exe.jpg~"
        "100123.jpg~100123 'x'; --.jpg~100123\nx.jpg~100124\xFF.jpg~99999999999999999999 a.jpg~"
        "000000 a.jpg",
        '~');
    names.push_back(std::string(251, 'n') + ".jpg");
    names.push_back("100123" + std::string(245, 'n') + ".jpg");
    return names;
}

std::vector<std::string> Texts() {
    std::vector<std::string> inputs = text::Split(
        "x' OR '1'='1~x'; DROP TABLE Listings; --~'~''~\\'~\\~[~]~x]['~[']~%~_~*~?~#~-~--~x--~/*~"
        "*/ OR 1=1~;~\"~\" OR \"\"=\"~`~\n' OR 1=1~\r~\t~?1~:a~@a~$a~x' + (SELECT 1) + '~"
        "' UNION SELECT 1 --~100123 OR 1=1~100123;~100123--~1e3~0x10~-1~+1~1,000~100123,100124~.5~"
        "(1)~ 100123 ~100123\n~Zo\u00EB~\u042D'\u0127\u022A~\uFF07 OR 1=1~\U00026C00'~\xC3' OR 1=1~"
        "\xED\xA1\x9B'~\xFF\xFE'~NULL~x\n--",
        '~');
    inputs.emplace_back("x\0' OR 1=1", 10);
    inputs.emplace_back(100'000, '\'');
    return inputs;
}

}  // namespace lumarin::hostile
