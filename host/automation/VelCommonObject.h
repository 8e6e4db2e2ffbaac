#pragma once

#include <memory>
#include <string>

#include "automation/calls/DispatchObject.h"
#include "entry/VelCommon.h"
#include "host/automation/MainFormObject.h"

namespace host {

/// The host's services as an automation object: every member of `VelCommon` under its own name. The component
/// keeps it longer than it uses it, so `common` is not touched when it goes.
class VelCommonObject final : public lumarin::automation::DispatchObject {
public:
    VelCommonObject(lumarin::VelCommon& common, WindowHandle mainWindow);

private:
    template <class Value>
    void Property(const wchar_t* name, Value (lumarin::VelCommon::*get)() const) {
        Member(name, [this, get](const lumarin::automation::Arguments&) {
            return lumarin::automation::Variant((common_.*get)());
        });
    }
    void AddHost(const WindowHandle& mainWindow);
    void AddUser();
    void AddPhotos();
    void AddTables();

    lumarin::VelCommon& common_;
};

}  // namespace host
