#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <utility>

namespace lumarin::automation {

/// UTF-8 of an automation text; "" for a null one, which is how an empty text may be passed.
std::string FromBstr(BSTR text);
/// The same, into a text that is there.
void Assign(std::string& utf8, BSTR text);

/// An automation text that is freed at the end.
class Bstr {
public:
    Bstr() = default;
    /// Throws std::bad_alloc when there is no memory.
    explicit Bstr(std::string_view utf8);
    Bstr(Bstr&& other) noexcept : text_(other.Release()) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(text_); }

    BSTR Get() const { return text_; }
    /// For a caller that puts a text in its place; what was there is freed by whoever replaces it.
    BSTR* Address() { return &text_; }
    /// The text now belongs to the caller.
    BSTR Release() { return std::exchange(text_, nullptr); }
    std::string Text() const { return FromBstr(text_); }

private:
    BSTR text_ = nullptr;
};

}  // namespace lumarin::automation
