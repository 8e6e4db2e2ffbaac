#include "documents/builder/frmMakePDF.h"

#include "base/Files.h"
#include "base/SizeText.h"
#include "base/Text.h"
#include "documents/builder/PdfTools.h"
#include "util/DocumentFolder.h"
#include "util/PictureAcquisition.h"

namespace lumarin {

namespace {

constexpr int HelpPage = 308;
constexpr double PictureColumn = 360 * TwipsPerPixel;
constexpr const char* Title = "Create PDF";
constexpr const char* HelpPath = "/Tutorials/DocManager/CreatePDF.htm";
constexpr const char* PictureFilter =
    "Pictures|*.jpg;*.jif;*.jpeg;*.png;*.tif;*.tiff;*.webp;*.heic;*.gif|All (*.*)|*.*";

}  // namespace

frmMakePDF::frmMakePDF(const DocumentPorts& ports)
    : Form(ports.desktop, "frmMakePDF"), ports_(ports), pages_(ports.pdf, "frmMakePDF-Write") {
    SetCaption(Title);
    SetHelpContext(HelpPage);
    BuildPdfTools(ActiveBar1);
    for (const char* text :
         {"Allow Color (Larger files)", "Grayscale (Quality B&W)", "Black & White 1-bit (Smallest file)"})
        cboDocType.AddItem(text);
    lbmBM.AddColumn("Page", 0);
    lbmBM.AddColumn("Picture", PictureColumn, ListView::Sizing::GrowsWithTexts);
    lbmBM.AddColumn("Size", 0, ListView::Sizing::Fixed, ListView::Alignment::Right);
    WireEvents();
}

void frmMakePDF::WireEvents() {
    cmdAddFiles.Click = [this] { AddFiles(); };
    cmdOK.Click = [this] { Finish(); };
    cmdCancel.Click = [this] {
        stop_ = true;  // a batch that runs ends; the window stays then
        if (!adding_) Cancel();
    };
    txtLinkText.Change = [this] { KeepDescription(); };
    txtLinkText.KeyPressed = [this](KeyPress& key) {
        if (key.code != static_cast<int>(Key::Enter)) return;
        key.discarded = true;
        cmdOK.Press();
    };
    WirePageTools();
    cmdBringBack.Click = [this] { BringBack(); };
    ActiveBar1.ToolClick = [this](const std::string& tool) { ToolClicked(tool); };
    lbmBM.FilesDropped = [this](const std::vector<std::string>& paths) {
        RunBatch("cmdAddFiles", [&] { Import(paths); });
    };
    lbmBM.OtherDropped = [this] {
        Refuse(
            "What was dropped holds no picture, only an address or a text. Save the picture as a file first, "
            "then drop or add that file.",
            "Import Image");
    };
}

void frmMakePDF::SetDocument(std::int32_t listing, std::int32_t maximumBytes) {
    draft_.listing = listing;
    maximumBytes_ = maximumBytes;
}

void frmMakePDF::OnLoad() {
    cboDocType.SetListIndex(0);
    optLetter.Choose();
    for (const char* tool : {"AcquireSingle", "AcquireMultiple", "FrontsThenBacks", "SelectSource"})
        ActiveBar1.EnableTool(tool, ports_.scanner != nullptr);
    lbmBM.SetEnabled(true);
    lbmBM.SetAcceptsFiles(true);
    lbmBM.SetMultiSelect(true);
    lbmBM.SetKeepsSelection(true);
    ShowScanSettings();
    ShowDocument();
}

void frmMakePDF::LoadLibrary() {
    const VelCommon& host = ports_.host.Common();
    files_ = PdfDraftFiles(host.UserFolder());
    pages_.Use(files_.Pdf(), false);
    pages_.SetInfo(draft_.listing, host.PdfInfoText());
    if (ports_.pdf.Load(host.ProgramFolder() + "QorCreatePdf.dll") != PdfStatus::Done)
        throw ApplicationError("frmMakePDF-Load", ports_.pdf.LastFailure());
}

void frmMakePDF::Display(const OwnerWindow* owner) {
    Load();
    closing_ = false;
    bool wanted = false;
    Guarded("Load", [&] {
        LoadLibrary();
        wanted = TakeUpDraft();
    });
    if (wanted) ShowModal(owner);
    Unload();
}

void frmMakePDF::OnShow() { cmdAddFiles.SetFocus(); }

std::string frmMakePDF::LinkText() const { return std::string(text::Trim(txtLinkText.Text())); }

Answer frmMakePDF::Ask(const std::string& text, Buttons buttons, Answer enter) const {
    return desktop().ShowMessage(
        {.text = text, .title = Title, .buttons = buttons, .icon = Icon::Question, .enter = enter}, this);
}

std::string frmMakePDF::ServerFile(const std::string& offered) {
    if (draft_.upload.name.empty() || draft_.upload.length != files_.PdfLength()) {
        draft_.upload = {offered, files_.PdfLength()};
        KeepDraft();
    }
    return draft_.upload.name;
}

void frmMakePDF::Refuse(const std::string& text, const std::string& title) const {
    desktop().ShowMessage({.text = text, .title = title, .buttons = Buttons::Ok, .icon = Icon::Critical},
                          this);
}

/// The limit was lowered since its pages were added.
std::string frmMakePDF::TooLargeNow(const PdfDraft& draft) const {
    return "\n\nIt is too large to be sent now (" + SizeOf(draft) +
           "): save a copy of it, then begin a new document.";
}

/// `listing` 0: nobody knows.
std::string frmMakePDF::OtherDraftText(std::int32_t listing) const {
    const std::string question = "Do you want to throw its pages away and begin a new one?\n\nNo keeps them";
    if (listing == 0)
        return "A document that was begun earlier has not been sent, and for which listing it is cannot be "
               "read. " +
               question + " in this file:\n" + files_.Pdf();
    return "A document that was begun for listing #" + std::to_string(listing) + " has not been sent. " +
           question + ": select that listing to go on with its document.";
}

Answer frmMakePDF::AskToGoOn(const PdfDraft& draft) const {
    return Ask("A document of " + draft.PageCountText() +
                   " was begun for this listing and has not been sent. Do you want to go on with it?\n\nNo "
                   "throws its pages away." +
                   (IsTooLarge(draft) ? TooLargeNow(draft) : ""),
               Buttons::YesNoCancel, Answer::Yes);
}

/// False when the user does not want to build a document now, because of the one that is there.
bool frmMakePDF::TakeUpDraft() {
    if (!files_.HasPdf()) {
        files_.DeleteAll();
        return true;
    }
    const auto found = files_.Read();
    if (found && found->listing == draft_.listing) {
        const Answer answer = found->order.empty() ? Answer::Yes : AskToGoOn(*found);
        if (answer == Answer::Cancel) return false;
        if (answer == Answer::No) return Discard(), true;
        draft_ = *found;
        txtLinkText.SetText(found->description);
        for (const PageId page : draft_.order)
            if (draft_.pages.at(page).isKept && !files::FileExists(files_.Thumbnail(page)))
                MakeThumbnail(page, draft_.pages.at(page).colours);
        ShowPages(draft_.order.empty() ? PageIds() : PageIds{draft_.order.back()});
        return true;
    }
    if (Ask(OtherDraftText(found ? found->listing : 0), Buttons::YesNo, Answer::No) != Answer::Yes)
        return false;
    Discard();
    return true;
}

void frmMakePDF::Discard() {
    files_.DeleteAll();
    const std::int32_t listing = draft_.listing;
    draft_ = {};
    draft_.listing = listing;
    straightened_ = 0;
    pages_.Use(files_.Pdf(), false);
    lbmBM.Clear();
    ShowDocument();
}

bool frmMakePDF::ConfirmThrowAway() const {
    return draft_.order.empty() ||
           Ask("Do you want to throw away the " + draft_.PageCountText() + " of this document?",
               Buttons::YesNo, Answer::No) == Answer::Yes;
}

void frmMakePDF::KeepDraft() {
    if (draft_.pages.empty()) return;
    draft_.description = txtLinkText.Text();
    files_.Write(draft_);
}

/// While it is typed. What cannot be kept now is tried again at the next page and when the window closes.
void frmMakePDF::KeepDescription() {
    try {
        KeepDraft();
    } catch (const FileError&) {
    }
}

void frmMakePDF::ToolClicked(const std::string& name) {
    if (name == "new") return NewDocument();
    if (name == "save") return Save();
    if (name == "preview") return Preview();
    if (name == "paste") return Paste();
    if (name == "SelectSource") return SelectSource();
    if (name == "cancel") return cmdCancel.Press();
    if (PageToolClicked(name) || ScanToolClicked(name)) return;
    if (name == "help")
        RunCommand(name, [this] { desktop().OpenInBrowser(ports_.host.Common().HelpSite() + HelpPath); });
}

void frmMakePDF::NewDocument() {
    RunCommand("new", [this] {
        if (!ConfirmThrowAway()) return;
        txtLinkText.SetText("");
        Discard();
    });
}

void frmMakePDF::Save() {
    RunCommand("save", [this] {
        const VelCommon& host = ports_.host.Common();
        const std::string chosen =
            desktop().ChooseFileToSave({.title = "Save PDF",
                                        .filter = "PDF|*.pdf",
                                        .folder = DocumentFolder(host),
                                        .name = std::to_string(draft_.listing) + ".pdf"},
                                       this);
        if (chosen.empty()) return;
        BringUpToDate();
        files::Copy(files_.Pdf(), chosen);
        RememberDocumentFolder(host, chosen);
    });
}

void frmMakePDF::Preview() {
    RunCommand("preview", [this] {
        BringUpToDate();
        desktop().OpenDocument(files_.Pdf());
    });
}

void frmMakePDF::AddFiles() {
    RunBatch("cmdAddFiles", [this] {
        const VelCommon& host = ports_.host.Common();
        const std::vector<std::string> chosen = desktop().ChooseFiles({.title = "Import Image",
                                                                       .filter = PictureFilter,
                                                                       .folder = DocumentFolder(host),
                                                                       .several = true,
                                                                       .preview = true},
                                                                      this);
        if (chosen.empty()) return;
        RememberDocumentFolder(host, chosen.front());
        Import(chosen);
    });
}

void frmMakePDF::Paste() {
    RunBatch("paste", [this] {
        const std::vector<std::string> copied = desktop().ClipboardFiles();
        if (!copied.empty()) return Import(copied);
        PicturePtr picture = desktop().ClipboardHasPicture() ? desktop().ClipboardPicture() : nullptr;
        if (picture == nullptr) return Refuse("No photo on the clipboard", "From Clipboard");
        const HourglassPointer hourglass(desktop());
        AddPicture(std::move(picture), "From Clipboard");
    });
}

void frmMakePDF::SelectSource() {
    RunCommand("SelectSource", [this] {
        if (ports_.scanner == nullptr) return;
        scannerSource_ = ChooseSource(desktop(), *this, *ports_.scanner, scannerSource_);
    });
}

void frmMakePDF::Finish() {
    RunCommand("cmdOK", [this] {
        if (draft_.order.empty())
            return Refuse("Your document is empty, Please add files before exiting", "No documents added");
        if (LinkText().empty()) {
            Refuse("Please enter a description for your document", "Document description is missing");
            return txtLinkText.SetFocus();
        }
        BringUpToDate();
        if (IsTooLarge(draft_)) return Refuse(std::string(text::Trim(TooLargeNow(draft_))), Title);
        KeepDraft();
        closing_ = true;
        Guarded("CloseForm", [this] { CloseForm.Raise(); });
    });
}

/// True when the document was given up. Without its temporary file nothing is sent.
bool frmMakePDF::Cancel() {
    bool givenUp = false;
    RunCommand("cmdCancel", [&] {
        if (!ConfirmThrowAway()) return;
        Discard();
        givenUp = closing_ = true;
        Guarded("CloseForm", [this] { CloseForm.Raise(); });
    });
    return givenUp;
}

bool frmMakePDF::OnQueryClose(CloseReason reason) {
    return reason != CloseReason::Frame || closing_ || Cancel();
}

void frmMakePDF::OnUnload() { KeepDraft(); }

}  // namespace lumarin
