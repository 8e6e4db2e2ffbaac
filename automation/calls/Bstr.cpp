#include "automation/calls/Bstr.h"

#include "base/Text.h"

#include <new>

namespace lumarin::automation {

static_assert(sizeof(OLECHAR) == sizeof(char16_t));

std::string FromBstr(BSTR text) {
    return text::FromUtf16({reinterpret_cast<const char16_t*>(text), SysStringLen(text)});
}

Bstr::Bstr(std::string_view utf8) {
    const std::u16string wide = text::ToUtf16(utf8);
    text_ = SysAllocStringLen(reinterpret_cast<const OLECHAR*>(wide.data()), static_cast<UINT>(wide.size()));
    if (text_ == nullptr) throw std::bad_alloc();
}

}  // namespace lumarin::automation
