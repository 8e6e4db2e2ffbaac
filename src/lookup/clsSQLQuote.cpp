#include "lookup/clsSQLQuote.h"

#include "base/Text.h"

namespace lumarin {

clsSQLQuote::clsSQLQuote(const EngineVersion& engine) {
    EngineVersion::Version version;
    if (!engine.FileVersion(engine.SystemFolder() + "\\" + "MsJet40.dll", version)) return;
    // Deliberately not one comparison of the whole number: only engines of the 4.0 line that carry the
    // change are trusted with a bare dash; brackets around it never hurt.
    jetHandlesDash_ = version.high >= 0x00040000 && version.low >= 0x0E820007;
}

std::string clsSQLQuote::QuoteLiteral(std::string_view text) const {
    return text::ReplaceAll(std::string(text), "'", "''");
}

std::string clsSQLQuote::QuoteLike(std::string_view text) const {
    std::u16string quoted;
    for (const char16_t unit : text::ToUtf16(text)) {
        // Only the low byte counts, deliberately: the engine matches patterns in the single-byte code page.
        switch (static_cast<char>(unit & 0xFF)) {
            case '-':
                if (jetHandlesDash_) {
                    quoted += unit;
                    break;
                }
                [[fallthrough]];
            case '_':
            case '%':
            case '*':
            case '?':
            case '[':
            case '#':
                quoted += u'[';
                quoted += unit;
                quoted += u']';
                break;
            case '\'':
                quoted.append(2, unit);
                break;
            default:
                quoted += unit;
        }
    }
    return text::FromUtf16(quoted);
}

}  // namespace lumarin
