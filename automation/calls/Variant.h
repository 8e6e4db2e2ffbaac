#pragma once

#include "automation/calls/Bstr.h"

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace lumarin::automation {

/// A VARIANT that is cleared at the end. What is put into it is copied, but for the references, which stay
/// the caller's and must outlive it.
class Variant {
public:
    Variant() = default;
    /// A copy of what `value` holds or refers to.
    explicit Variant(const VARIANT& value);
    explicit Variant(std::int32_t number);
    explicit Variant(std::int64_t number);
    explicit Variant(bool truth);
    explicit Variant(double number);
    explicit Variant(std::string_view utf8);
    explicit Variant(const char* utf8) : Variant(std::string_view(utf8)) {}
    explicit Variant(Bstr text);
    /// An object; null is "Nothing".
    explicit Variant(IDispatch* object);
    /// An array of bytes.
    explicit Variant(std::span<const std::byte> bytes);
    /// An array of variants.
    explicit Variant(std::vector<Variant> elements);
    Variant(const Variant& other);
    Variant(Variant&& other) noexcept : value_(other.Release()) {}
    Variant& operator=(Variant other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }
    ~Variant() { Clear(); }

    static Variant Null();
    /// An argument that is left out.
    static Variant Missing();
    /// A reference to a text, which the one who is called may replace.
    static Variant Reference(Bstr& text);
    /// A reference to what another holds: to the text or the array within, if it is one.
    static Variant Reference(Variant& value);

    /// A reference to a variant as such, in which a script can put something else.
    static Variant ReferenceToWhole(Variant& value);

    VARTYPE Type() const { return value_.vt; }
    const VARIANT& Get() const { return value_; }
    /// For a call that fills it; it must be empty.
    VARIANT* Address() { return &value_; }
    /// What it holds now belongs to the caller.
    VARIANT Release() { return std::exchange(value_, VARIANT{}); }

private:
    /// As the system does it, which takes longer to see what there is to do.
    void Clear() {
        if (value_.vt == VT_BSTR)
            SysFreeString(value_.bstrVal);
        else if (value_.vt > VT_DATE)  // nothing up to there owns anything
            VariantClear(&value_);
    }

    VARIANT value_{};
};

}  // namespace lumarin::automation
