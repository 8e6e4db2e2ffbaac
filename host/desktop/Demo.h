#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>

#include "forms/Desktop.h"
#include "host/desktop/DriveClient.h"
#include "host/desktop/PublishedListing.h"
#include "imaging/Scanner.h"

namespace host {

/// Where the guided demo keeps its things, as paths that end in a separator.
struct DemoFolders {
    std::string data;       ///< the host's data folder, made for this run
    std::string originals;  ///< the pictures that are imported
    std::string shots;      ///< screenshots
};

/// Makes the folders afresh under `folder`. Throws lumarin::Error when they cannot be made.
DemoFolders PrepareDemoFolders(const std::string& folder);

/// The guided demo: takes a photo and a document all the way through the real windows, says each step
/// on standard output, and checks that the server then holds exactly what was sent. The story runs on a
/// thread of its own; the windows stay with the user interface's.
class Demo {
public:
    /// Everything outlives this. `scanner` may be null, and may reach no device: nothing is scanned then.
    Demo(Driver& driver, lumarin::Desktop& desktop, lumarin::Scanner* scanner, DemoFolders folders);
    ~Demo();

    /// `ended` is called on the user-interface thread with whether all was as it should be.
    void Start(const std::function<void(bool)>& ended);

private:
    bool Tell();
    void OpenPhotoWindow();
    void ImportLargePhoto();
    void FillSecondListing();
    void RecordWhatIsSent();
    void SendPhotos();
    void CheckServer();
    void LookWithNewWindow();
    void FindAndView();
    void Verify();
    void Scan();
    void OpenDocumentManager();
    void AddDocuments();
    void BuildPdf();
    void LookAndDelete();
    void ShowBusyWindow();

    void Step(const QString& what);
    /// The command for a picture that is named after the window.
    QString ShotOf(const QString& window, const QString& suffix = {}) const;
    void Shot(const QString& window);
    void EnterListing(const QString& number);
    void ChooseForImport(const QStringList& names);
    void Capture(const QString& description);
    void ExpectRows(const QString& list, int rows);
    void ExpectNoMessage(const QString& action);
    void ExpectStored(const QString& description, const std::string& bytes);
    void LookForTestDevice();
    /// Makes it the window's source.
    void ChooseTestDevice(const QString& window);
    std::vector<std::string> DocumentsOf(std::int32_t listing, const QString& description) const;
    QString Draw(const QString& name, int width, int height, unsigned seed);

    Driver& driver_;
    lumarin::Desktop& desktop_;
    lumarin::Scanner* scanner_;
    DemoFolders folders_;
    DriveClient client_;
    std::thread thread_;
    int step_ = 0;
    QString testDevice_;  ///< a scanner that draws its pictures itself; "" when there is none
    std::map<std::int32_t, std::vector<PhotoContent>> sent_;
};

}  // namespace host
