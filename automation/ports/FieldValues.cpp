#include "automation/ports/FieldValues.h"

#include <cstdint>

namespace lumarin::automation {

namespace {

FieldValue Number(std::int64_t number) { return FieldValue(number); }

/// Fractions and what is too large for a whole number stay texts.
FieldValue WholeOrText(const VARIANT& value) {
    const std::string text = TextOf(value);
    const bool whole = !text.empty() && text.size() <= 18 &&
                       text.find_first_not_of("0123456789", text[0] == '-' ? 1 : 0) == std::string::npos;
    return whole ? Number(std::stoll(text)) : FieldValue(text);
}

}  // namespace

FieldValue FieldOf(const VARIANT& value) {
    switch (value.vt) {
        case VT_EMPTY:
        case VT_NULL:
            return {};
        case VT_BSTR:
            return FieldValue(FromBstr(value.bstrVal));
        case VT_I1:
            return Number(static_cast<signed char>(value.cVal));
        case VT_UI1:
            return Number(value.bVal);
        case VT_I2:
            return Number(value.iVal);
        case VT_UI2:
            return Number(value.uiVal);
        case VT_INT:
        case VT_I4:
            return Number(value.lVal);
        case VT_UINT:
        case VT_UI4:
            return Number(value.ulVal);
        case VT_I8:
            return Number(value.llVal);
        case VT_BOOL:
            return Number(value.boolVal);
        case VT_UI8:
        case VT_R4:
        case VT_R8:
        case VT_CY:
        case VT_DECIMAL:
            return WholeOrText(value);
        default:
            break;
    }
    if ((value.vt & VT_BYREF) != 0) return FieldOf(Variant(value).Get());
    return FieldValue(TextOf(value));
}

}  // namespace lumarin::automation
