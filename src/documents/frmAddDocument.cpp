#include "documents/frmAddDocument.h"

#include <algorithm>
#include <charconv>

#include "base/Files.h"
#include "base/PutBack.h"
#include "base/SizeText.h"
#include "documents/DocumentAddress.h"
#include "documents/DocumentOwnership.h"
#include "documents/DocumentTools.h"
#include "entry/Settings.h"

namespace lumarin {

namespace {

constexpr int HelpPage = 307;
constexpr const char* HelpPath = "/Tutorials/DocManager/DocManager.htm";
constexpr const char* Title = "Add Document";
constexpr const char* NoConnection =
    "No Internet connection! - This function requires an internet connection.";
constexpr double InitialWidth = 720 * TwipsPerPixel;
constexpr double InitialHeight = 440 * TwipsPerPixel;
constexpr double DocumentColumn = 0.69, InfoColumn = 0.3;  // of the list's width
/// Rows that are added before the window gets its turn.
constexpr std::size_t Portion = 200;
constexpr int NoRow = -1;

/// "DocMaxSize" is in kilobytes.
std::int32_t MaximumBytes(const VelCommon& host) {
    const std::int64_t kilobytes =
        settings::ReadInteger(host.CityFolder() + "CityInfo.ini", "Lumarin", "DocMaxSize", 1000);
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(kilobytes * 1024, 0, INT32_MAX));
}

clsDoc DocumentOf(const Recordset& row) {
    clsDoc document{row.Field("DocID").Integer(), row.Field("DocDesc").Text(), row.Field("DocUrl").Text(), 0};
    const std::string size = row.Field("DocFilesize").Text();
    std::from_chars(size.data(), size.data() + size.size(), document.Filesize);
    return document;
}

using Documents = std::vector<clsDoc>;

int RowOf(const Documents& documents, std::int32_t id) {
    const auto found = std::find_if(documents.begin(), documents.end(),
                                    [id](const clsDoc& document) { return document.DocId == id; });
    return found == documents.end() ? NoRow : static_cast<int>(found - documents.begin());
}

/// The last document that was not there before; none when nothing is new.
int AddedRow(const Documents& before, const Documents& now) {
    const auto added = std::find_if(now.rbegin(), now.rend(), [&](const clsDoc& document) {
        return RowOf(before, document.DocId) == NoRow;
    });
    return added == now.rend() ? NoRow : RowOf(now, added->DocId);
}

/// The document that was selected, or the one that has taken its place.
int SameRow(const Documents& before, int selected, const Documents& now) {
    if (selected < 0 || selected >= static_cast<int>(before.size())) return 0;
    const int same = RowOf(now, before[static_cast<std::size_t>(selected)].DocId);
    return same != NoRow ? same : std::clamp(selected, 0, std::max(0, static_cast<int>(now.size()) - 1));
}

}  // namespace

frmAddDocument::frmAddDocument(const DocumentPorts& ports)
    : JobWindow(ports.desktop, "frmAddDocument"), ports_(ports) {
    SetCaption("Document Manager");
    SetInitialSize(InitialWidth, InitialHeight);
    SetHelpContext(HelpPage);
    BuildDocumentTools(ActiveBar1);
    cmdPreview.SetEnabled(false);
    cmdDelete.SetEnabled(false);
    WireEvents();
}

frmAddDocument::~frmAddDocument() = default;

void frmAddDocument::WireEvents() {
    cmdPreview.Click = [this] { Preview(); };
    cmdDelete.Click = [this] { Delete(); };
    cmdClose.Click = [this] { Unload(CloseReason::Frame); };
    lvFiles.DoubleClick = [this] { Preview(); };
    lvFiles.KeyPressed = [this](const KeyDown& pressed, bool& used) {
        used = pressed.key == Key::Enter || pressed.key == Key::Delete;
        if (pressed.key == Key::Enter) cmdPreview.Press();
        if (pressed.key == Key::Delete) cmdDelete.Press();
    };
    lvFiles.SelectionChange = [this] { EnableChosen(); };
    lvFiles.MouseUp = [this](const Mouse& mouse) {
        if (mouse.button == MouseButton::Right) desktop().PopupMenu(ActiveBar1, "DocumentPopup");
    };
    lvFiles.FilesDropped = [this](const std::vector<std::string>& paths) { AddDropped(paths); };
    lvFiles.OtherDropped = [this] {
        Say("Only PDF files of this computer can be dropped here. The address of a page is added by Add "
            "Link.",
            Title, Buttons::Ok, Icon::Exclamation);
    };
    ActiveBar1.ToolClick = [this](const std::string& tool) { ToolClicked(tool); };
}

Answer frmAddDocument::Say(const std::string& text, const std::string& title, Buttons buttons, Icon icon) {
    return desktop().ShowMessage({.text = text, .title = title, .buttons = buttons, .icon = icon}, this);
}

void frmAddDocument::Init(std::int32_t JobIndex) {
    jobIndex_ = JobIndex;
    const VelCommon& host = ports_.host.Common();
    if (!IsConnected()) return;
    desktop().SetHelpFile(host.HelpFilePath());
    maximumBytes_ = MaximumBytes(host);
    Load();
    lvFiles.ClearColumns();
    lvFiles.AddColumn("Document", DocumentColumn * lvFiles.Width());
    lvFiles.AddColumn("Info", InfoColumn * lvFiles.Width(), ListView::Sizing::Fixed,
                      ListView::Alignment::Right);
    desktop().SetPointer(Pointer::Default);
    SelectListing();
}

bool frmAddDocument::IsConnected() {
    const VelCommon& host = ports_.host.Common();
    if (host.IsOffline())
        Say("You are working offline! - This function requires an internet connection.", Title);
    else if (!host.IsOnline())
        Say(NoConnection, Title);
    else
        return true;
    return false;
}

/// The host learns of it as of a close by the user; it knows by itself while it still starts the job.
void frmAddDocument::CloseByItself() {
    if (IsShown()) ports_.host.Common().EndJob(jobIndex_);
    Unload();
}

void frmAddDocument::SelectListing() {
    RunCommand("miSelectListing", [this] {
        const std::int32_t selected = ports_.host.Common().MainForm().SelectedListing();
        std::string typed = selected > 0 ? std::to_string(selected) : std::string();
        while (AskForListing(typed)) {
        }
    });
}

/// True when the user wants to try again, with what was typed.
bool frmAddDocument::AskForListing(std::string& typed) {
    frmListnumPrompt prompt(ports_);
    {
        const Meanwhile open(asking_, &prompt);
        const OwnerWindow& owner =
            IsShown() ? static_cast<const OwnerWindow&>(*this) : ports_.host.Common().MainForm();
        typed = prompt.Display(false, &owner, typed);
        prompt.Unload();
    }
    if (typed.empty()) return false;

    std::optional<QueryRows> listing;
    const auto number = TypedListingNumber(typed);
    if (number) {
        const HourglassPointer hourglass(desktop());
        try {
            listing.emplace(FindListing(*number));
        } catch (const std::exception&) {
        }
        if (!listing) return Say("Error accessing server", Title, Buttons::RetryCancel) == Answer::Retry;
    }
    if (!listing || (listing->Eof() && listing->Bof()))
        return Say("Listing #" + typed + " not found", Title, Buttons::RetryCancel) == Answer::Retry;
    if (!UseListing(*number, *listing))
        return Say("Listing does not belong to you.", "Access error", Buttons::RetryCancel) == Answer::Retry;
    return false;
}

QueryRows frmAddDocument::FindListing(std::int32_t number) const {
    const auto inTable = [&](const char* table) {
        return QueryRows(ports_.host.Common(),
                         std::string("SELECT ListOfficeId,ListAgentId,BoardId,StreetName,StreetNumber,"
                                     "StreetDirection FROM ") +
                             table + " WHERE Listnum = " + std::to_string(number) + ";");
    };
    QueryRows listing = inTable("Listings");
    return listing.Eof() && listing.Bof() ? inTable("Rentals") : std::move(listing);
}

/// False when the listing is not the user's.
bool frmAddDocument::UseListing(std::int32_t number, const Recordset& listing) {
    const HourglassPointer hourglass(desktop());
    if (!MayChangeDocuments(ports_.host.Common(), listing)) return false;
    listing_ = number;
    SetCaption("Qor Documents - Listing #" + std::to_string(number) + " - " + ListingAddress(listing));
    EnableListingTools(ActiveBar1, true);
    lvFiles.SetAcceptsFiles(true);
    ShowDocuments({}, SelectedRow::TheSame);
    FillDocuments(SelectedRow::TheSame);
    return true;
}

/// What cannot be read leaves the rows as they are, and says so.
void frmAddDocument::FillDocuments(SelectedRow selected) {
    const VelCommon& host = ports_.host.Common();
    if (host.IsOffline() || !host.IsOnline()) {
        Say(NoConnection, Title);
        return CloseByItself();
    }
    const std::string listing = "Listing #" + std::to_string(listing_);
    std::vector<clsDoc> documents;
    const bool wasRead = Repeatable("The documents could not be read from the server.", [&] {
        lblDocuments.SetCaption(listing + ": reading the documents ...");
        desktop().ProcessPendingEvents();
        documents = AtServer([this] { return ReadDocuments(); });
    });
    if (wasRead)
        ShowDocuments(std::move(documents), selected);
    else
        lblDocuments.SetCaption(listing + (documents_.empty() ? ": the documents could not be read"
                                                              : ": the list could not be read again"));
}

std::vector<clsDoc> frmAddDocument::ReadDocuments() const {
    QueryRows rows(ports_.host.Common(),
                   "SELECT DocID,DocDesc,DocUrl,DocFilesize FROM Documents WHERE DocListNum = " +
                       std::to_string(listing_) + " ORDER BY DocID;");
    std::vector<clsDoc> documents;
    for (; !rows.Eof(); rows.MoveNext()) {
        documents.push_back(DocumentOf(rows));
        if (documents.size() % Portion == 0) desktop().ProcessPendingEvents();
    }
    return documents;
}

void frmAddDocument::ShowDocuments(std::vector<clsDoc> documents, SelectedRow selected) {
    const int row = selected == SelectedRow::TheAdded ? AddedRow(documents_, documents) : NoRow;
    const int same = SameRow(documents_, lvFiles.Selected(), documents);
    lvFiles.Clear();
    documents_.clear();
    for (const clsDoc& document : documents) {
        const std::string info = document.Url.empty() ? SizeText(document.Filesize) : document.Url;
        lvFiles.AddRow({.text = document.Description,
                        .subItems = {info},
                        .key = std::to_string(document.DocId),
                        .toolTip = document.Description + "\n" + info});
        if (static_cast<std::size_t>(lvFiles.Count()) % Portion == 0) desktop().ProcessPendingEvents();
    }
    documents_ = std::move(documents);
    cmdPreview.SetEnabled(!documents_.empty());
    cmdDelete.SetEnabled(!documents_.empty());
    EnableChosen();
    ShowSummary();
    if (!documents_.empty()) lvFiles.Select(row != NoRow ? row : same);
}

void frmAddDocument::ShowSummary() {
    std::int64_t bytes = 0;
    for (const clsDoc& document : documents_) bytes += document.Filesize;
    const std::string count = documents_.empty()       ? "no documents"
                              : documents_.size() == 1 ? "1 document"
                                                       : std::to_string(documents_.size()) + " documents";
    lblDocuments.SetCaption("Listing #" + std::to_string(listing_) + ": " + count +
                            (bytes > 0 ? ", " + SizeText(bytes) + " in all" : ""));
}

const clsDoc* frmAddDocument::Selected() const {
    const auto row = static_cast<std::size_t>(lvFiles.Selected());  // none is past the end
    return row < documents_.size() ? &documents_[row] : nullptr;
}

void frmAddDocument::ToolClicked(const std::string& name) {
    if (name == "miSelectListing") return SelectListing();
    if (name == "miAddExistingFile") return AddExistingFile();
    if (name == "miMakePdf") return MakePdf();
    if (name == "miAddUrl") return AddLink();
    if (name == "miPreview") return cmdPreview.Press();
    if (name == "miCopyLink") return CopyLink();
    if (name == "miDelete") return cmdDelete.Press();
    if (name == "miExit") return cmdClose.Press();
    if (name == "miHelp") return ShowHelp();
}

void frmAddDocument::Preview() {
    RunCommand("cmdPreview", [this] {
        const clsDoc* document = Selected();
        if (document == nullptr) return;
        const std::string address = PreviewAddress(ports_.host.Common(), listing_, *document);
        if (HasOtherScheme(address)) {
            Say("This link was not opened, because it does not lead to a web page:\n\n" + address,
                "Preview document", Buttons::Ok, Icon::Exclamation);
            return;
        }
        desktop().OpenInBrowser(address);
    });
}

void frmAddDocument::CopyLink() {
    RunCommand("miCopyLink", [this] {
        const clsDoc* document = Selected();
        if (document != nullptr && !document->Url.empty()) desktop().SetClipboardText(document->Url);
    });
}

void frmAddDocument::EnableChosen() {
    const clsDoc* document = Selected();
    EnableDocumentTools(ActiveBar1, document == nullptr     ? ChosenDocument::None
                                    : document->Url.empty() ? ChosenDocument::File
                                                            : ChosenDocument::Link);
}

void frmAddDocument::MakePdf() {
    RunCommand("miMakePdf", [this] {
        mMakePDF_ = std::make_unique<frmMakePDF>(ports_);
        mMakePDF_->CloseForm = [this] { mMakePDF_CloseForm(); };
        mMakePDF_->SetDocument(listing_, maximumBytes_);
        {
            const Meanwhile open(asking_, mMakePDF_.get());
            mMakePDF_->Display(this);
        }
        mMakePDF_.reset();
    });
}

void frmAddDocument::mMakePDF_CloseForm() {
    if (mMakePDF_ == nullptr) return;
    mMakePDF_->Hide();  // the progress window belongs to this one
    Guarded("SendPhotos", [this] {
        if (!files::FileExists(mMakePDF_->PdfPath())) return;
        // A document whose answer was lost goes again under its name, also much later: the server knows it
        // then.
        const bool sent = UploadFile(mMakePDF_->PdfPath(), mMakePDF_->ServerFile(NewServerFile()),
                                     mMakePDF_->LinkText(), LocalCopy::Delete);
        Guarded("miMakePdf", [&] { FillDocuments(SelectedRow::TheAdded); });
        if (sent) mMakePDF_->Discard();
    });
    mMakePDF_->Unload();
}

void frmAddDocument::ShowHelp() {
    RunCommand("miHelp", [this] { desktop().OpenInBrowser(ports_.host.Common().HelpSite() + HelpPath); });
}

bool frmAddDocument::OnQueryClose(CloseReason reason) {
    if (reason == CloseReason::Frame) ports_.host.Common().EndJob(jobIndex_);
    return true;
}

void frmAddDocument::OnUnload() { service_.reset(); }

void frmAddDocument::OnStopRequested() {
    if (upload_ != nullptr) upload_->Stop();
    if (asking_ != nullptr) asking_->Unload(CloseReason::Host);
}

}  // namespace lumarin
