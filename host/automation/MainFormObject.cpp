#include "host/automation/MainFormObject.h"

namespace host {

using lumarin::automation::Arguments;
using lumarin::automation::IntegerOf;
using lumarin::automation::TruthOf;
using lumarin::automation::Variant;

MainFormObject::MainFormObject(lumarin::HostMainForm& window, WindowHandle handle) {
    Member(L"Switch", [&window](const Arguments&) { return Variant(std::int32_t{window.Switch()}); });
    Member(L"Prog", [&window](const Arguments& arguments) {
        window.Prog(IntegerOf(arguments[0]), IntegerOf(arguments[1]));
        return Variant();
    });
    Member(L"SelectedListing",
           [&window](const Arguments&) { return Variant(std::int32_t{window.SelectedListing()}); });
    Member(L"TakeListing",
           [&window](const Arguments&) { return Variant(std::int32_t{window.TakeListing()}); });
    // 32 bits are enough for a window's number whatever the word size.
    Member(L"hWnd", [handle = std::move(handle)](const Arguments&) {
        return Variant(static_cast<std::int32_t>(handle()));
    });
}

ToolObject::ToolObject(std::function<bool()> isEnabled, std::function<void(bool)> setEnabled) {
    Member(
        L"Enabled", [isEnabled = std::move(isEnabled)](const Arguments&) { return Variant(isEnabled()); },
        [setEnabled = std::move(setEnabled)](const Arguments& arguments) {
            setEnabled(TruthOf(arguments[0]));
            return Variant();
        });
}

}  // namespace host
