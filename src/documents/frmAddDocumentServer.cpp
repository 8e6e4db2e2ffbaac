#include "base/Files.h"
#include "base/SizeText.h"
#include "base/Text.h"
#include "documents/frmAddDocument.h"
#include "documents/frmPromptLinkText.h"
#include "util/DocumentFolder.h"

// What the document manager changes at the server. A local file is given up only after its record is there.

namespace lumarin {

namespace {

constexpr const char* Title = "Add Document";

/// The window takes no input and the pointer is the hourglass.
class BusyWindow {
public:
    BusyWindow(Form& window, Desktop& desktop) : window_(window), hourglass_(desktop) {
        window_.SetEnabled(false);
    }
    ~BusyWindow() { window_.SetEnabled(true); }
    BusyWindow(const BusyWindow&) = delete;
    BusyWindow& operator=(const BusyWindow&) = delete;

private:
    Form& window_;
    HourglassPointer hourglass_;
};

/// The name without folder and last extension.
std::string DefaultDescription(const std::string& path) {
    const std::string name = text::AfterLastSeparator(path);
    return name.substr(0, name.rfind('.'));
}

}  // namespace

DocumentUser frmAddDocument::User() const {
    const VelCommon& host = ports_.host.Common();
    return {host.ConnectionName(), host.AgentId()};
}

bool frmAddDocument::IsAcceptable(const std::string& path) {
    const auto length = static_cast<std::int64_t>(files::FileLength(path));
    if (length > maximumBytes_)
        return Say("File is too large!\nFilesize of " + SizeText(length) + " exceeds maximum allowed (" +
                       SizeText(maximumBytes_) + ")",
                   "Cannot add file"),
               false;
    if (!IsPdfFile(path)) return Say("File must be in PDF format", "Invalid file type"), false;
    return true;
}

/// Shows the prompt; false when it was left without OK.
bool frmAddDocument::Answered(frmPromptLinkText& prompt, bool descriptionOnly,
                              const std::string& description) {
    const Remembered<Form> open(asking_, prompt);
    prompt.Display(descriptionOnly, description, this);
    prompt.Unload();
    return !prompt.Cancelled();
}

void frmAddDocument::AddExistingFile() {
    RunCommand("miAddExistingFile", [this] {
        if (!IsConnected()) return;
        const VelCommon& host = ports_.host.Common();
        const std::string chosen = desktop().ChooseFiles({.title = "Add PDF File",
                                                          .filter = "Portable Document File (.PDF)|*.pdf",
                                                          .folder = DocumentFolder(host)},
                                                         this);
        if (chosen.empty()) return;
        RememberDocumentFolder(host, chosen);
        if (!IsAcceptable(chosen)) return;
        frmPromptLinkText prompt(desktop());
        if (!Answered(prompt, true, DefaultDescription(chosen))) return;
        UploadFile(chosen, prompt.LinkText(), LocalCopy::Keep);
        FillDocuments();
    });
}

void frmAddDocument::AddLink() {
    RunCommand("miAddUrl", [this] {
        if (!IsConnected()) return;
        frmPromptLinkText prompt(desktop());
        if (!Answered(prompt, false)) return;
        ChangeDocuments(AddLinkCommand(User(), listing_, prompt.LinkText(), prompt.Url()));
    });
}

void frmAddDocument::Delete() {
    RunCommand("cmdDelete", [this] {
        const clsDoc* document = Selected();
        if (document == nullptr || !IsConnected()) return;
        const clsDoc deleted = *document;
        if (MayDelete(deleted)) ChangeDocuments(DeleteCommand(User(), deleted.DocId));
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

/// Makes one change and shows what is there afterwards, also when it failed.
void frmAddDocument::ChangeDocuments(const std::string& command) {
    const HourglassPointer hourglass(desktop());
    desktop().ProcessPendingEvents();
    Guarded("Update", [&] { Update(command); });
    FillDocuments();
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

/// True when the server has the file and its record. What failed has been said then.
bool frmAddDocument::UploadFile(const std::string& path, const std::string& description,
                                LocalCopy afterwards) {
    // The same for every try: the server can tell a repeated record.
    const std::string serverFile = ServerFileName(User(), listing_, ports_.clock.Now());
    bool sent = false;
    Guarded("SendPhotos", [&] {
        for (bool retry = true; retry && !sent;) {
            retry = false;
            try {
                const BusyWindow busy(*this, desktop());
                sent = TryUpload(path, serverFile, description);
            } catch (const ServerUnreachable& error) {
                retry = Say("The document could not be sent to the server.\n" + error.Description(), Title,
                            Buttons::RetryCancel) == Answer::Retry;
            }
        }
        if (sent && afterwards == LocalCopy::Delete) files::TryDelete(path);
    });
    return sent;
}

/// False when the user cancelled, or the server refused the record: it keeps nothing of the file then.
bool frmAddDocument::TryUpload(const std::string& path, const std::string& serverFile,
                               const std::string& description) {
    FileUpload upload(desktop(), ports_.host, ports_.clock);
    const Remembered<FileUpload> stoppable(upload_, upload);
    if (upload.Send(path, serverFile, this) == FileSent::Cancelled) return false;
    const std::string command = AddFileCommand(User(), listing_, serverFile, description);
    if (!AtServer([&] { return Update(command); })) return false;
    upload.Keep();
    return true;
}

}  // namespace lumarin
