#include <optional>
#include <utility>

#include "base/Error.h"
#include "base/Files.h"
#include "base/PutBack.h"
#include "base/SizeText.h"
#include "base/Text.h"
#include "documents/DocumentCommands.h"
#include "documents/frmAddDocument.h"
#include "documents/frmPromptLinkText.h"
#include "util/DocumentFolder.h"

// Files that become documents of the listing, one chosen in the dialog or several dropped on the list.

namespace lumarin {

namespace {

struct Refusal {
    std::string text;
    std::string title;
};

/// Nothing for a file that can be added. Throws FileError when it cannot be read.
std::optional<Refusal> RefusalOf(const std::string& path, std::int32_t maximumBytes) {
    const auto length = static_cast<std::int64_t>(files::FileLength(path));
    if (length > maximumBytes)
        return Refusal{"File is too large!\nFilesize of " + SizeText(length) + " exceeds maximum allowed (" +
                           SizeText(maximumBytes) + ")",
                       "Cannot add file"};
    if (!IsPdfFile(path)) return Refusal{"File must be in PDF format", "Invalid file type"};
    return std::nullopt;
}

/// The name without folder and last extension.
std::string DefaultDescription(const std::string& path) {
    const std::string name = text::AfterLastSeparator(path);
    return name.substr(0, name.rfind('.'));
}

/// One line on a file that was not added.
std::string LineOn(const std::string& path, const std::string& reason) {
    return "\n" + text::AfterLastSeparator(path) + ": " + text::ReplaceAll(reason, "\n", " ");
}

/// "2 of 5"
std::string PlaceAmong(std::size_t index, std::size_t count) {
    return std::to_string(index + 1) + " of " + std::to_string(count);
}

}  // namespace

void frmAddDocument::AddExistingFile() {
    RunCommand("miAddExistingFile", [this] {
        if (!IsConnected()) return;
        const VelCommon& host = ports_.host.Common();
        const std::vector<std::string> paths =
            desktop().ChooseFiles({.title = "Add PDF File",
                                   .filter = "Portable Document File (.PDF)|*.pdf",
                                   .folder = DocumentFolder(host)},
                                  this);
        if (paths.empty()) return;
        RememberDocumentFolder(host, paths.front());
        AddFile(paths.front());
    });
}

void frmAddDocument::AddDropped(const std::vector<std::string>& paths) {
    RunCommand("miAddExistingFile", [&] {
        if (!IsConnected()) return;
        if (paths.size() == 1)
            AddFile(paths.front());
        else
            AddFiles(paths);
    });
}

void frmAddDocument::AddFile(const std::string& path) {
    if (const auto refusal = RefusalOf(path, maximumBytes_)) {
        Say(refusal->text, refusal->title);
        return;
    }
    frmPromptLinkText prompt(desktop());
    if (!Answered(prompt, true, DefaultDescription(path))) return;
    UploadFile(path, NewServerFile(), prompt.LinkText(), LocalCopy::Keep);
    FillDocuments(SelectedRow::TheAdded);
}

/// All are checked and described before the first one goes, so that nobody waits between two questions. One
/// message at the end names those that were not added.
void frmAddDocument::AddFiles(const std::vector<std::string>& paths) {
    std::string notAdded;
    std::vector<FileToAdd> accepted;
    for (const std::string& path : paths) {
        try {
            if (const auto refusal = RefusalOf(path, maximumBytes_))
                notAdded += LineOn(path, refusal->text);
            else
                accepted.push_back({path, DefaultDescription(path), files::FileLength(path)});
        } catch (const FileError& error) {
            notAdded += LineOn(path, error.Description());
        }
    }
    if (!DescribeFiles(accepted)) return;
    if (!accepted.empty()) {
        notAdded += SendFiles(accepted);
        FillDocuments(SelectedRow::TheAdded);
    }
    if (!notAdded.empty()) Say("Not added:\n" + notAdded, "Cannot add file");
}

/// False when the user gives up the whole of it.
bool frmAddDocument::DescribeFiles(std::vector<FileToAdd>& files) {
    for (std::size_t i = 0; i < files.size(); ++i) {
        frmPromptLinkText prompt(desktop());
        if (files.size() > 1)
            prompt.SetCaption("Document " + PlaceAmong(i, files.size()) + ": " +
                              text::AfterLastSeparator(files[i].path));
        if (!Answered(prompt, true, files[i].description)) return false;
        files[i].description = prompt.LinkText();
    }
    return true;
}

/// Lines on those that did not get there: with the first one that is cancelled or fails, the sending ends.
std::string frmAddDocument::SendFiles(const std::vector<FileToAdd>& files) {
    std::string notSent, serverFile;
    for (std::size_t i = 0; i < files.size(); ++i) {
        if (notSent.empty()) {
            lblDocuments.SetCaption("Listing #" + std::to_string(listing_) + ": sending document " +
                                    PlaceAmong(i, files.size()) + " ...");
            // The one that goes has all the bytes, so it is the one that is named, with its place among all.
            std::vector<SentPart> parts;
            for (const FileToAdd& file : files)
                parts.push_back({text::AfterLastSeparator(file.path), &file == &files[i] ? file.bytes : 0});
            const Meanwhile named(parts_, std::move(parts));
            serverFile = NextServerFile(serverFile);
            if (UploadFile(files[i].path, serverFile, files[i].description, LocalCopy::Keep)) continue;
        }
        notSent += LineOn(files[i].path, "It was not sent");
    }
    return notSent;
}

/// The seconds in its name tell it from the last one, so it may have to wait for the next second.
std::string frmAddDocument::NextServerFile(const std::string& last) const {
    for (;;) {
        std::string next = NewServerFile();
        if (next != last) return next;
        desktop().ProcessPendingEvents();
    }
}

}  // namespace lumarin
