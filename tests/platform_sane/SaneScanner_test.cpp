#include "platform/sane/SaneScanner.h"

#include "support/Reason.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <stdexcept>

namespace lumarin::sane {

using lumarin::testing::TemporaryFolder;

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
    static std::string Failure(const SaneScanner::Setup& setup) {
        return testing::ReasonOf([&] { SaneScanner(setup).Acquire(SmallOrder(), {}); });
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

TEST_F(SaneScannerTest, Sources_TwoDevices_AreNamed) {
    const auto sources = SaneScanner(GivenDevices(2)).Sources({});
    ASSERT_EQ(sources.size(), 2u);
    EXPECT_EQ(sources[1].name + ", " + sources[1].kind, "test:1, virtual device");
}

TEST_F(SaneScannerTest, Acquire_OnePicture_WholeAreaInColour) {
    const Picture picture = Scan({{"test-picture", "Color pattern"}});
    EXPECT_EQ(std::pair(picture.width, picture.height), std::pair(157, 157));  // 200 mm at 20 dots an inch
    bool hasColour = false;
    for (std::size_t i = 0; i < picture.pixels.size(); i += 3)
        hasColour |= picture.pixels[i] != picture.pixels[i + 1];
    EXPECT_TRUE(hasColour);
}

TEST_F(SaneScannerTest, Acquire_TwoWaysToOnePicture_GiveTheSame) {
    const struct {
        const char *name, *pattern;
        SaneSettings oneWay, otherWay;
    } cases[] = {
        {"grey", "Grid", {{"mode", "Gray"}}, {}},
        {"grey of 16 bits", "Grid", {{"mode", "Gray"}, {"depth", "16"}}, {}},
        {"line art", "Grid", {{"mode", "Gray"}, {"depth", "1"}}, {}},
        {"colours of 1 bit", "Grid", {{"depth", "1"}}, {}},
        {"three passes", "Color pattern", {{"three-pass", "yes"}, {"three-pass-order", "BRG"}}, {}},
        {"unknown length",
         "Color pattern",
         {{"hand-scanner", "yes"}, {"three-pass", "yes"}},
         {{"hand-scanner", "yes"}}},
        {"bytes in small pieces", "Color pattern", {{"read-limit", "yes"}, {"read-limit-size", "7"}}, {}},
    };
    for (auto [name, pattern, oneWay, otherWay] : cases) {
        for (SaneSettings* way : {&oneWay, &otherWay}) way->emplace_back("test-picture", pattern);
        EXPECT_EQ(Scan(oneWay).pixels, Scan(otherWay).pixels) << name;
    }
}

TEST_F(SaneScannerTest, Acquire_Several_EndsWithTheFeederOrWhenTheCallerHasEnough) {
    const struct {
        SaneSettings settings;
        int enough, expected;
    } cases[] = {{{}, 99, 10},  // what the test device's feeder holds
                 {{{"source", "Flatbed"}}, 3, 3}};
    for (const auto& row : cases) {
        SaneScanner scanner(GivenDevices(1, row.settings));
        int pages = 0;
        const ScanEvents events = AtEachPage([&](const ScannedPage& page) {
            EXPECT_EQ(page.number, ++pages);
            EXPECT_TRUE(page.fromFeeder || !row.settings.empty());
            return pages < row.enough ? AfterPage::Continue : AfterPage::Stop;
        });
        EXPECT_EQ(scanner.Acquire(SeveralPages(), events), ScanOutcome::Finished);
        EXPECT_EQ(pages, row.expected);
    }
}

// Whoever waited for this device would wait longer than a test may take.
TEST_F(SaneScannerTest, Acquire_CallerEndsIt_DoesNotWaitForTheDeviceAndCanStartAgain) {
    SaneScanner scanner(GivenDevices(1, {{"read-delay", "yes"}, {"read-delay-duration", "200000"}}));
    ScanOrder slow = SmallOrder();
    slow.resolution = 1200;  // some 8000 blocks of 200 ms
    int turns = 0;
    ScanEvents events;
    events.progress = [&](int, int) { ++turns; };
    events.whileWaiting = [&] { return turns < 5; };
    EXPECT_EQ(scanner.Acquire(slow, events), ScanOutcome::Cancelled);
    EXPECT_EQ(turns, 5);

    const auto fail = [](const ScannedPage&) -> AfterPage { throw std::runtime_error("no room"); };
    EXPECT_THROW(scanner.Acquire(SmallOrder(), AtEachPage(fail)), std::runtime_error);
    EXPECT_EQ(scanner.Acquire(SmallOrder(), {}), ScanOutcome::Finished);
}

TEST_F(SaneScannerTest, Acquire_DeviceMissingOrFailing_TellsTheUserWhatIsWrong) {
    EXPECT_EQ(Failure(GivenDevices(0)), NoScannerSource);
    EXPECT_EQ(Failure(GivenDevices(1, {{"read-return-value", "SANE_STATUS_JAMMED"}})),
              "The paper is jammed in the scanner's document feeder.");
}

}  // namespace lumarin::sane
