#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "documents/builder/DocumentPorts.h"
#include "documents/builder/PageRefusals.h"
#include "documents/builder/PdfDraft.h"
#include "documents/builder/PdfPages.h"
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
    bool ConfirmThrowAway() const;
    void KeepDraft();
    void KeepDescription();
    bool IsTooLarge(const PdfDraft& draft) const { return draft.pdfLength > maximumBytes_; }
    std::string SizeOf(const PdfDraft& draft) const;
    std::string TooLargeNow(const PdfDraft& draft) const;
    std::string OtherDraftText(std::int32_t listing) const;

    // Commands
    void NewDocument();
    void Save();
    void Preview();
    void Paste();
    void AddFiles();
    void Acquire(bool several);
    void SelectSource();
    void Finish();
    bool Cancel();

    // frmMakePDFPages.cpp
    void RunBatch(std::string_view command, const std::function<void()>& add);
    void EndBatch();
    void ShowRefusals();
    void Import(const std::vector<std::string>& paths);
    bool AddPicture(PicturePtr picture, const std::string& name);
    void AddFile(const std::string& path);
    bool AddPage(const std::string& name, const std::function<std::unique_ptr<SourcePicture>()>& open);
    bool WritePage(SourcePicture& picture, const std::string& name);
    bool Fits(std::int64_t pictureBytes) const;
    void TakeIn(const PdfDraft::Page& page, const PagePlace& place);
    void MakeThumbnail(std::size_t page, PixelSize size);
    void AddRow(std::size_t page);
    void ShowDocument();
    PageColours Colours() const;
    std::int32_t PageSize() const;

    DocumentPorts ports_;
    PdfPages pages_;
    PdfDraftFiles files_;
    PdfDraft draft_;
    std::int32_t maximumBytes_ = 0;
    std::string scannerSource_;
    PageRefusals refusals_;  ///< of the batch that runs
    bool adding_ = false;    ///< a batch runs
    bool stop_ = false;      ///< it is to end
    bool closing_ = false;
};

}  // namespace lumarin
