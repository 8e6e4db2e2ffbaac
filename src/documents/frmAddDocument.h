#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "base/Clock.h"
#include "documents/DocumentCommands.h"
#include "documents/builder/frmMakePDF.h"
#include "documents/clsDoc.h"
#include "entry/JobWindow.h"
#include "entry/QueryRows.h"
#include "lookup/EngineVersion.h"
#include "lookup/frmListnumPrompt.h"
#include "util/FileUpload.h"

namespace lumarin {

class frmPromptLinkText;

/// Which row is selected after the list was read again.
enum class SelectedRow { TheSame, TheAdded };

enum class ServerAnswer { Accepted, Refused, None };

/// What becomes of a local file that the server has got.
enum class LocalCopy { Keep, Delete };

/// A PDF file that passed the checks.
struct FileToAdd {
    std::string path;
    std::string description;
    std::uint64_t bytes = 0;
};

/// The document manager: shows the documents of one listing, adds PDF files and links, deletes and previews.
class frmAddDocument : public JobWindow {
public:
    explicit frmAddDocument(const DocumentPorts& ports);
    ~frmAddDocument() override;

    ListView lvFiles{*this,
                     "lvFiles",
                     {"&Documents of the listing:",
                      "Enter opens a document, Delete deletes it; PDF files can be dropped here"}};
    /// Which listing, how many documents of what size in all.
    Label lblDocuments{
        *this,
        "lblDocuments",
        {.caption = "No listing is selected", .accessibleName = "Listing and number of documents"}};
    Button cmdPreview{*this, "cmdPreview", {"&Preview", "Open the selected document in the browser"}};
    Button cmdDelete{*this, "cmdDelete", {"De&lete", "Delete the selected document from the server"}};
    Button cmdClose{*this, "cmdClose", {"&Close"}};
    ToolBar ActiveBar1{*this, "ActiveBar1"};

    /// Asks for the first listing. Without a connection it says so and the window is not loaded afterwards.
    void Init(std::int32_t JobIndex) override;

    /// The PDF builder has finished: sends its file if it left one, and unloads it.
    void mMakePDF_CloseForm();

protected:
    bool OnQueryClose(CloseReason reason) override;
    void OnUnload() override;
    void OnStopRequested() override;

private:
    void WireEvents();
    void ToolClicked(const std::string& name);
    Answer Say(const std::string& text, const std::string& title, Buttons buttons = Buttons::Ok,
               Icon icon = Icon::Critical);

    // The listing
    bool IsConnected();
    void CloseByItself();
    void SelectListing();
    bool AskForListing(std::string& typed);
    bool UseListing(std::int32_t number, const Recordset& listing);
    QueryRows FindListing(std::int32_t number) const;
    void FillDocuments(SelectedRow selected);
    std::vector<clsDoc> ReadDocuments() const;
    void ShowDocuments(std::vector<clsDoc> documents, SelectedRow selected);
    void ShowSummary();
    const clsDoc* Selected() const;

    // Commands
    void Preview();
    void CopyLink();
    void EnableChosen();
    void MakePdf();
    void ShowHelp();

    // frmAddDocumentFiles.cpp
    void AddExistingFile();
    void AddDropped(const std::vector<std::string>& paths);
    void AddFile(const std::string& path);
    void AddFiles(const std::vector<std::string>& paths);
    bool DescribeFiles(std::vector<FileToAdd>& files);
    std::string SendFiles(const std::vector<FileToAdd>& files);
    std::string NextServerFile(const std::string& last) const;

    // frmAddDocumentServer.cpp
    bool Answered(frmPromptLinkText& prompt, bool descriptionOnly, const std::string& description = {});
    void AddLink();
    void Delete();
    bool MayDelete(const clsDoc& document);
    std::string NewServerFile() const;
    bool UploadFile(const std::string& path, const std::string& serverFile, const std::string& description,
                    LocalCopy afterwards);
    bool TryUpload(const std::string& path, const std::string& serverFile, const std::string& description);
    bool Update(std::string command);
    ServerAnswer ChangeDocuments(const std::string& command, const std::string& failure,
                                 SelectedRow selected);
    bool Repeatable(const std::string& failure, const std::function<void()>& step);
    DocumentUser User() const;

    DocumentPorts ports_;
    std::int32_t jobIndex_ = 0;
    std::unique_ptr<DocInterface> service_;  ///< asked for when it is first needed, and kept
    std::int32_t listing_ = 0;               ///< 0 until one is selected
    std::int32_t maximumBytes_ = 0;
    std::vector<clsDoc> documents_;  ///< by row
    std::unique_ptr<frmMakePDF> mMakePDF_;
    FileUpload* upload_ = nullptr;  ///< while a file is being sent
    std::vector<SentPart> parts_;   ///< what its progress window says; none for a single file
    Form* asking_ = nullptr;        ///< the modal window that is open
};

}  // namespace lumarin
