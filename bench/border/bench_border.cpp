// bench_border FOLDER ROUNDS [JOB]: the same work with the host's services as they are, and with the
// automation border between them and the component, by turns in one process. Makes the data folder when it is
// not there. Prints a line for each: what, the best times in milliseconds without and with the border, their
// ratio, and the most it may be; fails when one is more.

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <limits>
#include <stdexcept>
#include <string>

#include "automation/ports/HostCommon.h"
#include "base/Clock.h"
#include "base/FileSystem.h"
#include "base/Files.h"
#include "bench/host/NobodysDesktop.h"
#include "host/automation/VelCommonObject.h"
#include "host/database/Schema.h"
#include "host/demo/LargePhoto.h"
#include "host/services/DataFolder.h"
#include "host/services/HostVelCommon.h"
#include "listing/ListingFiles.h"
#include "listing/StateFile.h"
#include "lookup/frmFindProperty.h"
#include "photo_window/frmLumarin.h"
#include "platform/qt/QtDesktop.h"
#include "platform/vips/VipsImaging.h"
#include "platform/zip/LibzipArchiver.h"

namespace {

using namespace lumarin;

constexpr int SearchRows = 100'000;
constexpr int Listings = 10, PhotosEach = 10;
constexpr int FirstSent = 500'000;

enum class Border { None, Automation };

using Stopwatch = std::chrono::steady_clock;

double Milliseconds(Stopwatch::duration taken) {
    return std::chrono::duration<double, std::milli>(taken).count();
}

double MillisecondsOf(const std::function<void()>& work) {
    const Stopwatch::time_point start = Stopwatch::now();
    work();
    return Milliseconds(Stopwatch::now() - start);
}

[[noreturn]] void Fail(const std::string& reason) { throw std::runtime_error(reason); }

/// A component and its host, with nobody at the screen.
class Workplace : private HostMainForm {
public:
    Workplace(const std::string& folder, Border border) : common_({.dataFolder = folder}, *this, nullptr) {
        if (border == Border::Automation)
            across_.emplace(automation::Object(
                automation::MakeObject<host::VelCommonObject>(common_, [] { return std::intptr_t{0}; }),
                "VelCommon"));
        link_.Set(across_ ? static_cast<VelCommon&>(*across_) : common_);
    }

    /// Until all rows are in the list of the search window and it is painted.
    double Search() {
        qt::QtDesktop desktop(qt::WindowSizes::AsDesigned);
        frmFindProperty window({desktop, link_, engine_});
        Stopwatch::time_point start, end;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            if (window.tmrRows.Enabled()) return;
            poll.stop();
            static_cast<QWidget*>(window.NativeWindow())->repaint();
            end = Stopwatch::now();
            window.cmdCancel.Press();
        });
        QTimer::singleShot(0, &poll, [&] {
            start = Stopwatch::now();
            window.cmdShowMatches.Press();
            poll.start(1);
        });
        std::vector<std::string> selected;
        window.FindProperty(ListingSearch(), frmFindProperty::SetUpList, 0, 0, selected);
        if (window.List.Count() < SearchRows) Fail("The search found too little");
        return Milliseconds(end - start);
    }

    /// Takes up listings with published photos.
    double Load() {
        std::filesystem::remove_all(files::ToPath(common_.PhotoFolder()));
        EmptyWorkingFolder();
        const auto window = Open();
        return MillisecondsOf([&] {
            for (int listing = 0; listing < Listings; ++listing) {
                window->txtID.SetText(std::to_string(FirstSent + listing));
                window->cmdAdd.Press();
                if (window->PhotoList.Count() != PhotosEach) Fail("A listing lacks photos");
            }
        });
    }

    /// Sends photos that were gathered before.
    double Send(const std::string& photo) {
        EmptyWorkingFolder();
        for (int listing = 0; listing < Listings; ++listing) Gather(FirstSent + listing, photo);
        const auto window = Open();
        const double taken = MillisecondsOf([&] { window->cmdSend.Press(); });
        if (window->RecList.Count() != 0) Fail("The photos were not sent");
        return taken;
    }

private:
    void* NativeWindow() const override { return nullptr; }
    int Switch() const override { return 0; }
    void Prog(int, int) override {}

    std::string WorkingFolder() const { return common_.UserFolder() + "Photo Import" + files::Separator; }
    void EmptyWorkingFolder() { std::filesystem::remove_all(files::ToPath(WorkingFolder())); }

    void Gather(int listing, const std::string& photo) {
        ListingState state;
        state.ListNum = listing;
        state.PhotoCount = PhotosEach;
        files::EnsureFolder(WorkingFolder());
        for (int number = 0; number < PhotosEach; ++number) {
            state.Photos[static_cast<std::size_t>(number)] = {"2110", "Front", ""};
            files::WriteWhole(WorkingFolder() + listing_files::PhotoName(listing, number), photo);
        }
        state_file::Write(WorkingFolder() + listing_files::StateName(listing), state);
    }

    std::unique_ptr<frmLumarin> Open() {
        auto window = std::make_unique<frmLumarin>(
            PhotoWindowPorts{{{desktop_, link_, engine_}, imaging_, clock_}, archiver_});
        window->Init(1);
        window->Show(nullptr);
        return window;
    }

    host::HostVelCommon common_;
    std::optional<automation::HostCommon> across_;
    HostLink link_;
    NobodysDesktop desktop_;
    vips::VipsImaging imaging_;
    zip::LibzipArchiver archiver_;
    SystemClock clock_;
    NoEngineVersion engine_;
};

void Prepare(const std::string& folder) {
    host::PrepareDataFolder(folder);
    files::WriteWhole(folder + "city/CityInfo.ini",
                      "[Lumarin]\r\nPhoto Size=480,300,35,200000,4\r\nPhoto Maximum=20\r\n");
    host::Database database(host::DatabasePath(folder), host::DatabaseUse::Changes);
    host::EnsureSchema(database);
    host::Transaction transaction(database);
    const auto add = [&](int first, int count) {
        database.Run(
            "WITH RECURSIVE numbers(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM numbers WHERE n < " +
            std::to_string(count - 1) +
            ") INSERT OR IGNORE INTO Listings (ListNum, StreetNumber, StreetName, OwnerName, LstStatus,"
            " ListOfficeId, ListAgentId, BoardId) SELECT " +
            std::to_string(first) +
            " + n, 1 + n % 9000, 'Old Mill Lane ' || n % 300, 'Owner Number ' || n, 2001 + n % 7, 'OF1', "
            "'A101', 1 FROM numbers");
    };
    add(1'000'000, SearchRows);
    add(FirstSent, Listings);
    transaction.Commit();
}

bool Compare(const std::string& what, int rounds, double most, const std::function<double(Border)>& work) {
    double best[] = {std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
    for (int round = 0; round < rounds; ++round)
        for (const Border border : {Border::None, Border::Automation}) {
            double& mine = best[static_cast<int>(border)];
            mine = std::min(mine, work(border));
        }
    const double ratio = best[1] / best[0];
    std::printf("%s %.1f %.1f %.2f %.1f\n", what.c_str(), best[0], best[1], ratio, most);
    std::fflush(stdout);
    return ratio <= most;
}

}  // namespace

int main(int count, char** arguments) {
    if (count != 3 && count != 4) return 2;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(count, arguments);
    qt::SetUpApplication(application);
    try {
        const std::string folder = std::string(arguments[1]) + "/";
        const int rounds = std::stoi(arguments[2]);
        Prepare(folder);
        host::DrawLargePhoto(folder + "photo.jpg", 480, 300, 1);
        const std::string photo = files::ReadAll(folder + "photo.jpg");
        const struct {
            std::string name;
            double most;
            std::function<double(Border)> work;
        } jobs[] = {
            {"send", 1.1, [&](Border border) { return Workplace(folder, border).Send(photo); }},
            {"listing", 1.2, [&](Border border) { return Workplace(folder, border).Load(); }},
            {"search", 1.5, [&](Border border) { return Workplace(folder, border).Search(); }},
        };
        bool good = true;
        for (const auto& job : jobs)
            if (count == 3 || job.name == arguments[3]) good &= Compare(job.name, rounds, job.most, job.work);
        return good ? 0 : 1;
    } catch (const std::exception& error) {
        return std::fprintf(stderr, "bench_border: %s\n", error.what()), 2;
    }
}
