#include "automation/calls/Values.h"

#include "base/Error.h"
#include "base/Text.h"

#include <cstdio>

namespace lumarin::automation {

namespace {

constexpr LCID AnyLanguage = 0x0409;  // US English: a point in numbers

[[noreturn]] void Mismatch(const VARIANT& value, const char* wanted) {
    throw Error(DISP_E_TYPEMISMATCH, "automation",
                std::string("A value of type ") + std::to_string(value.vt) + " is not " + wanted);
}

bool IsNothing(const VARIANT& value) {
    return value.vt == VT_EMPTY || value.vt == VT_NULL || value.vt == VT_ERROR;
}

Variant Changed(const Variant& value, VARTYPE type, const char* wanted) {
    Variant changed;
    auto* from = const_cast<VARIANT*>(&value.Get());  // only read
    if (FAILED(VariantChangeTypeEx(changed.Address(), from, AnyLanguage, VARIANT_ALPHABOOL, type)))
        Mismatch(value.Get(), wanted);
    return changed;
}

std::string DateText(DATE date) {
    SYSTEMTIME time;
    if (!VariantTimeToSystemTime(date, &time)) return {};
    char text[32];
    std::snprintf(text, sizeof text, "%04u-%02u-%02u", time.wYear, time.wMonth, time.wDay);
    if (time.wHour + time.wMinute + time.wSecond == 0) return text;
    char clock[16];
    std::snprintf(clock, sizeof clock, " %02u:%02u:%02u", time.wHour, time.wMinute, time.wSecond);
    return std::string(text) + clock;
}

/// The elements of an array, while it is held.
template <class Element>
class Elements {
public:
    explicit Elements(SAFEARRAY* array) : array_(array) {
        LONG first = 0, last = -1;
        if (array == nullptr || SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetLBound(array, 1, &first)) ||
            FAILED(SafeArrayGetUBound(array, 1, &last)) || FAILED(SafeArrayAccessData(array, &data_)))
            array_ = nullptr;
        else
            count_ = static_cast<std::size_t>(last - first + 1);
    }
    ~Elements() {
        if (array_ != nullptr) SafeArrayUnaccessData(array_);
    }
    Elements(const Elements&) = delete;
    Elements& operator=(const Elements&) = delete;

    const Element* begin() const { return static_cast<const Element*>(data_); }
    const Element* end() const { return begin() + count_; }

private:
    SAFEARRAY* array_;
    void* data_ = nullptr;
    std::size_t count_ = 0;
};

}  // namespace

std::string TextOf(const VARIANT& value) {
    if (value.vt == VT_BSTR) return FromBstr(value.bstrVal);
    const Variant held(value);
    if (IsNothing(held.Get())) return {};
    if (held.Type() == VT_DATE) return DateText(held.Get().date);
    if (held.Type() == (VT_ARRAY | VT_UI1)) {
        const std::vector<std::byte> bytes = BytesOf(held.Get());
        return text::FromCodePage({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
    return FromBstr(Changed(held, VT_BSTR, "a text").Get().bstrVal);
}

std::int32_t IntegerOf(const VARIANT& value) {
    if (value.vt == VT_I4) return value.lVal;
    const Variant held(value);
    return IsNothing(held.Get()) ? 0 : Changed(held, VT_I4, "a whole number").Get().lVal;
}

std::int64_t LargeIntegerOf(const VARIANT& value) {
    const Variant held(value);
    return IsNothing(held.Get()) ? 0 : Changed(held, VT_I8, "a whole number").Get().llVal;
}

bool TruthOf(const VARIANT& value) {
    if (value.vt == VT_BOOL) return value.boolVal != VARIANT_FALSE;
    const Variant held(value);
    return !IsNothing(held.Get()) && Changed(held, VT_BOOL, "true or false").Get().boolVal != VARIANT_FALSE;
}

Microsoft::WRL::ComPtr<IDispatch> ObjectOf(const VARIANT& value) {
    const Variant held(value);
    Microsoft::WRL::ComPtr<IDispatch> object;
    if (IsNothing(held.Get())) return object;
    if (held.Type() != VT_DISPATCH && held.Type() != VT_UNKNOWN) Mismatch(held.Get(), "an object");
    IUnknown* unknown = held.Get().punkVal;
    if (unknown != nullptr && FAILED(unknown->QueryInterface(IID_PPV_ARGS(object.GetAddressOf()))))
        Mismatch(held.Get(), "an object whose members can be called by name");
    return object;
}

std::vector<std::byte> BytesOf(const VARIANT& value) {
    if (value.vt == (VT_BYREF | VT_VARIANT)) return BytesOf(*value.pvarVal);
    if (IsNothing(value)) return {};
    if ((value.vt & ~VT_BYREF) != (VT_ARRAY | VT_UI1)) Mismatch(value, "an array of bytes");
    const Elements<std::byte> elements((value.vt & VT_BYREF) != 0 ? *value.pparray : value.parray);
    return {elements.begin(), elements.end()};
}

std::vector<Variant> ElementsOf(const VARIANT& value) {
    const Variant held(value);
    if (IsNothing(held.Get())) return {};
    if (held.Type() != (VT_ARRAY | VT_VARIANT)) Mismatch(held.Get(), "an array");
    const Elements<VARIANT> elements(held.Get().parray);
    std::vector<Variant> copies;
    for (const VARIANT& element : elements) copies.emplace_back(element);
    return copies;
}

}  // namespace lumarin::automation
