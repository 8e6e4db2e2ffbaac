#pragma once

#include <set>

#include "photo_window/frmLumarin.h"
#include "support/FakeArchiver.h"
#include "support/WindowTest.h"

namespace lumarin::testing {

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

/// A photo window over a host whose listings all belong to the signed-in agent.
class PhotoWindowTest : public WindowTest {
protected:
    PhotoWindowTest();

    /// A listing of the database with published photos of these lengths; no lengths: no row in Photo.
    void GivenListing(std::int32_t number, const std::vector<std::size_t>& lengths = {},
                      const std::string& descriptionCodes = {});
    void Open();  ///< makes and initialises the window
    void Enter(const std::string& number);
    /// The window with these listings, each with the photos that were given.
    void OpenWith(const std::vector<std::string>& numbers);
    /// What the agent does in the crop window for each coming photo: the length of the captured file.
    void WillCapture(const std::vector<std::size_t>& lengths);
    /// A state that cannot be read, with a photo, left by an earlier run; the window will say so.
    void GivenUnreadableWork(const std::string& number);
    /// The end of what it then says.
    static inline const std::string AskToSetAside =
        "\n\nDo you want to set these files aside? They are then kept in the folder \"Set aside\" in it, and "
        "this question does not come again.";
    std::set<std::string> WorkingFiles() const;
    static Texts ListTexts(const ListView& list);

    FakeArchiver archiver;
    FakeScanner scanner;
    std::unique_ptr<frmLumarin> window;

private:
    struct Listing {
        std::size_t count = 0;
        std::string sizes, codes;
    };
    FakeTable Answered(const std::string& sql) const;
    std::map<std::int32_t, Listing> listings_;
};

}  // namespace lumarin::testing
