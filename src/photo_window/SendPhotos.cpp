#include <exception>
#include <utility>

#include "base/Files.h"
#include "base/PutBack.h"
#include "entry/QueryRows.h"
#include "forms/BusyWindow.h"
#include "listing/ListingFiles.h"
#include "photo_window/Counted.h"
#include "photo_window/EachStep.h"
#include "photo_window/PhotoPackage.h"
#include "photo_window/PhotoUpload.h"
#include "photo_window/frmLumarin.h"

// The sending of all gathered listings in one package. Until the server has applied it, nothing is given
// up: a failed or cancelled send leaves the window, the records and the files as they were.

namespace lumarin {

namespace {

/// The published sizes of a listing's photos as the server last wrote them; "" when it has none.
std::string SizesOf(Recordset& versions, const std::string& number) {
    if (versions.Bof() && versions.Eof()) return {};
    versions.MoveFirst();
    versions.Find("PhoListNum = " + number);
    return versions.Eof() ? std::string() : versions.Field("PhotoVersion").Text();
}

/// Bytes of the files that a listing gives to the package.
std::uint64_t LengthOf(const std::vector<std::string>& files) {
    std::uint64_t bytes = 0;
    for (const std::string& file : files) bytes += files::FileLength(file);
    return bytes;
}

}  // namespace

void frmLumarin::ShowSent(const std::string& line) {
    lblSent.SetCaption(line);
    lblSent.SetVisible(!line.empty());
}

void frmLumarin::ShowNotSent(const std::string& reason) {
    ShowSent((sending_.empty() ? "Nothing was sent" : sending_ + " not sent") +
             (reason.empty() ? "" : ": " + reason));
}

void frmLumarin::SendPhotos() {
    RunCommand("SendPhotos", [this] {
        if (RecList.Count() == 0) return;
        ShowSent("");
        std::map<std::string, bool> removalsConfirmed;
        for (bool retry = true; retry;) {
            retry = false;
            bool sent = false;
            try {
                sending_.clear();
                sent = TrySend(removalsConfirmed);
                if (!sent) ShowNotSent("cancelled");
            } catch (const ServerUnreachable&) {
                ShowNotSent("the server could not be reached");
                retry =
                    desktop().ShowMessage({.text = "Unavailable to connect to server, do you want to retry",
                                           .title = "Unavailable to connect to server",
                                           .buttons = Buttons::YesNo,
                                           .icon = Icon::Critical,
                                           .modality = Modality::System,
                                           .enter = Answer::Yes},
                                          this) == Answer::Yes;
            } catch (const UpdateRefused&) {
                ShowNotSent("the server has refused the update");
                desktop().ShowMessage({.text = "Unable to update photo on server, please call Tech support.",
                                       .title = "Unable to update",
                                       .buttons = Buttons::Ok,
                                       .icon = Icon::Critical,
                                       .modality = Modality::System},
                                      this);
            } catch (...) {
                ShowNotSent("");
                throw;
            }
            if (!sent) continue;
            ShowSent(sending_.empty() ? "Nothing was sent" : sending_ + " sent");
            EmptyWindow();
        }
    });
}

/// True when the window is to be emptied: the server has everything, or there was nothing to send.
bool frmLumarin::TrySend(std::map<std::string, bool>& removalsConfirmed) {
    VelCommon& host = ports_.host.Common();
    BusyWindow busy(*this, desktop());
    const auto publishedSizes = AtServer([&] { return PublishedSizes(); });

    // Asked before anything is written, so that the state files are manifests only as long as it takes.
    for (int row = 0; row < RecList.Count(); ++row) {
        const clsPMListingRec& record = *records_.at(RecList.At(row).text);
        if (record.GetPhotoCount() > 0 || removalsConfirmed.contains(RecList.At(row).text)) continue;
        busy.Interrupt();
        removalsConfirmed[RecList.At(row).text] = AskRemoval(record.ListNum());
        busy.Begin();
    }

    const std::string packageName = PackageName(host.ConnectionName(), ports_.clock.Now(), host.AgentId());
    files::TryDelete(workingFolder_ + packageName);
    const AtEnd dropped([&] { files::TryDelete(workingFolder_ + packageName); });
    try {
        std::vector<SentPart> parts;
        const std::string fileList = BuildFileList(publishedSizes, removalsConfirmed, parts);
        if (!fileList.empty()) {
            ports_.archiver.Create(workingFolder_ + packageName, FilesOfList(fileList));
            PhotoUpload upload(desktop(), ports_.host, ports_.clock);
            upload.SetParts(std::move(parts));
            const Meanwhile stoppable(upload_, &upload);
            if (upload.Send(workingFolder_ + packageName, packageName, this) == UploadOutcome::Cancelled) {
                RestoreRecords();
                return false;
            }
        }
    } catch (...) {
        RestoreRecords();
        throw;
    }
    try {
        RestoreRecords();
    } catch (const Error&) {  // the server has everything, and the files go now
    }
    return true;
}

/// By listing number, for all gathered listings.
std::map<std::string, std::string> frmLumarin::PublishedSizes() const {
    std::string listingList;
    for (int row = 0; row < RecList.Count(); ++row)
        listingList += (row > 0 ? "," : "") + RecList.At(row).text;
    QueryRows versions(
        ports_.host.Common(),
        "SELECT PhoListNum,PhotoVersion FROM Photo WHERE PhoListNum IN (" + listingList + ");");
    std::map<std::string, std::string> sizes;
    for (int row = 0; row < RecList.Count(); ++row)
        sizes[RecList.At(row).text] = SizesOf(versions, RecList.At(row).text);
    return sizes;
}

bool frmLumarin::AskRemoval(std::int32_t listNum) {
    return desktop().ShowMessage({.text = "Do you really want to remove all the photos from listing - " +
                                          std::to_string(listNum),
                                  .title = "Send Photos",
                                  .buttons = Buttons::YesNo,
                                  .icon = Icon::Exclamation,
                                  .enter = Answer::No},
                                 this) == Answer::Yes;
}

/// Has every listing that takes part write its manifest and name its files, in the order of the list.
std::string frmLumarin::BuildFileList(const std::map<std::string, std::string>& publishedSizes,
                                      const std::map<std::string, bool>& removalsConfirmed,
                                      std::vector<SentPart>& parts) {
    std::string fileList;
    int photos = 0;
    for (int row = 0; row < RecList.Count(); ++row) {
        const std::string& number = RecList.At(row).text;
        clsPMListingRec& record = *records_.at(number);
        if (record.GetPhotoCount() == 0 && !removalsConfirmed.at(number)) continue;
        std::string files;
        photos += record.PrepareUpload(files, publishedSizes.at(number));
        parts.push_back({"Listing " + number, LengthOf(FilesOfList(files))});
        fileList += files;
    }
    if (!parts.empty())
        sending_ = Counted(static_cast<int>(parts.size()), "listing") + ", " + Counted(photos, "photo");
    return fileList;
}

void frmLumarin::RestoreRecords() {
    std::exception_ptr first;
    for (const auto& [number, record] : records_) {
        try {
            record->RestoreAfterUpload();
        } catch (...) {  // the others are put back all the same; the journal still has this one's state
            if (!first) first = std::current_exception();
        }
    }
    if (first) std::rethrow_exception(first);
}

void frmLumarin::EmptyWindow() {
    BusyWindow busy(*this, desktop());
    current_ = nullptr;
    imgMain.SetTag("");
    imgMain.SetImage(nullptr);
    PhotoList.Clear();
    RecList.Clear();
    cmdRemove.SetEnabled(false);
    cmdSend.SetEnabled(false);
    for (Button& button : cmdMove) button.SetEnabled(false);
    imgMain.SetAcceptsFiles(false);
    for (const char* tool : {"Paste", "Open", "SendPhotos", "Copy", "DeletePhoto", "View"})
        Menu.EnableTool(tool, false);
    UpdateListingCommands();
    removed_.clear();
    ShowSteps();

    // The server has everything: whatever of the rest fails, all else is done.
    EachStep rest;
    for (const auto& [number, record] : records_)
        rest.Do([&] { record->CloseListing(LocalFiles::Keep, Publish::Yes); });
    records_.clear();
    rest.Do([this] {
        VelCommon& host = ports_.host.Common();
        if (host.ReportsPhotoUpdates()) host.MainForm().Prog(0, 9);
    });
    ClearWorkingFolder(rest);
    if (!rest.Failures().empty())
        throw ApplicationError(
            "frmLumarin-SendPhotos",
            "The sending is finished, but not all that follows it could be done:" + rest.Failures());
}

/// Empties the working folder but for listings whose saved work could not be read. What somebody else put
/// there is set aside.
void frmLumarin::ClearWorkingFolder(EachStep& rest) {
    const auto isKept = [this](const std::string& name) {
        for (const auto& [state, reason] : unreadableStates_)
            if (name == state || (listing_files::ListingOf(state) &&
                                  listing_files::ListingOf(state) == listing_files::ListingOf(name)))
                return true;
        return false;
    };
    const auto forEach = [&](const auto& wanted, const auto& step) {
        rest.Do([&] {
            for (const std::string& name : files::List(
                     workingFolder_, [&](const std::string& file) { return wanted(file) && !isKept(file); }))
                rest.Do([&] { step(name); });
        });
    };
    const auto isState = [](const std::string& name) {
        return listing_files::ListingOf(name) && name.ends_with(".dat");
    };
    const auto isOwn = [this](const std::string& name) { return IsOwnFile(name); };
    const auto isOther = [this](const std::string& name) { return !IsOwnFile(name); };
    const auto remove = [this](const std::string& name) { files::Delete(workingFolder_ + name); };
    // The states first: photos without one are not unsent work.
    forEach(isState, remove);
    forEach(isOwn, remove);
    ForgetRemovedListings();
    forEach(isOther, [this](const std::string& name) { listing_files::SetAside(workingFolder_, name); });
}

/// False for a file that somebody else put into the working folder.
bool frmLumarin::IsOwnFile(const std::string& name) const {
    const VelCommon& host = ports_.host.Common();
    return listing_files::ListingOf(name) || IsPackage(name, host.ConnectionName(), host.AgentId());
}

}  // namespace lumarin
