#include "host/desktop/Demo.h"

#include <QJsonArray>

#include <cstdio>
#include <filesystem>
#include <memory>

#include "base/FileSystem.h"
#include "base/Files.h"
#include "host/demo/LargePhoto.h"
#include "host/desktop/ProgramOptions.h"
#include "host/drive/Steps.h"
#include "util/frmBusy.h"

namespace host {

namespace {

constexpr int LargeWidth = 6000;
constexpr int LargeHeight = 4000;
constexpr int SmallWidth = 2400;
constexpr int SmallHeight = 1600;
// A drawn picture shows what its seed divided by three leaves over.
constexpr unsigned FrontScene = 0, RearScene = 1, ViewScene = 2;

void Say(const QString& text) {
    std::printf("%s\n", text.toUtf8().constData());
    std::fflush(stdout);
}

QJsonArray Rows(const QJsonObject& list) { return list["rows"].toArray(); }

}  // namespace

DemoFolders PrepareDemoFolders(const std::string& folder) {
    const std::string root = AbsolutePath(folder) + lumarin::files::Separator;
    DemoFolders folders{root + "data/", root + "originals/", root};
    for (const std::string& own : {folders.data, folders.originals}) {
        std::filesystem::remove_all(lumarin::files::ToPath(own));
        lumarin::files::EnsureFolder(own);
    }
    return folders;
}

Demo::Demo(Driver& driver, lumarin::Desktop& desktop, lumarin::Scanner* scanner, DemoFolders folders)
    : driver_(driver), desktop_(desktop), scanner_(scanner), folders_(std::move(folders)), client_(driver) {}

Demo::~Demo() {
    if (thread_.joinable()) thread_.join();
}

void Demo::Start(const std::function<void(bool)>& ended) {
    thread_ = std::thread([this, ended] {
        const bool succeeded = Tell();
        QMetaObject::invokeMethod(
            &driver_, [ended, succeeded] { ended(succeeded); }, Qt::QueuedConnection);
    });
}

bool Demo::Tell() {
    try {
        OpenPhotoWindow();
        ImportLargePhoto();
        FillSecondListing();
        RecordWhatIsSent();
        SendPhotos();
        CheckServer();
        LookWithNewWindow();
        FindAndView();
        Verify();
        Scan();
        OpenDocumentManager();
        AddDocuments();
        BuildPdf();
        LookAndDelete();
        ShowBusyWindow();
    } catch (const std::exception& error) {
        Say(QString("FAILED: ") + error.what());
        return false;
    }
    Say("The demo went well. Screenshots: " + QString::fromStdString(folders_.shots));
    return true;
}

void Demo::OpenPhotoWindow() {
    Step("The host's main window shows who is signed in and the listings");
    client_.Do("wait frmMain");
    Shot("frmMain");
    Step("The tool \"Photos\" opens the photo window; listing 100123 comes with its 3 photos");
    client_.DoAll(steps::OpenPhotos());
    if (client_.Get("frmMain.Photos")["enabled"].toBool())
        throw DemoFailure("A second window could be opened");
    EnterListing("100123");
    ExpectRows("frmLumarin.PhotoList", 3);
}

void Demo::ImportLargePhoto() {
    Step("Open: a JPEG of 24 megapixels goes into the crop window");
    const QString name = Draw("pool.jpg", LargeWidth, LargeHeight, RearScene + 6);
    ChooseForImport({name});
    const QJsonArray picture = client_.Get("frmPhotoCrop.Preview")["place"].toArray();
    const QJsonArray box = client_.Get("frmPhotoCrop.CropBox")["box"].toArray();
    const int x = box[0].toInt() + box[2].toInt() / 2 - picture[0].toInt();
    const int y = box[1].toInt() + box[3].toInt() / 2 - picture[1].toInt();
    Step("The box is narrowed at its right edge and moved, the sliders make the picture a little brighter");
    const int right = box[0].toInt() + box[2].toInt() - picture[0].toInt() - 4;
    client_.Do(QString("drag frmPhotoCrop.Preview %1 %2 %3 %2").arg(right).arg(y).arg(right - 60));
    client_.Do(QString("drag frmPhotoCrop.Preview %1 %2 %3 %4").arg(x - 40).arg(y).arg(x - 10).arg(y - 12));
    const QJsonArray dragged = client_.Get("frmPhotoCrop.CropBox")["box"].toArray();
    if (dragged[0].toInt() <= box[0].toInt() || dragged[2].toInt() >= box[2].toInt())
        throw DemoFailure("The crop box did not follow the mouse");
    client_.Do("set frmPhotoCrop.hsbControl(0) 60");
    client_.Do("set frmPhotoCrop.hsbControl(1) 40");
    client_.Do("set frmPhotoCrop.cmbView Pool");
    Shot("frmPhotoCrop");
    Capture("Pool");
    ExpectRows("frmLumarin.PhotoList", 4);
}

void Demo::FillSecondListing() {
    Step("Listing 100124 gets three photos at once");
    EnterListing("100124");
    ExpectRows("frmLumarin.PhotoList", 0);
    ChooseForImport({Draw("1 rear.jpg", SmallWidth, SmallHeight, RearScene + 12),
                     Draw("2 view.jpg", SmallWidth, SmallHeight, ViewScene + 21),
                     Draw("3 front.jpg", SmallWidth, SmallHeight, FrontScene + 12)});
    for (const char* description : {"Rear", "View", "Front"}) {
        client_.Do("wait frmPhotoCrop");
        Capture(description);
    }
    ExpectRows("frmLumarin.PhotoList", 3);
    Step("The last one is moved to the top, the last but one is deleted");
    client_.Do("select frmLumarin.PhotoList 2");
    client_.Do("press frmLumarin.cmdMove(0)");
    client_.Do("press frmLumarin.cmdMove(0)");
    client_.Do("select frmLumarin.PhotoList 1");
    client_.Do("tool frmLumarin.DeletePhoto");
    ExpectRows("frmLumarin.PhotoList", 2);
    client_.Do("select frmLumarin.PhotoList 0");
    Shot("frmLumarin");
}

void Demo::RecordWhatIsSent() {
    const std::string working = folders_.data + "user/Photo Import/";
    const QJsonArray listings = Rows(client_.Get("frmLumarin.RecList"));
    for (int row = 0; row < listings.size(); ++row) {
        client_.Do(QString("select frmLumarin.RecList %1").arg(row));
        const QString number = listings[row].toArray()[0].toString();
        std::vector<PhotoContent>& photos = sent_[number.toInt()];
        char letter = 'a';
        for (const auto& photo : Rows(client_.Get("frmLumarin.PhotoList")))
            photos.push_back({lumarin::files::ReadAll(working + number.toStdString() + letter++ + ".jpg"),
                              photo.toArray()[0].toString().toStdString()});
    }
    if (sent_.size() != 2) throw DemoFailure(QString("There should be 2 listings, not %1").arg(sent_.size()));
}

void Demo::SendPhotos() {
    Step("Send Photos: everything goes to the server in one package");
    client_.DoAll({"tool frmLumarin.SendPhotos", "wait frmProgress", ShotOf("frmProgress")});
    if (!client_.Do("message").isNull()) throw DemoFailure("The send asks something that it should not ask");
    ExpectRows("frmLumarin.RecList", 0);
}

void Demo::CheckServer() {
    Step("The server holds exactly what was sent");
    for (const auto& [listing, photos] : sent_) {
        const std::vector<PhotoContent> held = PublishedListing(folders_.data, listing);
        if (held != photos)
            throw DemoFailure(QString("The server's photos of %1 are not those that were sent").arg(listing));
        Say(QString("   %1: %2 photos, the same bytes in the same order with the same descriptions")
                .arg(listing)
                .arg(photos.size()));
    }
}

void Demo::LookWithNewWindow() {
    Step("A new photo window loads 4 photos for 100123 and 2 for 100124");
    client_.Do("close frmLumarin");
    const QJsonArray line{"100123", "Sale", "1420 N Oak Street", "A101", "Active", "4"};
    if (!Rows(client_.Get("frmMain.Listings")).contains(line))
        throw DemoFailure("The start page does not show the photos that were sent");
    client_.DoAll(steps::OpenPhotos());
    EnterListing("100124");
    ExpectRows("frmLumarin.PhotoList", 2);
    EnterListing("100123");
    ExpectRows("frmLumarin.PhotoList", 4);
    client_.Do("select frmLumarin.PhotoList 3");
    client_.Do(ShotOf("frmLumarin", "-sent"));
}

void Demo::FindAndView() {
    Step("Browse finds a listing by the name of its owner; Enter shows its photo in the viewer");
    client_.DoAll(steps::SearchOwner("Patrick O'Br"));
    ExpectRows("frmFindProperty.List", 1);
    client_.Do("select frmFindProperty.List 0");
    Shot("frmFindProperty");
    client_.DoAll({"press frmFindProperty.cmdOK", "key frmLumarin.PhotoList Enter", "wait frmPhotoViewer"});
    Shot("frmPhotoViewer");
    client_.Do("close frmPhotoViewer");
}

void Demo::Verify() {
    Step("Verify Photos: the photos on this computer are those that the server lists");
    client_.DoAll({"tool frmLumarin.VerifyPhotos", "wait frmVerifyPhotos", "press frmVerifyPhotos.cmdStart"});
    const QString status = client_.Get("frmVerifyPhotos.lblStatus")["text"].toString();
    if (status != "Verify completed successfully")
        throw DemoFailure("The verification ended with: " + status);
    Shot("frmVerifyPhotos");
    client_.Do("press frmVerifyPhotos.cmdExit");
}

void Demo::LookForTestDevice() {
    if (!client_.Get("frmLumarin.SelectSource")["enabled"].toBool()) return;
    std::vector<lumarin::ScannerSource> sources;
    client_.OnUserInterface([&] {
        try {
            if (scanner_ != nullptr) sources = scanner_->Sources({});
        } catch (const lumarin::ScannerError& error) {
            Say(error.what());
        }
    });
    if (!sources.empty()) testDevice_ = QString::fromStdString(sources.front().name);
}

void Demo::ChooseTestDevice(const QString& window) {
    client_.DoAll({"tool " + window + ".SelectSource", "wait frmSelectSource"});
    const QJsonArray sources = Rows(client_.Get("frmSelectSource.lisSources"));
    for (int row = 0; row < sources.size(); ++row)
        if (sources[row].toArray().last().toString() == testDevice_)
            client_.Do(QString("select frmSelectSource.lisSources %1").arg(row));
    Shot("frmSelectSource");
    client_.Do("press frmSelectSource.cmdOK");
}

void Demo::Scan() {
    LookForTestDevice();
    if (testDevice_.isEmpty()) {
        Step("There is no test device for scanners here, so nothing is scanned");
        client_.Do("close frmLumarin");
        return;
    }
    Step("A picture from the scanner library's test device goes through the crop window");
    ChooseTestDevice("frmLumarin");
    client_.DoAll({"tool frmLumarin.AcquireSingle", "wait frmAcquire", ShotOf("frmAcquire")});
    client_.Do("wait frmPhotoCrop");
    client_.Do(ShotOf("frmPhotoCrop", "-scan"));
    client_.DoAll({"press frmPhotoCrop.cmdCancel", "close frmLumarin"});
}

void Demo::ShowBusyWindow() {
    Step("The window that asks for patience");
    lumarin::frmBusy* busy = nullptr;
    client_.OnUserInterface([&] {
        busy = new lumarin::frmBusy(desktop_);
        busy->Show(nullptr);
    });
    client_.Do("wait frmBusy");
    Shot("frmBusy");
    client_.OnUserInterface([&] { delete busy; });
}

void Demo::Step(const QString& what) { Say(QString("%1. %2").arg(++step_).arg(what)); }

QString Demo::ShotOf(const QString& window, const QString& suffix) const {
    return "shot " + window + ' ' + Quoted(QString::fromStdString(folders_.shots) + window + suffix + ".png");
}

void Demo::Shot(const QString& window) { client_.Do(ShotOf(window)); }

void Demo::ExpectNoMessage(const QString& action) {
    const QJsonValue message = client_.Do("message");
    if (!message.isNull()) throw DemoFailure(action + " says: " + message.toObject()["text"].toString());
}

void Demo::EnterListing(const QString& number) {
    client_.DoAll(steps::EnterListing(number));
    ExpectNoMessage("Opening listing " + number);
}

void Demo::ChooseForImport(const QStringList& names) { client_.DoAll(steps::OpenFiles(names)); }

void Demo::Capture(const QString& description) {
    client_.DoAll(steps::Capture(description));
    ExpectNoMessage("Capturing");
}

void Demo::ExpectRows(const QString& list, int rows) {
    const qsizetype found = Rows(client_.Get(list)).size();
    if (found != rows)
        throw DemoFailure(QString("%1 should have %2 rows and has %3").arg(list).arg(rows).arg(found));
}

QString Demo::Draw(const QString& name, int width, int height, unsigned seed) {
    const std::string path = folders_.originals + name.toStdString();
    DrawLargePhoto(path, width, height, seed);
    return QString::fromStdString(path);
}

}  // namespace host
