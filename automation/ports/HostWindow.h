#pragma once

#include "automation/calls/Object.h"
#include "entry/VelCommon.h"

namespace lumarin::automation {

/// The host's main window, an object of the host's.
class HostWindow final : public HostMainForm {
public:
    explicit HostWindow(Object form) : form_(std::move(form)) {}
    bool Is(IDispatch* form) const { return form_.Is(form); }

    void* NativeWindow() const override { return nullptr; }  // it is not of our toolkit
    /// What its property `hWnd` says; without one, the window of the host's that is active.
    std::uintptr_t SystemWindow() const;
    int Switch() const override;
    void Prog(int first, int second) override;
    // A host without these members has no such list.
    std::int32_t SelectedListing() const override;
    std::int32_t TakeListing() override;

private:
    Object form_;
};

}  // namespace lumarin::automation
