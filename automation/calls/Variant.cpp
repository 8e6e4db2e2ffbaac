#include "automation/calls/Variant.h"

#include "base/Error.h"

#include <cstring>
#include <new>

namespace lumarin::automation {

namespace {

/// Writes into an array of one dimension; `write` gets its memory.
template <class Write>
SAFEARRAY* MakeArray(VARTYPE type, std::size_t count, Write write) {
    SAFEARRAY* array = SafeArrayCreateVector(type, 0, static_cast<ULONG>(count));
    void* data = nullptr;
    if (array == nullptr || FAILED(SafeArrayAccessData(array, &data))) throw std::bad_alloc();
    write(data);
    SafeArrayUnaccessData(array);
    return array;
}

}  // namespace

Variant::Variant(const VARIANT& value) : Variant() {
    const HRESULT copied = VariantCopyInd(&value_, const_cast<VARIANT*>(&value));
    if (copied == E_OUTOFMEMORY) throw std::bad_alloc();
    if (FAILED(copied)) throw Error(copied, "automation", "A value of an unknown type was passed");
}

Variant::Variant(const Variant& other) : Variant() {
    if (FAILED(VariantCopy(&value_, const_cast<VARIANT*>(&other.value_)))) throw std::bad_alloc();
}

Variant::Variant(std::int32_t number) : Variant() {
    value_.vt = VT_I4;
    value_.lVal = number;
}

Variant::Variant(std::int64_t number) : Variant() {
    value_.vt = VT_I8;
    value_.llVal = number;
}

Variant::Variant(bool truth) : Variant() {
    value_.vt = VT_BOOL;
    value_.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(double number) : Variant() {
    value_.vt = VT_R8;
    value_.dblVal = number;
}

Variant::Variant(std::string_view utf8) : Variant(Bstr(utf8)) {}

Variant::Variant(Bstr text) : Variant() {
    value_.vt = VT_BSTR;
    value_.bstrVal = text.Release();
}

Variant::Variant(IDispatch* object) : Variant() {
    value_.vt = VT_DISPATCH;
    value_.pdispVal = object;
    if (object != nullptr) object->AddRef();
}

Variant::Variant(std::span<const std::byte> bytes) : Variant() {
    value_.parray = MakeArray(VT_UI1, bytes.size(), [&](void* data) {
        if (!bytes.empty()) std::memcpy(data, bytes.data(), bytes.size());
    });
    value_.vt = VT_ARRAY | VT_UI1;
}

Variant::Variant(std::vector<Variant> elements) : Variant() {
    value_.parray = MakeArray(VT_VARIANT, elements.size(), [&](void* data) {
        auto* to = static_cast<VARIANT*>(data);
        for (Variant& element : elements) *to++ = element.Release();
    });
    value_.vt = VT_ARRAY | VT_VARIANT;
}

Variant Variant::Null() {
    Variant null;
    null.value_.vt = VT_NULL;
    return null;
}

Variant Variant::Missing() {
    Variant missing;
    missing.value_.vt = VT_ERROR;
    missing.value_.scode = DISP_E_PARAMNOTFOUND;
    return missing;
}

// What a reference points to is not freed with the variant that holds it.
Variant Variant::Reference(Bstr& text) {
    Variant reference;
    reference.value_.vt = VT_BYREF | VT_BSTR;
    reference.value_.pbstrVal = text.Address();
    return reference;
}

Variant Variant::Reference(Variant& value) {
    if (value.value_.vt != VT_BSTR && (value.value_.vt & VT_ARRAY) == 0) return ReferenceToWhole(value);
    Variant reference;
    reference.value_.vt = static_cast<VARTYPE>(VT_BYREF | value.value_.vt);
    reference.value_.byref = &value.value_.byref;
    return reference;
}

Variant Variant::ReferenceToWhole(Variant& value) {
    Variant reference;
    reference.value_.vt = VT_BYREF | VT_VARIANT;
    reference.value_.pvarVal = &value.value_;
    return reference;
}

}  // namespace lumarin::automation
