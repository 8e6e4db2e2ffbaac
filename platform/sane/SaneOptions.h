#pragma once

#include <sane/sane.h>

#include <string>
#include <string_view>
#include <vector>

namespace lumarin::sane {

/// The settings of one open device. A setting that the device does not have, or not at present, is left
/// out silently: every device has others. All numbers are in the setting's own unit.
class SaneOptions {
public:
    explicit SaneOptions(SANE_Handle device) : device_(device) {}

    /// The texts that a setting allows; none when it is not there.
    std::vector<std::string> Choices(std::string_view name) const;
    /// A text of the choices; "yes" or "no"; or a number, of which the nearest that is allowed is taken.
    void Set(std::string_view name, const std::string& value) const;
    void SetNumber(std::string_view name, double value) const;
    /// Sets a number to the smallest or largest value that is allowed.
    void SetToMinimum(std::string_view name) const;
    void SetToMaximum(std::string_view name) const;

private:
    struct Option {
        SANE_Int index = 0;
        const SANE_Option_Descriptor* descriptor = nullptr;
        bool Exists() const { return descriptor != nullptr; }
    };

    Option Find(std::string_view name) const;
    void Write(const Option& option, void* value) const;
    void WriteWord(const Option& option, double value) const;

    SANE_Handle device_;
};

}  // namespace lumarin::sane
