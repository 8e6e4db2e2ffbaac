#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "documents/builder/DocumentPorts.h"
#include "documents/builder/PageRefusals.h"
#include "documents/builder/PdfDraftFiles.h"
#include "documents/builder/PdfPages.h"
#include "documents/builder/ScannedPages.h"
#include "forms/Controls.h"
#include "forms/Desktop.h"
#include "forms/ListView.h"
#include "forms/ToolBar.h"
#include "imaging/Imaging.h"
#include "imaging/Scanner.h"

namespace lumarin {

/// Builds a PDF from pictures, one on each page. Each page is in the temporary PDF file before the list shows
/// it, and all are offered again when the builder opens after the program has ended in between. A page is
/// refused when the file could grow beyond the limit by it, so that a document of accepted pages can always
/// be sent.
///
/// What is done to pages that are there is kept at once, and can be taken back; since the PDF library can
/// only add pages, the document is built of their pictures again when somebody is to have it.
class frmMakePDF : public Form {
public:
    explicit frmMakePDF(const DocumentPorts& ports);

    ComboBox cboDocType{*this, "cboDocType", {"C&olors:", "How many colors the next pages keep"}};
    OptionButton optLetter{*this, "optLetter", "PageSize", {"8.5 x 11 (&Letter)"}};
    OptionButton optLegal{*this, "optLegal", "PageSize", {"8.5 x 14 (L&egal)"}};
    ListView lbmBM{*this,
                   "lbmBM",
                   {.caption = "Pa&ges, in their order:",
                    .toolTip = "Picture files can be dropped here",
                    .accessibleName = "Pages of the document"}};
    TextBox txtLinkText{
        *this,
        "txtLinkText",
        {.caption = "Desc&ription:", .placeholder = "What the document is called in the listing"}};
    TextBox txtFilesImported{
        *this,
        "txtFilesImported",
        {.caption = "&Imported:", .placeholder = "Add pictures, paste one, or scan a page"}};
    Label lblSize{*this, "lblSize", {"Size:"}};
    /// Of what is allowed.
    Label lblFilesize{*this, "lblFilesize", {.accessibleName = "Size of the document"}};
    Label lblStatus{*this, "lblStatus"};  ///< how many pages; what is being done
    Button cmdUndo{*this, "cmdUndo", {.toolTip = "Undo (Ctrl+Z)"}};
    Button cmdRedo{*this, "cmdRedo", {.toolTip = "Redo (Ctrl+Y)"}};
    Button cmdRotateLeft{*this, "cmdRotateLeft", {.toolTip = "Turn the selected pages to the left (Ctrl+L)"}};
    Button cmdRotateRight{
        *this, "cmdRotateRight", {.toolTip = "Turn the selected pages to the right (Ctrl+R)"}};
    ControlArray<Button, 2> cmdMove{*this,
                                    "cmdMove",
                                    {{.toolTip = "Move the selected pages up (Alt+Up)"},
                                     {.toolTip = "Move the selected pages down (Alt+Down)"}}};
    Button cmdView{*this, "cmdView", {.toolTip = "See the page large (Enter)"}};
    Button cmdDelete{*this, "cmdDelete", {.toolTip = "Delete the selected pages (Delete)"}};
    /// What became of scanned pages besides being added.
    Label lblScans{*this, "lblScans"};
    Button cmdBringBack{*this, "cmdBringBack", {"&Bring Back", "Put the blank pages back in their places"}};
    Button cmdAddFiles{*this, "cmdAddFiles", {"&Add Files...", "Add picture files, each as a page"}};
    Button cmdOK{*this, "cmdOK", {"O&K", "Send the document to the listing"}};
    Button cmdCancel{*this, "cmdCancel", {"&Cancel"}};
    ToolBar ActiveBar1{*this, "ActiveBar1"};

    /// Raised when the user has finished: with the temporary PDF file there, it is to be sent. The handler
    /// unloads the window.
    Event<> CloseForm;

    /// Which listing the document is for, and how many bytes it may have. Called before `Display`.
    void SetDocument(std::int32_t listing, std::int32_t maximumBytes);

    /// Offers the pages of a document that was begun before, then shows the window modal above `owner`.
    /// Returns when it is closed.
    void Display(const OwnerWindow* owner);

    /// The description, without blanks around it.
    std::string LinkText() const;
    std::string PdfPath() const { return files_.Pdf(); }
    /// The name under which the document goes to the server: `offered`, or the one under which the same pages
    /// went before. It is kept with the document. Throws FileError.
    std::string ServerFile(const std::string& offered);
    /// The document is done with: deletes the temporary files. Throws FileError.
    void Discard();

protected:
    void OnLoad() override;
    void OnShow() override;
    bool OnQueryClose(CloseReason reason) override;
    void OnUnload() override;
    void OnStopRequested() override { stop_ = true; }
    void OnCloseRefused() override { stop_ = true; }

private:
    void WireEvents();
    void ToolClicked(const std::string& name);
    Answer Ask(const std::string& text, Buttons buttons, Answer enter) const;
    void Refuse(const std::string& text, const std::string& title) const;

    // What is there already.
    void LoadLibrary();
    bool TakeUpDraft();
    Answer AskToGoOn(const PdfDraft& draft) const;
    bool ConfirmThrowAway() const;
    void KeepDraft();
    void KeepDescription();
    bool IsTooLarge(const PdfDraft& draft) const { return draft.DocumentLength() > maximumBytes_; }
    std::string SizeOf(const PdfDraft& draft) const;
    std::string TooLargeNow(const PdfDraft& draft) const;
    std::string OtherDraftText(std::int32_t listing) const;

    // Commands
    void NewDocument();
    void Save();
    void Preview();
    void Paste();
    void AddFiles();
    void SelectSource();
    void Finish();
    bool Cancel();

    // frmMakePDFEdits.cpp
    void WirePageTools();
    bool PageToolClicked(const std::string& name);
    void PageKeyPressed(const KeyDown& pressed, bool& used);
    void ShowPageTools();
    void Amend(PdfDraft changed);
    void Delete();
    void Move(int before);
    void MoveBy(int places);
    void Rotate(int quarters);
    bool TurnSelected(PdfDraft& changed, int quarters);
    PageId TurnedPage(PdfDraft& changed, PageId page, int quarters) const;
    void TakeStep(void (PdfDraft::*step)(), const std::vector<PdfDraft::Step>& from, const char* done);
    void View();
    void BringUpToDate();
    void AppendRest();
    void BuildAnew();
    PageIds SelectedPages() const;
    void ShowPages(const PageIds& selected);

    // frmMakePDFScans.cpp
    void Acquire(bool several);
    void AcquireBothSides();
    std::pair<PageIds, ScanOutcome> AcquirePass(bool several);
    PageId AddScan(const ScannedPage& scan, bool several);
    void LeaveOut(SourcePicture& picture, const std::string& name);
    void BringBack();
    bool AskForBacks(std::size_t fronts) const;
    void SayUnequal(std::size_t fronts, std::size_t backs) const;
    bool ScanToolClicked(const std::string& name);
    void SwitchScanning(const std::string& tool, bool ScanSettings::*setting);
    void ShowScanSettings();
    void ShowScans();

    // frmMakePDFPages.cpp
    void RunBatch(std::string_view command, const std::function<void()>& add);
    void Import(const std::vector<std::string>& paths);
    bool AddPicture(PicturePtr picture, const std::string& name);
    void AddFile(const std::string& path);
    bool AddPage(const std::string& name, const std::function<std::unique_ptr<SourcePicture>()>& open);
    bool WritePage(SourcePicture& picture, const std::string& name);
    static PixelSize WritePicture(SourcePicture& picture, PageColours colours, const std::string& path);
    std::string SizesInFewerColours(SourcePicture& picture, const std::string& name);
    bool Fits(std::int64_t pictureBytes) const;
    void TakeIn(const PdfDraft::Page& page, PageId id);
    void CountStep(PageId added);
    void KeepSource(SourcePicture& picture, PageId id) const;
    void MakeThumbnail(PageId page, PageColours colours) const;
    ListView::Row RowOf(std::size_t place) const;
    void ShowDocument();
    PageColours Colours() const;
    std::int32_t PageSize() const;

    DocumentPorts ports_;
    PdfPages pages_;
    PdfDraftFiles files_;
    PdfDraft draft_;
    std::int32_t maximumBytes_ = 0;
    std::string scannerSource_;
    ScanSettings scanning_;
    std::size_t straightened_ = 0;  ///< pages of the batch that ran last
    PageRefusals refusals_;         ///< of the batch that runs
    bool adding_ = false;           ///< a batch runs
    bool hasAdded_ = false;         ///< it has added a page
    bool stop_ = false;             ///< it is to end
    bool closing_ = false;
};

}  // namespace lumarin
