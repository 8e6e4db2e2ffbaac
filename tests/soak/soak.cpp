// A long day's work through the real windows: listings are taken up, photos imported, arranged, described and
// sent, listings searched, documents built, windows closed and opened again. Ends non-zero when memory or the
// number of open files grew, a step became slower, or the server does not have everything. Usage: soak
// PROGRAM LISTINGS PHOTOS SLOWER, the photos of each listing and how many times slower the last steps may be
// than the first.

#include <unistd.h>
#include <QProcess>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <map>
#include <stdexcept>

#include "base/Files.h"
#include "host/database/Schema.h"
#include "host/demo/LargePhoto.h"
#include "support/TemporaryFolder.h"

namespace {

constexpr int Patience = 60000;
constexpr int FirstListing = 600001;
constexpr int SentTogether = 10;
constexpr unsigned Pictures = 8;
/// The toolkit's and the allocator's caches fill up this long.
constexpr double WarmUp = 0.3;
constexpr double GrowthMegabytes = 8;
constexpr std::size_t Compared = 50;
/// Fewer times of a step say nothing.
constexpr std::size_t FewestJudged = 20;
/// A step that takes less is never too slow: the machine's own noise is of this size.
constexpr double SmallestMilliseconds = 5;

/// What a running program holds at a moment.
struct Holdings {
    double megabytes = 0;
    int descriptors = 0;
};

[[noreturn]] void Fail(const QString& reason) { throw std::runtime_error(reason.toStdString()); }

/// The program, driven command by command. Everything throws std::runtime_error when the program cannot be
/// started, ended, stalled or could not do a command.
class ProgramSession {
public:
    ProgramSession(const QString& program, const QStringList& arguments) {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(program, arguments + QStringList{"--drive", "-"});
        if (!process_.waitForStarted()) Fail("cannot start " + program);
    }

    QByteArray Ask(const QString& command) {
        process_.write(command.toUtf8() + '\n');
        while (!process_.canReadLine())
            if (!process_.waitForReadyRead(Patience)) Fail("no answer to " + command);
        QByteArray answer = process_.readLine();
        if (answer.startsWith("{\"error\"")) Fail(command + ": " + answer + Ask("message"));
        return answer;
    }

    /// Does the commands and counts their time together as one step of this kind.
    void Step(const std::string& kind, const QStringList& commands) {
        const auto start = std::chrono::steady_clock::now();
        for (const QString& command : commands) Ask(command);
        const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
        times[kind].push_back(taken.count());
    }

    Holdings Held() const {
        const std::string folder = "/proc/" + std::to_string(process_.processId());
        long size = 0, resident = 0;
        std::ifstream(folder + "/statm") >> size >> resident;
        const std::filesystem::directory_iterator descriptors(folder + "/fd");
        return {static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / 1'048'576,
                static_cast<int>(std::distance(begin(descriptors), end(descriptors)))};
    }

    bool EndsWell() {
        Ask("quit");
        if (!process_.waitForFinished(Patience)) Fail("the program does not end");
        return process_.exitStatus() == QProcess::NormalExit && process_.exitCode() == 0;
    }

    /// Milliseconds of every step so far, by kind, in order.
    std::map<std::string, std::vector<double>> times;

private:
    QProcess process_;
};

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

std::string PicturePath(const std::string& folder, int number) {
    return folder + "picture " + std::to_string(static_cast<unsigned>(number) % Pictures) + ".jpg";
}

QString Quoted(const std::string& text) { return " \"" + QString::fromStdString(text) + '"'; }

/// One listing: photos opened, pasted and dropped, one removed, moved, described and viewed.
void WorkOnListing(ProgramSession& program, const std::string& pictures, int listing, int photos) {
    const auto quoted = [&](int photo) { return Quoted(PicturePath(pictures, listing + photo)); };
    program.Step("take up", {"set frmLumarin.txtID " + QString::number(FirstListing + listing),
                             "key frmLumarin.txtID Enter"});
    program.Step("open", {"tool frmLumarin.Open", "choose" + quoted(0), "wait frmPhotoCrop"});
    program.Step("capture", {"press frmPhotoCrop.cmdCapture"});
    program.Step("paste", {"tool frmLumarin.Copy", "tool frmLumarin.Paste", "wait frmPhotoCrop"});
    program.Step("capture", {"press frmPhotoCrop.cmdCapture"});
    program.Step("remove", {"select frmLumarin.PhotoList 0", "tool frmLumarin.DeletePhoto"});
    QString dropped;
    for (int photo = 1; photo < photos; ++photo) dropped += quoted(photo);
    program.Step("drop", {"drop frmLumarin.PhotoList" + dropped, "wait frmPhotoCrop"});
    for (int photo = 1; photo < photos; ++photo) {
        program.Step("adjust", {"set frmPhotoCrop.hsbControl(0) " + QString::number(photo * 20 - 100)});
        program.Step("capture", {"press frmPhotoCrop.cmdCapture"});
    }
    program.Step("arrange", {"select frmLumarin.PhotoList 1", "press frmLumarin.cmdMove(0)",
                             "key frmLumarin.PhotoList Ctrl+Down", "tool frmLumarin.View_2117"});
    program.Step("view", {"double frmLumarin.PhotoList 0", "wait frmPhotoViewer", "close frmPhotoViewer"});
    program.Step("search", {"press frmLumarin.cmdBrowse", "wait frmFindProperty",
                            "set frmFindProperty.txtOwnerName Many", "press frmFindProperty.cmdShowMatches",
                            "press frmFindProperty.cmdCancel"});
}

/// A document of three pages for the listing that was sent last.
void WorkOnDocuments(ProgramSession& program, const std::string& pictures, int listing) {
    program.Step("documents",
                 {"tool frmMain.Documents", "wait frmListnumPrompt",
                  "set frmListnumPrompt.txtPropertyId " + QString::number(FirstListing + listing),
                  "press frmListnumPrompt.cmdOK", "wait frmAddDocument"});
    QString pages = "drop frmMakePDF.lbmBM";
    for (int page = 0; page < 3; ++page) pages += Quoted(PicturePath(pictures, page));
    program.Step("pdf", {"tool frmAddDocument.miMakePdf", "wait frmMakePDF",
                         "set frmMakePDF.cboDocType \"Black & White 1-bit (Smallest file)\"", pages,
                         "set frmMakePDF.txtLinkText Plan", "press frmMakePDF.cmdOK",
                         "get frmAddDocument.lvFiles", "close frmAddDocument"});
}

void SendAndBeginAnew(ProgramSession& program) {
    program.Step("send", {"press frmLumarin.cmdSend", "get frmLumarin.RecList"});
    program.Step("window", {"close frmLumarin", "answer No", "tool frmMain.Photos", "wait frmLumarin"});
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Prints the figures; false when one of them is not as it should be.
bool Judge(const ProgramSession& program, const std::vector<Holdings>& held, double slower) {
    const Holdings &warm = held[static_cast<std::size_t>(WarmUp * static_cast<double>(held.size()))],
                   &last = held.back();
    bool good = last.descriptors <= warm.descriptors &&
                last.megabytes <= warm.megabytes + std::max(GrowthMegabytes, warm.megabytes / 10);
    std::printf("memory      %8.1f MB  then %8.1f MB\nopen files  %8d     then %8d\n", warm.megabytes,
                last.megabytes, warm.descriptors, last.descriptors);
    for (const auto& [kind, times] : program.times) {
        const auto some = static_cast<std::ptrdiff_t>(std::min(Compared, (times.size() + 1) / 2));
        const double first = Median({times.begin(), times.begin() + some});
        const double now = Median({times.end() - some, times.end()});
        std::printf("%-11s %8.2f ms  then %8.2f ms  (%zu)\n", kind.c_str(), first, now, times.size());
        good = good && (times.size() < FewestJudged || now <= std::max(first, SmallestMilliseconds) * slower);
    }
    return good;
}

/// The rows of a table of the server's that belong to the listings.
std::int64_t CountAtServer(const std::string& folder, const std::string& from) {
    host::Database database(host::DatabasePath(folder), host::DatabaseUse::Queries);
    host::Statement count(database, "SELECT count(*) FROM " + from + " >= ?");
    count.Bind(1, std::int64_t{FirstListing}).Step();
    return count.Integer(0);
}

int Run(const QString& programPath, int listings, int photos, double slower) {
    const lumarin::testing::TemporaryFolder folder;
    PrepareListings(folder.Path(), listings);
    for (int i = 0; i < static_cast<int>(Pictures); ++i)
        host::DrawLargePhoto(PicturePath(folder.Path(), i), 1200, 800, static_cast<unsigned>(i));
    ProgramSession program(programPath, {"--data", QString::fromStdString(folder.Path()), "--photos"});
    program.Ask("wait frmLumarin 20000");
    std::vector<Holdings> held;
    for (int listing = 0; listing < listings; ++listing) {
        WorkOnListing(program, folder.Path(), listing, photos);
        if ((listing + 1) % SentTogether != 0) continue;
        SendAndBeginAnew(program);
        WorkOnDocuments(program, folder.Path(), listing);
        held.push_back(program.Held());
    }
    bool good = Judge(program, held, slower);
    good = program.EndsWell() && good;
    const std::int64_t sent = CountAtServer(folder.Path(), "ServerPhotos WHERE ListNum");
    const std::int64_t documents = CountAtServer(folder.Path(), "Documents WHERE DocListNum");
    const int wanted = listings * photos;
    std::printf("at the server: %d photos of %d, %d documents of %zu\n", static_cast<int>(sent), wanted,
                static_cast<int>(documents), held.size());
    return good && sent == wanted && documents == std::ssize(held) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) return std::fprintf(stderr, "usage: soak PROGRAM LISTINGS PHOTOS SLOWER\n"), 2;
    try {
        return Run(argv[1], std::stoi(argv[2]), std::stoi(argv[3]), std::stod(argv[4]));
    } catch (const std::exception& error) {
        return std::fprintf(stderr, "soak: %s\n", error.what()), 1;
    }
}
