#include "platform/windows/twain/TwainScanner.h"

#include "support/Reason.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <filesystem>
#include <functional>
#include <stdexcept>

namespace lumarin::twain {

using Colour = std::array<int, 3>;

/// The system's own source manager with the source of tests/twain_source.
class TwainScannerTest : public ::testing::Test {
protected:
    /// In the place, and under the name, at which Wine's source manager looks.
    static void SetUpTestSuite() {
        wchar_t windows[MAX_PATH];
        GetSystemWindowsDirectoryW(windows, MAX_PATH);
        const std::filesystem::path folder =
            std::filesystem::path(windows) / (sizeof(void*) == 8 ? L"twain_64" : L"twain_32");
        std::filesystem::create_directories(folder);
        std::filesystem::copy_file("TestScanner.ds", folder / "sane.ds",
                                   std::filesystem::copy_options::overwrite_existing);
    }

    static void GivenScanner(const char* plan) {
        SetEnvironmentVariableA("LUMARIN_TEST_SCANNER", plan);
        SetEnvironmentVariableA("LUMARIN_TEST_SCANNER_STATE", "3");
    }
    static bool IsLeftClosed() {
        char state[8] = "";
        GetEnvironmentVariableA("LUMARIN_TEST_SCANNER_STATE", state, sizeof state);
        return std::string(state) == "3";
    }

    /// What came of an acquisition: "2 pages, finished". `user` looks at the source's window now and then.
    static std::string Result(
        const ScanOrder& order, int enough = 99, std::function<void(int)> user = [](int) {}) {
        int pages = 0;
        std::string end;
        {
            TwainScanner scanner;
            ScanEvents events;
            events.whileWaiting = [&] { return user(pages), true; };
            events.pageArrived = [&](const ScannedPage& page) {
                EXPECT_EQ(page.number, ++pages);
                fromFeeder = page.fromFeeder;
                last = *page.picture;
                return pages < enough ? AfterPage::Continue : AfterPage::Stop;
            };
            try {
                const ScanOutcome outcome = scanner.Acquire(order, events);
                end = outcome == ScanOutcome::Finished ? "finished" : "cancelled";
            } catch (const ScannerError& error) {
                end = error.Description();
            }
        }
        EXPECT_TRUE(IsLeftClosed());
        return std::to_string(pages) + (pages == 1 ? " page, " : " pages, ") + end;
    }

    static Colour LeftPixelOfRow(int row) {
        const std::uint8_t* pixel = last.pixels.data() + std::size_t(row) * std::size_t(last.width) * 3;
        return {pixel[0], pixel[1], pixel[2]};
    }

    static inline Picture last;
    static inline bool fromFeeder = false;
};

TEST_F(TwainScannerTest, Sources_AreNamedAndCanBeNarrowed) {
    std::string named;
    for (const ScannerSource& source : TwainScanner().Sources({}))
        if (source.kind == "test device") named += source.vendor + source.model + ';';
    EXPECT_EQ(named, "Lumarin Test Scanner;Lumarin Test Camera;");
    EXPECT_EQ(TwainScanner({"Lumarin Test Camera"}).Sources({}).size(), 1u);
    EXPECT_TRUE(TwainScanner({"Nobody's"}).Sources({}).empty());
}

TEST_F(TwainScannerTest, Acquire_OnePicture_HasTheNearestResolutionAndItsColours) {
    const struct {
        const char* plan;
        int resolution, width, height;
        Colour below;
    } cases[] = {
        {"", 280, 150, 300, {100, 100, 100}},
        {"bits=8", 20, 75, 50, {100, 100, 100}},
        {"bits=1", 2400, 600, 600, {0, 0, 0}},
        {"feeder=1;pages=5", 600, 600, 600, {100, 100, 100}},
    };
    for (const auto& row : cases) {
        GivenScanner(row.plan);
        EXPECT_EQ(Result({.source = "Lumarin Test Camera", .resolution = row.resolution}), "1 page, finished")
            << row.plan;
        EXPECT_EQ(std::pair(last.width, last.height), std::pair(row.width, row.height)) << row.plan;
        EXPECT_EQ(LeftPixelOfRow(0), (Colour{255, 255, 255})) << row.plan;
        EXPECT_EQ(LeftPixelOfRow(1), row.below) << row.plan;
    }
}

TEST_F(TwainScannerTest, Acquire_Several_EndsAsItShould) {
    const struct {
        const char *plan, *result;
        bool fromFeeder = true;
    } cases[] = {
        {"feeder=1;pages=5", "5 pages, finished"},
        {"", "20 pages, finished", false},
        {"feeder=1;pages=0", "0 pages, The scanner's document feeder is empty."},
        {"feeder=1;pages=5;jam=3", "2 pages, The paper is jammed in the scanner's document feeder."},
        {"feeder=1;pages=5;lie=2", "1 page, The scanner ended the picture too early."},
        {"feeder=1;pages=5;cancel=3", "2 pages, finished"},
        {"cancel=1", "0 pages, cancelled"},
        {"dead=1",
         "0 pages, \"Lumarin Test Scanner\" cannot be opened. Connect the device, switch it on and try "
         "again."},
    };
    for (const auto& row : cases) {
        GivenScanner(row.plan);
        fromFeeder = row.fromFeeder;
        EXPECT_EQ(Result({.several = true}, 20), row.result) << row.plan;
        EXPECT_EQ(fromFeeder, row.fromFeeder) << row.plan;
    }
    EXPECT_EQ(Result({.source = "Unplugged"}), std::string("0 pages, ") + NoScannerSource);
}

TEST_F(TwainScannerTest, Acquire_SourceShowsAWindow_TakesItsKeysAndEndsWithIt) {
    GivenScanner("window=1");
    // Of a thread that answers messages of other threads only as the scanner lets it.
    const HWND owner = CreateWindowW(L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200,
                                     nullptr, nullptr, nullptr, nullptr);
    SetActiveWindow(owner);
    bool isAbove = false;
    const auto press = [&](int pages) {
        // Again and again: what comes after the first goes to a window that is gone.
        const HWND window = FindWindowW(L"LumarinTestScanner", nullptr);
        if (window == nullptr) return;
        isAbove |= GetWindow(GetWindow(window, GW_OWNER), GW_OWNER) == owner;
        if (pages < 2)
            PostMessageW(window, WM_KEYDOWN, VK_RETURN, 0);  // of its default button
        else
            PostMessageW(window, WM_CLOSE, 0, 0);
    };
    const auto close = [&](int) { press(2); };
    EXPECT_EQ(Result({.several = true}, 20, press), "2 pages, finished");
    EXPECT_EQ(Result({.several = false}, 20, close), "0 pages, cancelled");
    EXPECT_TRUE(isAbove);
    DestroyWindow(owner);
}

TEST_F(TwainScannerTest, Acquire_CallerEndsIt_DoesNotWaitForTheSourceAndCanStartAgain) {
    GivenScanner("delay=1000");
    {
        TwainScanner scanner;
        int turns = 0;
        ScanEvents events;
        events.whileWaiting = [&] {
            EXPECT_THROW(scanner.Sources({}), ScannerError);
            return ++turns < 20;
        };
        EXPECT_EQ(scanner.Acquire({}, events), ScanOutcome::Cancelled);
        EXPECT_FALSE(IsLeftClosed());  // the source still works

        const auto fail = [](const ScannedPage&) -> AfterPage { throw std::runtime_error("no room"); };
        EXPECT_THROW(scanner.Acquire({}, {.pageArrived = fail}), std::runtime_error);
        GivenScanner("");
        EXPECT_EQ(scanner.Acquire({}, {}), ScanOutcome::Finished);
    }
    EXPECT_TRUE(IsLeftClosed());
}

/// Run where the system has none.
TEST(NoManager, DISABLED_Sources_NameWhatIsMissing) {
    const std::string reason = testing::ReasonOf([] { TwainScanner().Sources({}); });
    EXPECT_TRUE(testing::Says(reason, "TWAINDSM.dll")) << reason;
}

}  // namespace lumarin::twain
