#include "bench/day/WorkingDay.h"

#include <QTemporaryDir>

#include <filesystem>
#include <fstream>

#include "base/Files.h"
#include "bench/day/ProgramSession.h"
#include "host/database/Schema.h"
#include "host/demo/LargePhoto.h"
#include "host/drive/Steps.h"

namespace bench {

namespace {

namespace steps = host::steps;

constexpr int FirstListing = 600001;
constexpr int SentTogether = 10;
constexpr unsigned Pictures = 8;

void PrepareListings(const std::string& folder, int count) {
    lumarin::files::EnsureFolder(folder);
    host::Database database(host::DatabasePath(folder), host::DatabaseUse::Changes);
    host::EnsureSchema(database);
    host::Statement insert(database,
                           "INSERT INTO Listings (ListNum, StreetNumber, StreetName, OwnerName, ListAgentId)"
                           " VALUES (?, ?, 'Long Street', 'Many', 'A101')");
    for (int i = 0; i < count; ++i)
        insert.Bind(1, std::int64_t{FirstListing + i}).Bind(2, std::int64_t{i}).Finish();
}

QString PicturePath(const std::string& folder, int number) {
    const unsigned picture = static_cast<unsigned>(number) % Pictures;
    return QString::fromStdString(folder + "picture " + std::to_string(picture) + ".jpg");
}

QString Number(int listing) { return QString::number(FirstListing + listing); }

/// One listing: photos opened, pasted and dropped, one removed, moved, described and viewed.
void WorkOnListing(ProgramSession& program, const std::string& pictures, int listing, int photos) {
    program.Step("take up", steps::EnterListing(Number(listing)));
    program.Step("open", steps::OpenFiles({PicturePath(pictures, listing)}));
    program.Step("capture", steps::Capture());
    program.Step("paste", {"tool frmLumarin.Copy", "tool frmLumarin.Paste", "wait frmPhotoCrop"});
    program.Step("capture", steps::Capture());
    program.Step("remove", {"select frmLumarin.PhotoList 0", "tool frmLumarin.DeletePhoto"});
    QStringList dropped;
    for (int photo = 1; photo < photos; ++photo) dropped += PicturePath(pictures, listing + photo);
    program.Step("drop", steps::DropPhotos(dropped));
    for (int photo = 1; photo < photos; ++photo) {
        program.Step("adjust", {"set frmPhotoCrop.hsbControl(0) " + QString::number(photo * 20 - 100)});
        program.Step("capture", steps::Capture());
    }
    program.Step("arrange", {"select frmLumarin.PhotoList 1", "press frmLumarin.cmdMove(0)",
                             "key frmLumarin.PhotoList Ctrl+Down", "tool frmLumarin.View_2117"});
    program.Step("view", {"double frmLumarin.PhotoList 0", "wait frmPhotoViewer", "close frmPhotoViewer"});
    program.Step("search", steps::SearchOwner("Many") + QStringList{"press frmFindProperty.cmdCancel"});
}

/// A document of three pages for the listing that was sent last.
void WorkOnDocuments(ProgramSession& program, const std::string& pictures, int listing) {
    program.Step("documents", steps::OpenDocuments(Number(listing)));
    QString pages = "drop frmMakePDF.lbmBM";
    for (int page = 0; page < 3; ++page) pages += ' ' + host::Quoted(PicturePath(pictures, page));
    program.Step("pdf", steps::BeginPdf() + steps::ChooseBlackAndWhite() + QStringList{pages} +
                            steps::EndPdf("Plan") +
                            QStringList{"get frmAddDocument.lvFiles", "close frmAddDocument"});
}

void SendAndBeginAnew(ProgramSession& program) {
    program.Step("send", {"press frmLumarin.cmdSend", "get frmLumarin.RecList"});
    program.Step("window", QStringList{"close frmLumarin", "answer No"} + steps::OpenPhotos());
}

/// The rows of a table of the server's that belong to the listings.
int CountAtServer(const std::string& folder, const std::string& from) {
    host::Database database(host::DatabasePath(folder), host::DatabaseUse::Queries);
    host::Statement count(database, "SELECT count(*) FROM " + from + " >= ?");
    count.Bind(1, std::int64_t{FirstListing}).Step();
    return static_cast<int>(count.Integer(0));
}

/// Half-written files anywhere, and whatever lies where only unfinished work lies.
std::vector<std::string> LeftFiles(const std::string& folder) {
    std::vector<std::string> left;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        const std::string path = entry.path().string().substr(folder.size());
        const bool unfinished = path.ends_with(".part") || path.ends_with(".tmp");
        bool ofWork = false;
        for (const char* place : {"user/Photo Import/", "user/CreatePDFTmp", "server/spool/"})
            ofWork = ofWork || path.starts_with(place);
        if (entry.is_regular_file() && (unfinished || ofWork)) left.push_back(path);
    }
    return left;
}

}  // namespace

WorkingDay WorkThrough(const QString& programPath, int listings, int photos) {
    const QTemporaryDir folder;
    const std::string pictures = folder.path().toStdString() + "/pictures/",
                      data = folder.path().toStdString() + "/data/";
    lumarin::files::EnsureFolder(pictures);
    PrepareListings(data, listings);
    for (int i = 0; i < static_cast<int>(Pictures); ++i)
        host::DrawLargePhoto(PicturePath(pictures, i).toStdString(), 1200, 800, static_cast<unsigned>(i));
    ProgramSession program(programPath, {"--data", QString::fromStdString(data), "--photos"});
    program.Ask("wait frmLumarin");
    WorkingDay day;
    for (int listing = 0; listing < listings; ++listing) {
        WorkOnListing(program, pictures, listing, photos);
        if ((listing + 1) % SentTogether != 0) continue;
        SendAndBeginAnew(program);
        WorkOnDocuments(program, pictures, listing);
        ++day.documents;
        day.held.push_back(program.Held());
    }
    program.End();
    day.times = program.times;
    day.photosAtServer = CountAtServer(data, "ServerPhotos WHERE ListNum");
    day.documentsAtServer = CountAtServer(data, "Documents WHERE DocListNum");
    day.leftFiles = LeftFiles(data);
    return day;
}

}  // namespace bench
