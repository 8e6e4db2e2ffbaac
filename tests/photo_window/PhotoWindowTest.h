#pragma once

#include <gtest/gtest.h>

#include <set>

#include "imaging/FakeImaging.h"
#include "photo_window/frmLumarin.h"
#include "support/FakeHost.h"
#include "support/ScriptedDesktop.h"

namespace lumarin::testing {

/// Keeps what was packaged; the archive's bytes are of a length that the test chooses.
struct FakeArchiver final : ZipArchiver {
    void Create(const std::string& archive, const std::vector<std::string>& files) override;
    std::vector<std::string> packaged;            ///< plain names
    std::map<std::string, std::string> contents;  ///< bytes by plain name, as they were then
    std::size_t length = 100;
    std::optional<Error> failure;
};

struct StillClock final : Clock {
    LocalTime Now() const override { return {.year = 2026, .month = 1, .day = 1, .second = 42}; }
};

/// A scanner with as many pages as the test puts in.
struct FakeScanner final : Scanner {
    std::vector<ScannerSource> Sources(const WhileWaiting& whileWaiting) override {
        whileWaiting();
        return sources;
    }
    ScanOutcome Acquire(const ScanOrder& order, const ScanEvents& events) override;

    std::vector<ScannerSource> sources;
    int pages = 1;
    bool feeder = true;
    std::optional<ScanOrder> order;
    int handedOver = 0;
    bool failsAfterwards = false;
};

/// A photo window over a host whose listings all belong to the signed-on agent.
class PhotoWindowTest : public ::testing::Test {
protected:
    PhotoWindowTest();
    ~PhotoWindowTest() override { desktop.VerifyAllUsed(); }

    /// A listing of the database with published photos of these lengths; no lengths: no row in Photo.
    void GivenListing(std::int32_t number, const std::vector<std::size_t>& lengths = {});
    void Open();  ///< makes and initialises the window
    void Enter(const std::string& number);
    /// What the agent does in the crop window for each coming photo: the length of the captured file.
    void WillCapture(const std::vector<std::size_t>& lengths);
    std::set<std::string> WorkingFiles() const;
    std::vector<std::string> ListTexts(const ListView& list) const;

    ScriptedDesktop desktop;
    FakeImaging imaging;
    FakeArchiver archiver;
    StillClock clock;
    NoEngineVersion engine;
    FakeScanner scanner;
    FakeHost host;
    HostLink link;
    std::unique_ptr<frmLumarin> window;

private:
    FakeTable Answer(const std::string& sql) const;
    std::map<std::int32_t, std::vector<std::size_t>> listings_;
};

}  // namespace lumarin::testing
