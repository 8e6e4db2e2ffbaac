#include "base/Files.h"
#include "base/PutBack.h"
#include "documents/frmAddDocument.h"
#include "documents/frmPromptLinkText.h"
#include "forms/BusyWindow.h"

// What the document manager changes at the server. A local file is given up only after its record is there.

namespace lumarin {

namespace {

constexpr const char* Title = "Add Document";

}  // namespace

DocumentUser frmAddDocument::User() const {
    const VelCommon& host = ports_.host.Common();
    return {host.ConnectionName(), host.AgentId()};
}

/// Shows the prompt; false when it was left without OK.
bool frmAddDocument::Answered(frmPromptLinkText& prompt, bool descriptionOnly,
                              const std::string& description) {
    const Meanwhile open(asking_, &prompt);
    prompt.Display(descriptionOnly, description, this);
    prompt.Unload();
    return !prompt.Cancelled();
}

void frmAddDocument::AddLink() {
    RunCommand("miAddUrl", [this] {
        if (!IsConnected()) return;
        frmPromptLinkText prompt(desktop());
        // What the server refuses can be corrected.
        while (Answered(prompt, false) &&
               ChangeDocuments(AddLinkCommand(User(), listing_, prompt.LinkText(), prompt.Url()),
                               "The link could not be sent to the server.",
                               SelectedRow::TheAdded) == ServerAnswer::Refused) {
        }
    });
}

void frmAddDocument::Delete() {
    RunCommand("cmdDelete", [this] {
        const clsDoc* document = Selected();
        if (document == nullptr || !IsConnected()) return;
        const clsDoc deleted = *document;
        if (MayDelete(deleted))
            ChangeDocuments(DeleteCommand(User(), deleted.DocId),
                            "The document could not be deleted at the server.", SelectedRow::TheSame);
    });
}

/// No deletes as well as Yes, on purpose: only closing the box, which has no Cancel, keeps the document.
bool frmAddDocument::MayDelete(const clsDoc& document) {
    return desktop().ShowMessage({.text = "Preparing to delete document:\n\n" + document.Description +
                                          "\n\nDo you wish to continue?",
                                  .title = "Verify document delete for listing #" + std::to_string(listing_),
                                  .buttons = Buttons::YesNo,
                                  .icon = Icon::Exclamation,
                                  .enter = Answer::No},
                                 this) != Answer::Cancel;
}

/// Makes one change and shows what is there afterwards, even when it failed.
ServerAnswer frmAddDocument::ChangeDocuments(const std::string& command, const std::string& failure,
                                             SelectedRow selected) {
    const HourglassPointer hourglass(desktop());
    desktop().ProcessPendingEvents();
    ServerAnswer answer = ServerAnswer::None;
    Repeatable(failure, [&] {
        const bool accepted = AtServer([&] { return Update(command); });
        answer = accepted ? ServerAnswer::Accepted : ServerAnswer::Refused;
    });
    FillDocuments(selected);
    return answer;
}

/// Does a step until it reaches the server, or the user gives up: false then.
bool frmAddDocument::Repeatable(const std::string& failure, const std::function<void()>& step) {
    for (;;) {
        try {
            step();
            return true;
        } catch (const ServerUnreachable& error) {
            if (Say(failure + "\n" + error.Description(), Title, Buttons::RetryCancel) != Answer::Retry)
                return false;
        }
    }
}

/// False when the server refused the change, which is said then.
bool frmAddDocument::Update(std::string command) {
    std::string errorText;
    bool refused = false;
    try {
        if (service_ == nullptr) service_ = RequestService<DocInterface>(ports_.host.Common());
        refused = service_->Update(command, errorText);
    } catch (...) {
        service_.reset();  // the next change tries a connection of its own
        throw;
    }
    if (refused)
        Say("Unable to update document on server, please call Tech support.\n" + errorText,
            "Unable to update");
    return !refused;
}

std::string frmAddDocument::NewServerFile() const {
    return ServerFileName(User(), listing_, ports_.clock.Now());
}

/// True when the server has the file and its record. What failed has been said then. The name is the same for
/// every try: the server can tell a repeated record.
bool frmAddDocument::UploadFile(const std::string& path, const std::string& serverFile,
                                const std::string& description, LocalCopy afterwards) {
    bool sent = false;
    Guarded("SendPhotos", [&] {
        Repeatable("The document could not be sent to the server.", [&] {
            const BusyWindow busy(*this, desktop());
            sent = TryUpload(path, serverFile, description);
        });
        if (sent && afterwards == LocalCopy::Delete) files::TryDelete(path);
    });
    return sent;
}

/// False when the user cancelled, or the server refused the record: it keeps nothing of the file then.
bool frmAddDocument::TryUpload(const std::string& path, const std::string& serverFile,
                               const std::string& description) {
    FileUpload upload(desktop(), ports_.host, ports_.clock);
    const Meanwhile stoppable(upload_, &upload);
    upload.SetParts(parts_);
    if (upload.Send(path, serverFile, this) == FileSent::Cancelled) return false;
    const std::string command = AddFileCommand(User(), listing_, serverFile, description);
    if (!AtServer([&] { return Update(command); })) return false;
    upload.Keep();
    return true;
}

}  // namespace lumarin
