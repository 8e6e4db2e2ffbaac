#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "documents/frmAddDocument.h"
#include "host_services/HostFixture.h"
#include "photo_window/frmLumarin.h"
#include "platform/qpdf/QpdfLibrary.h"
#include "platform/vips/VipsImaging.h"
#include "platform/zip/LibzipArchiver.h"
#include "support/ScriptedDesktop.h"

namespace lumarin::reliability {

/// The photos of each listing in their order, "description:identity of the file's bytes" each.
using Photos = std::map<std::string, std::vector<std::string>>;

/// A minute has passed whenever somebody looks: no two packages have one name.
class HastyClock final : public Clock {
public:
    LocalTime Now() const override;
    void SetMinutes(int minutes) { minutes_ = minutes; }

private:
    mutable int minutes_ = 0;
};

/// An agent at work on a data folder: the photo window with everything real behind it but the screen.
class Workplace {
public:
    static constexpr const char* Listings[] = {"1001", "1002", "1003"};

    /// Makes an empty data folder with the listings and, where the host keeps them, the settings.
    static void Prepare(const std::string& dataFolder);
    /// A JPEG of a photo's size, which no other number gives.
    static std::string Picture(int number);
    /// A picture that must be made smaller.
    static std::string LargePicture();

    explicit Workplace(const std::string& dataFolder);

    /// The photo window, again when it was open before. When it cannot be opened, that is told as a message.
    void Open();
    void Load(const std::string& listing);
    void Select(const std::string& listing);
    /// Imports the picture into the selected listing.
    void Add(int picture);
    void AddLarge();
    /// Gives the selected photo the description of this code.
    void Describe(int code) { window->Menu.ClickTool("View_" + std::to_string(code)); }
    void RemoveListing() { window->cmdRemove.Press(); }
    void Send() { window->cmdSend.Press(); }
    bool IsEmpty() const { return window == nullptr || window->RecList.Count() == 0; }

    /// What the window shows, the photos as they are on disk.
    Photos Work();
    /// What the server holds; fails the test for files that belong to nothing.
    Photos Published();
    /// Identity of a photo in the host's photo folder.
    std::string LocalCopy(const std::string& listing, int photo) const;
    /// The document manager with the first listing, again when it was open before.
    void OpenDocuments();
    void AddPdf();
    void AddLink() { documents->ActiveBar1.ClickTool("miAddUrl"); }
    /// Builds a document of a page of its own and one of each picture, going on with one that was begun.
    void BuildPdf() { documents->ActiveBar1.ClickTool("miMakePdf"); }
    void DeleteDocument() { documents->cmdDelete.Press(); }
    /// Pages of the document that is being built.
    int DraftPages() const;
    /// How many files there are of it.
    std::size_t DraftFiles() const;
    /// What the server holds of the first listing's documents, "description|address|identity" each.
    std::vector<std::string> Documents();

    /// How many messages there were, but for questions that belong to what the agent does.
    std::size_t Told() const;
    std::string LastMessage() const { return desktop.messages.empty() ? "" : desktop.messages.back().text; }

    const std::string folder;
    host::TestHost host;
    HostLink link;
    testing::ScriptedDesktop desktop;
    vips::VipsImaging imaging;
    zip::LibzipArchiver archiver;
    HastyClock clock;
    NoEngineVersion engine;
    QpdfLibrary pdf;
    std::unique_ptr<frmLumarin> window;
    std::unique_ptr<frmAddDocument> documents;
    /// Told when the builder has finished a page.
    std::function<void()> pageBuilt = [] {};

private:
    std::string CameraFile(const std::string& name, const std::string& bytes) const;
    void Play(Form& form);
    void PlayBuilder(frmMakePDF& builder);

    testing::TemporaryFolder camera_;
};

/// What the next start finds in the folder, looked at in a copy.
Photos WorkOnDisk(const std::string& dataFolder);

}  // namespace lumarin::reliability
