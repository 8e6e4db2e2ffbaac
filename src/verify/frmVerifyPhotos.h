#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "entry/HostLink.h"
#include "forms/Controls.h"
#include "forms/Desktop.h"

namespace lumarin {

/// Brings the host's photo store in line with the database: deletes the photos that no listing needs any
/// more and has the host fetch the missing ones. The run takes place inside the click of cmdStart; the
/// outcome, including a failure or the user's cancel, is reported in lblStatus and never by a message box.
class frmVerifyPhotos : public Form {
public:
    /// `host` must outlive the window.
    frmVerifyPhotos(Desktop& desktop, HostLink& host);

    Button cmdStart{*this, "cmdStart", {"&Start"}}, cmdExit{*this, "cmdExit", {"E&xit"}};
    Button cmdCancel{*this, "cmdCancel", {"&Cancel", "Stop; what was deleted or fetched stays so"}};
    /// What the run does now, or how it ended.
    Label lblStatus{*this,
                    "lblStatus",
                    {.caption = "Deletes the photos on this computer that no listing needs any more, and "
                                "fetches the missing ones.",
                     .accessibleName = "Status"}};
    Label lblFilesDeleted{*this, "lblFilesDeleted", {"Files deleted:"}};
    Label lblCount{*this, "lblCount", {.caption = "0", .accessibleName = "Files deleted"}};
    Label lblListing{*this, "lblListing", {"Listing:"}};
    /// The listing whose photos are asked for.
    Label lblListNum{*this, "lblListNum", {.accessibleName = "Listing being checked"}};
    ProgressBar pbBar{*this, "pbBar", {.accessibleName = "Progress"}};

protected:
    void OnStopRequested() override;
    void OnCloseRefused() override;

private:
    struct TextHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>{}(text); }
    };
    /// Listing number, as it stands in file names, to the letter of the listing's last photo.
    using LastLetters = std::unordered_map<std::string, int, TextHash, std::equal_to<>>;

    void Verify();
    void Run();
    LastLetters ReadLastLetters(Recordset& listings);
    void CleanFolder(const std::string& folder, const LastLetters& lastLetters, bool insideDigitFolder);
    bool MustGo(std::string_view name, const LastLetters& lastLetters);
    void FetchMissing(Recordset& listings);

    void BeginPhase(const std::string& status);
    void Advance();
    void ShowProgress();
    void GiveTurn();
    void GiveTurnWhenDue();
    void StopIfCancelled() const;

    HostLink& host_;
    std::int64_t deleted_ = 0;
    int progress_ = 0;
    std::string listing_;
    std::chrono::steady_clock::time_point lastTurn_;
};

}  // namespace lumarin
