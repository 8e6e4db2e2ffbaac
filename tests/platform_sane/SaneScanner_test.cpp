#include "platform/sane/SaneScanner.h"

#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <functional>
#include <stdexcept>

namespace lumarin {
namespace {

using lumarin::testing::TemporaryFolder;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// A configuration of the scanner library with its own test device or none, never the machine's.
class SaneScannerTest : public ::testing::Test {
protected:
    static SaneScanner::Setup GivenDevices(int count, SaneSettings settings = {}) {
        std::ofstream(Folder() + "dll.conf") << (count > 0 ? "test\n" : "\n");
        std::ofstream(Folder() + "test.conf") << "number_of_devices " << count << "\n";
        return {Folder(), std::move(settings)};
    }

    static Picture Scan(const SaneSettings& settings) {
        SaneScanner scanner(GivenDevices(1, settings));
        Picture scanned;
        EXPECT_EQ(scanner.Acquire(SmallOrder(), AtEachPage([&](const ScannedPage& page) {
                                      scanned = *page.picture;
                                      return AfterPage::Continue;
                                  })),
                  ScanOutcome::Finished);
        return scanned;
    }
    static ScanEvents AtEachPage(std::function<AfterPage(const ScannedPage&)> arrived) {
        ScanEvents events;
        events.pageArrived = std::move(arrived);
        return events;
    }
    /// What the user is told.
    static std::string Failure(const SaneScanner::Setup& setup) {
        try {
            SaneScanner(setup).Acquire(SmallOrder(), {});
            return "nothing";
        } catch (const ScannerError& error) {
            return error.Description();
        }
    }

    static ScanOrder SmallOrder() { return {.source = "", .several = false, .resolution = 20}; }
    static ScanOrder SeveralPages() { return {.source = "", .several = true, .resolution = 20}; }

private:
    /// One for the process: the library asks for its place only once, but reads its files each time.
    static std::string Folder() {
        static const TemporaryFolder folder;
        return folder.Path();
    }
};

TEST_F(SaneScannerTest, Sources_NoneOrTwoDevices_AreNamed) {
    EXPECT_TRUE(SaneScanner(GivenDevices(0)).Sources({}).empty());
    const auto sources = SaneScanner(GivenDevices(2)).Sources({});
    ASSERT_EQ(sources.size(), 2u);
    EXPECT_EQ(sources[1].name, "test:1");
    EXPECT_EQ(sources[1].kind, "virtual device");
}

TEST_F(SaneScannerTest, Acquire_OnePicture_WholeAreaInColour) {
    const Picture picture = Scan({{"test-picture", "Color pattern"}});
    EXPECT_EQ(picture.width, 157);  // 200 mm at 20 dots an inch
    EXPECT_EQ(picture.height, 157);
    bool hasColour = false;
    for (std::size_t i = 0; i < picture.pixels.size(); i += 3)
        hasColour |= picture.pixels[i] != picture.pixels[i + 1];
    EXPECT_TRUE(hasColour);
}

TEST_F(SaneScannerTest, Acquire_TwoWaysToOnePicture_GiveTheSame) {
    const auto grid = [](SaneSettings settings) {
        settings.emplace_back("test-picture", "Grid");
        return settings;
    };
    const auto pattern = [](SaneSettings settings) {
        settings.emplace_back("test-picture", "Color pattern");
        return settings;
    };
    const struct {
        const char* name;
        SaneSettings oneWay, otherWay;
    } cases[] = {
        {"grey 8", grid({{"mode", "Gray"}}), grid({})},
        {"grey 16", grid({{"mode", "Gray"}, {"depth", "16"}}), grid({})},
        {"line art", grid({{"mode", "Gray"}, {"depth", "1"}}), grid({})},
        {"colour 1", grid({{"depth", "1"}}), grid({})},
        {"three passes", pattern({{"three-pass", "yes"}}), pattern({})},
        {"three passes in another order",
         pattern({{"three-pass", "yes"}, {"three-pass-order", "BRG"}, {"depth", "16"}}),
         pattern({{"depth", "16"}})},
        {"three passes of 1 bit", pattern({{"three-pass", "yes"}, {"depth", "1"}}),
         pattern({{"depth", "1"}})},
        {"unknown length", pattern({{"hand-scanner", "yes"}, {"three-pass", "yes"}}),
         pattern({{"hand-scanner", "yes"}})},
        {"bytes in small pieces", pattern({{"read-limit", "yes"}, {"read-limit-size", "7"}}), pattern({})},
    };
    for (const auto& one : cases) EXPECT_EQ(Scan(one.oneWay).pixels, Scan(one.otherWay).pixels) << one.name;
}

TEST_F(SaneScannerTest, Acquire_SeveralFromTheFeeder_AllPagesInOrder) {
    SaneScanner scanner(GivenDevices(1));
    std::vector<int> numbers;
    const ScanEvents events = AtEachPage([&](const ScannedPage& page) {
        EXPECT_TRUE(page.fromFeeder);
        EXPECT_THROW(scanner.Sources({}), ScannerError) << "one call at a time";
        numbers.push_back(page.number);
        return AfterPage::Continue;
    });
    EXPECT_EQ(scanner.Acquire(SeveralPages(), events), ScanOutcome::Finished);
    EXPECT_EQ(numbers,
              (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));  // what the test device's feeder holds
}

TEST_F(SaneScannerTest, Acquire_SeveralFromTheGlass_EndsWhenTheCallerHasEnough) {
    SaneScanner scanner(GivenDevices(1, {{"source", "Flatbed"}}));
    int pages = 0;
    const ScanEvents events =
        AtEachPage([&](const ScannedPage&) { return ++pages < 3 ? AfterPage::Continue : AfterPage::Stop; });
    EXPECT_EQ(scanner.Acquire(SeveralPages(), events), ScanOutcome::Finished);
    EXPECT_EQ(pages, 3);
}

TEST_F(SaneScannerTest, Acquire_CancelledWhileASlowDeviceReads_ReturnsAtOnceAndCanStartAgain) {
    SaneScanner scanner(GivenDevices(1, {{"read-delay", "yes"}, {"read-delay-duration", "200000"}}));
    ScanOrder slow = SmallOrder();
    slow.resolution = 100;  // some 60 blocks of 200 ms
    auto asked = steady_clock::now();
    auto longestSilence = milliseconds(0);
    int lastPercent = -2;
    ScanEvents events;
    events.progress = [&](int, int percent) { lastPercent = percent; };
    events.whileWaiting = [&] {
        longestSilence =
            std::max(longestSilence, std::chrono::duration_cast<milliseconds>(steady_clock::now() - asked));
        asked = steady_clock::now();
        return lastPercent <= 0;  // until the first bytes are there
    };
    EXPECT_EQ(scanner.Acquire(slow, events), ScanOutcome::Cancelled);
    EXPECT_LT(steady_clock::now() - asked, milliseconds(250));
    EXPECT_LT(longestSilence, milliseconds(250));  // 50 promised; a busy machine may hold any thread up
    EXPECT_GT(lastPercent, 0);

    events.whileWaiting = nullptr;
    EXPECT_EQ(scanner.Acquire(SmallOrder(), events), ScanOutcome::Finished);
}

TEST_F(SaneScannerTest, Acquire_AnEventThrows_PassesThroughAndLeavesTheScannerUsable) {
    SaneScanner scanner(GivenDevices(1));
    const ScanEvents events =
        AtEachPage([](const ScannedPage&) -> AfterPage { throw std::runtime_error("no room"); });
    EXPECT_THROW(scanner.Acquire(SeveralPages(), events), std::runtime_error);
    EXPECT_EQ(scanner.Acquire(SmallOrder(), {}), ScanOutcome::Finished);
}

TEST_F(SaneScannerTest, Acquire_DeviceMissingOrFailing_TellsTheUserWhatIsWrong) {
    EXPECT_EQ(Failure(GivenDevices(0)), NoScannerSource);
    for (const auto& [status, text] :
         {std::pair{"SANE_STATUS_JAMMED", "The paper is jammed in the scanner's document feeder."},
          {"SANE_STATUS_COVER_OPEN", "The scanner's cover is open."},
          {"SANE_STATUS_DEVICE_BUSY", "The scanner is in use by another program."},
          {"SANE_STATUS_IO_ERROR", "The connection to the scanner failed."}})
        EXPECT_EQ(Failure(GivenDevices(1, {{"read-return-value", status}})), text);
}

}  // namespace
}  // namespace lumarin
