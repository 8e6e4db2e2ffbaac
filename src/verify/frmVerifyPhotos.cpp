#include "verify/frmVerifyPhotos.h"

#include <algorithm>
#include <vector>

#include "base/Error.h"
#include "base/Files.h"
#include "entry/QueryRows.h"

namespace lumarin {

namespace {

constexpr const char* ListingsWithPhotos =
    "SELECT ListNum,PhotoCount,PhotoVersion"
    " From Listings Left join photo on Listings.ListNum = Photo.PhoListNum WHERE Photo.PhotoCount > 0;";

constexpr int HelpPage = 6;
constexpr int BeforeFirstLetter = 96;
constexpr std::size_t LetterAndEnding = 5;  // "a.jpg"

/// Other events get a turn this often. A turn at every file would take longer than looking at the file; so
/// would a look at the clock at every file of a folder.
constexpr auto TurnInterval = std::chrono::milliseconds(10);
constexpr int EntriesBetweenTurns = 32;

bool IsDigitFolder(std::string_view name) { return name.size() == 1 && name[0] >= '0' && name[0] <= '9'; }

/// The place of a photo file's letter is taken as it is: a digit there makes the file one that no listing
/// needs. Only "12.jpg" and its like, too short for a number and a letter, are not the store's own.
bool IsPhotoName(std::string_view name) {
    constexpr std::size_t Shortest = 1 + LetterAndEnding;
    if (name.size() < Shortest || !name.ends_with(".jpg")) return false;
    const auto letter = static_cast<unsigned char>(name[name.size() - LetterAndEnding]);
    return name.size() > Shortest || (letter > BeforeFirstLetter && letter < 128);
}

}  // namespace

frmVerifyPhotos::frmVerifyPhotos(Desktop& desktop, HostLink& host)
    : Form(desktop, "frmVerifyPhotos"), host_(host) {
    SetInitialSize(6600, 3000);
    SetCaption("Verify Photos");
    SetHelpContext(HelpPage);
    cmdCancel.SetEnabled(false);
    cmdStart.Click = [this] { RunCommand("cmdStart", [this] { Verify(); }); };
    // The run looks at the button: that is all that a cancel takes.
    cmdCancel.Click = [this] { cmdCancel.SetEnabled(false); };
    cmdExit.Click = [this] { Unload(); };
}

void frmVerifyPhotos::OnStopRequested() { cmdCancel.SetEnabled(false); }

void frmVerifyPhotos::OnCloseRefused() { cmdCancel.Press(); }

void frmVerifyPhotos::Verify() {
    cmdCancel.SetEnabled(true);
    cmdCancel.SetFocus();
    cmdStart.SetEnabled(false);
    cmdExit.SetEnabled(false);
    try {
        const HourglassPointer hourglass(desktop());
        Run();
        lblStatus.SetCaption("Verify completed successfully");
    } catch (const std::exception& error) {
        ShowProgress();
        lblStatus.SetCaption(std::string("Abort - ") + error.what());
    }
    lblListNum.SetCaption("");
    cmdStart.SetEnabled(true);
    cmdExit.SetEnabled(true);
    cmdStart.SetFocus();
    cmdCancel.SetEnabled(false);
    pbBar.SetValue(0);
}

void frmVerifyPhotos::Run() {
    deleted_ = 0;
    listing_.clear();
    BeginPhase("Removing unnecessary photos");
    VelCommon& common = host_.Common();
    QueryRows listings(common, ListingsWithPhotos);
    const LastLetters lastLetters = ReadLastLetters(listings);
    pbBar.SetMax(
        std::max(1, static_cast<int>(lastLetters.size())));  // a maximum of 0 has no "nothing done yet"
    if (!lastLetters.empty()) common.ExpectFetches();
    CleanFolder(common.PhotoFolder(), lastLetters, false);

    BeginPhase("Searching for missing photos");
    if (!lastLetters.empty()) FetchMissing(listings);
    ShowProgress();
}

frmVerifyPhotos::LastLetters frmVerifyPhotos::ReadLastLetters(Recordset& listings) {
    LastLetters letters;
    for (; !listings.Eof(); listings.MoveNext()) {
        GiveTurnWhenDue();
        letters[listings.Field("ListNum").Text()] =
            BeforeFirstLetter + listings.Field("PhotoCount").Integer();
    }
    return letters;
}

void frmVerifyPhotos::CleanFolder(const std::string& folder, const LastLetters& lastLetters,
                                  bool insideDigitFolder) {
    std::vector<std::string> unneeded, digitFolders;
    int entries = 0;
    files::ForEachEntry(folder, [&](std::string_view name, files::EntryKind kind) {
        if (entries++ % EntriesBetweenTurns == 0) GiveTurnWhenDue();
        if (kind == files::EntryKind::Folder) {
            if (IsDigitFolder(name)) digitFolders.emplace_back(name);
        } else if (insideDigitFolder && MustGo(name, lastLetters)) {
            unneeded.emplace_back(name);
        }
    });
    for (const std::string& name : unneeded) {
        GiveTurnWhenDue();
        // A lock may be given back by its owner in between: gone is gone.
        const std::string path = folder + name;
        if (!files::TryDelete(path)) files::Delete(path);
        ++deleted_;
    }
    for (const std::string& name : digitFolders)
        CleanFolder(folder + name + files::Separator, lastLetters, true);
}

bool frmVerifyPhotos::MustGo(std::string_view name, const LastLetters& lastLetters) {
    if (!IsPhotoName(name)) return name.ends_with(".lck");
    const auto last = lastLetters.find(name.substr(0, name.size() - LetterAndEnding));
    const int letter = static_cast<unsigned char>(name[name.size() - LetterAndEnding]);
    if (last == lastLetters.end() || letter <= BeforeFirstLetter || letter > last->second) return true;
    Advance();
    return false;
}

void frmVerifyPhotos::FetchMissing(Recordset& listings) {
    VelCommon& common = host_.Common();
    for (listings.MoveFirst(); !listings.Eof(); listings.MoveNext()) {
        const std::int32_t number = listings.Field("ListNum").Integer();
        const FieldValue version = listings.Field("PhotoVersion");
        listing_ = std::to_string(number);
        GiveTurnWhenDue();
        if (version.IsNull()) continue;
        const int count = listings.Field("PhotoCount").Integer();
        const std::string versionText = version.Text();
        for (int photo = 1; photo <= count; ++photo) {
            common.FetchPhoto(number, photo, versionText);
            Advance();
            GiveTurnWhenDue();
        }
    }
}

void frmVerifyPhotos::BeginPhase(const std::string& status) {
    progress_ = 0;
    lblStatus.SetCaption(status);
    GiveTurn();
}

void frmVerifyPhotos::Advance() {
    if (progress_ + 1 <= pbBar.Max()) ++progress_;
}

/// The controls are brought up to date only when somebody can see them, at a turn or at the end.
void frmVerifyPhotos::ShowProgress() {
    lblCount.SetCaption(std::to_string(deleted_));
    lblListNum.SetCaption(listing_);
    pbBar.SetValue(progress_);
}

void frmVerifyPhotos::GiveTurn() {
    ShowProgress();
    desktop().ProcessPendingEvents();
    lastTurn_ = std::chrono::steady_clock::now();
    StopIfCancelled();
}

void frmVerifyPhotos::GiveTurnWhenDue() {
    if (std::chrono::steady_clock::now() - lastTurn_ >= TurnInterval)
        GiveTurn();
    else
        StopIfCancelled();
}

void frmVerifyPhotos::StopIfCancelled() const {
    if (!cmdCancel.Enabled()) throw ApplicationError("frmVerifyPhotos-cmdStart", "Operation Canceled");
}

}  // namespace lumarin
