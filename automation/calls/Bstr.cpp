#include "automation/calls/Bstr.h"

#include "base/Text.h"

#include <algorithm>
#include <new>

namespace lumarin::automation {

static_assert(sizeof(OLECHAR) == sizeof(char16_t));

namespace {

/// Most texts are plain, and then one unit is one byte: nothing is converted on the way.
template <class Text>
bool IsPlain(const Text& text) {
    return std::all_of(text.begin(), text.end(),
                       [](auto unit) { return static_cast<unsigned>(unit) < 0x80; });
}

}  // namespace

std::string FromBstr(BSTR text) {
    std::string utf8;
    Assign(utf8, text);
    return utf8;
}

void Assign(std::string& utf8, BSTR text) {
    const std::u16string_view units(reinterpret_cast<const char16_t*>(text), SysStringLen(text));
    if (!IsPlain(units)) {
        utf8 = text::FromUtf16(units);
        return;
    }
    utf8.resize(units.size());
    std::transform(units.begin(), units.end(), utf8.begin(),
                   [](char16_t unit) { return static_cast<char>(unit); });
}

Bstr::Bstr(std::string_view utf8) {
    if (IsPlain(utf8)) {
        text_ = SysAllocStringLen(nullptr, static_cast<UINT>(utf8.size()));
        if (text_ != nullptr) std::copy(utf8.begin(), utf8.end(), text_);
    } else {
        const std::u16string wide = text::ToUtf16(utf8);
        text_ =
            SysAllocStringLen(reinterpret_cast<const OLECHAR*>(wide.data()), static_cast<UINT>(wide.size()));
    }
    if (text_ == nullptr) throw std::bad_alloc();
}

}  // namespace lumarin::automation
