#pragma once

#include <cstdint>
#include <string>

#include "entry/HostLink.h"
#include "forms/Controls.h"
#include "forms/Desktop.h"
#include "forms/ListView.h"
#include "forms/ToolBar.h"

namespace lumarin {

/// The window that holds the listing records: what a record reads and drives of it. Outlives them.
class ListingOwner {
public:
    virtual ~ListingOwner() = default;

    virtual ListView& Listings() = 0;
    virtual ListView& Photos() = 0;
    virtual PictureBox& PhotoPreview() = 0;
    virtual Button& MoveUpButton() = 0;
    virtual Button& MoveDownButton() = 0;
    virtual Button& SendButton() = 0;
    virtual ToolBar& Tools() = 0;

    /// The greatest number of photos that a listing may hold.
    virtual int PhotoMaximum() const = 0;
    /// Called first whenever a record says whether photos can be added, with what it says.
    virtual void AddStateChanges(bool enabled) = 0;
    /// Called when the number of the listing's photos may have changed.
    virtual void PhotoCountChanges() = 0;
    /// Called when what can be undone or done again of the listing has changed, and whether it has unsent
    /// changes.
    virtual void StepsChange() = 0;
    /// A number greater than that of any step of any listing.
    virtual std::uint32_t NextStepNumber() = 0;
    /// A photo file as a picture fit for the preview; null when it cannot be read.
    virtual PicturePtr LoadPhoto(const std::string& path) = 0;

    virtual Desktop& ScreenDesktop() = 0;
    virtual HostLink& Host() = 0;
    virtual const Form& Window() const = 0;
};

}  // namespace lumarin
