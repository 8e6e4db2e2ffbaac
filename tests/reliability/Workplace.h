#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/Files.h"
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
    LocalTime Now() const override { return {.year = 2026, .minute = ++minutes_}; }
    void SetMinutes(int minutes) { minutes_ = minutes; }

private:
    mutable int minutes_ = 0;
};

struct FolderCopy : testing::TemporaryFolder {
    explicit FolderCopy(const std::string& folder) {
        // One by one, without what a running server holds locked.
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
            if (entry.path().extension() == ".lock") continue;
            const auto target = Path() / entry.path().lexically_relative(folder);
            entry.is_directory() ? std::filesystem::create_directory(target)
                                 : std::filesystem::copy_file(entry.path(), target);
        }
    }
};

/// An agent at work on a data folder: the photo window with everything real behind it but the screen.
class Workplace {
public:
    static constexpr const char* Listings[] = {"1001", "1002", "1003"};

    /// Makes an empty data folder with the listings and, where the host keeps them, the settings.
    static void Prepare(const std::string& dataFolder);
    /// The listings alone.
    static void AddListings(const std::string& dataFolder, const std::vector<std::string>& numbers);

    explicit Workplace(const std::string& dataFolder);

    /// The photo window, again when it was open before. When it cannot be opened, that is reported as a
    /// message.
    void Open();
    void Load(const std::string& listing) {
        window->txtID.SetText(listing);
        window->cmdAdd.Press();
    }
    void Select(const std::string& listing) {
        if (const int row = window->RecList.FindText(listing); row >= 0) window->RecList.Select(row);
    }
    /// Imports a picture of a photo's size into the selected listing, another one for every number.
    void Add(int picture);
    /// Imports one that must be made smaller.
    void AddLarge();
    void DescribeAsKitchen() { window->Menu.ClickTool("View_2117"); }
    void RemoveListing() { window->cmdRemove.Press(); }
    void Send() { window->cmdSend.Press(); }
    bool IsEmpty() const { return window == nullptr || window->RecList.Count() == 0; }

    /// What the window shows, the photos as they are on disk.
    Photos Work();
    /// What the server holds; fails the test for files that belong to nothing.
    Photos Published() { return PublishedIn(folder); }
    static Photos PublishedIn(const std::string& dataFolder);
    /// Tells the bytes of one file from those of any other.
    static std::string Identity(const std::string& path);
    /// Identity of a photo in the host's photo folder.
    std::string LocalCopy(const std::string& listing, int photo) const;
    /// The document manager with the first listing, again when it was open before.
    void OpenDocuments();
    void AddPdf() {
        desktop.Choose(CameraFile("deed.pdf", "%PDF-1.4\n" + std::string(12'000, 'd')));
        documents->ActiveBar1.ClickTool("miAddExistingFile");
    }
    void AddLink() { documents->ActiveBar1.ClickTool("miAddUrl"); }
    /// Builds a document of two pictures and edits its pages, going on with one that was begun.
    void BuildPdf() { documents->ActiveBar1.ClickTool("miMakePdf"); }
    void DeleteDocument() { documents->cmdDelete.Press(); }
    /// Pages of the document that is being built, "name/how it is turned" each.
    std::vector<std::string> DraftPages() const;
    bool HasDraftFiles() const {
        const auto isDraft = [](const std::string& name) { return name.starts_with("CreatePDFTmp"); };
        return !files::List(host.common.UserFolder(), isDraft).empty();
    }
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
    qpdf::QpdfLibrary pdf;
    std::unique_ptr<frmLumarin> window;
    std::unique_ptr<frmAddDocument> documents;
    /// What the agent says and does in the windows that open by themselves.
    std::string documentsListing = Listings[0], linkText = "Deed", linkAddress = "http://example.org/deed";
    std::function<void(frmMakePDF&)> build = [this](frmMakePDF& builder) { BuildTwoPages(builder); };
    /// Told when the builder has finished a page, or a change of its pages.
    std::function<void()> pageBuilt = [] {};

protected:
    void Play(Form& form);

private:
    JobPorts Ports() { return {{desktop, link, engine}, imaging, clock}; }
    static std::string Picture(int number);
    std::string CameraFile(const std::string& name, const std::string& bytes) const;
    void BuildTwoPages(frmMakePDF& builder);
    void EditPages(frmMakePDF& builder);

    testing::TemporaryFolder camera_;
};

/// What the next start finds in the folder, looked at in a copy.
Photos WorkOnDisk(const std::string& dataFolder);

}  // namespace lumarin::reliability
