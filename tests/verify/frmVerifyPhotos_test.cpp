#include "verify/frmVerifyPhotos.h"

#include <filesystem>

#include "base/Text.h"
#include "support/WindowTest.h"

namespace lumarin {

using testing::FakeTable;

constexpr const char* Completed = "Verify completed successfully";
constexpr const char* Cancelled = "Abort - Operation Canceled";

class VerifyPhotos : public testing::WindowTest {
protected:
    VerifyPhotos() {
        host.onQuery = [this](const std::string& sql) {
            EXPECT_EQ(sql,
                      "SELECT ListNum,PhotoCount,PhotoVersion From Listings Left join photo on "
                      "Listings.ListNum = Photo.PhoListNum WHERE Photo.PhotoCount > 0;");
            return listings;
        };
        window.Load();
    }

    void GivenFile(const std::string& path) {
        const std::string whole = host.PhotoFolder() + path;
        files::EnsureFolder(text::UpToLastSeparator(whole));
        files::WriteWhole(whole, "x");
    }
    bool Has(const std::string& path) const { return files::FileExists(host.PhotoFolder() + path); }
    /// Runs `action` when the run gives other events their first turn.
    std::string StatusAfterRun(const std::function<void()>& action = nullptr) {
        if (action) desktop.AtPendingEvents(1, action);
        window.cmdStart.Press();
        return window.lblStatus.Caption();
    }

    frmVerifyPhotos window{desktop, link};
    FakeTable listings{{"ListNum", "PhotoCount", "PhotoVersion"}, {{100123, 2, "11,12"}}};
};

TEST_F(VerifyPhotos, Run_FilesOfEveryKind_OnlyThoseNobodyNeedsAreDeleted) {
    for (const int number : {7, 100133}) listings.rows.push_back({number, 1, {}});
    const char* stay[] = {"3/100123a.jpg",    "3/100123b.jpg", "3/4/100123a.jpg",  "7/7a.jpg",  // photos
                          "7/12.jpg",         "7/a.jpg",       "7/.jpg",  // too short for number and letter
                          "3/100123.lck.txt", "3/notes.txt",   "3/100123a.png",       // of no concern
                          "100999a.jpg",      "100123.lck",                           // in the root itself
                          "33/100999a.jpg",   "x/100999a.jpg", "3/old/100999a.jpg"};  // in no digit folder
    const char* go[] = {"3/100123c.jpg",     "7/7b.jpg",  // the listings have fewer photos
                        "3/1001231.jpg",     "3/100133A.jpg", "3/100123`.jpg",  // no letter of a photo
                        "3/4/5/100999a.jpg",                                    // no such listing
                        "3/100123.lck",      "3/.lck"};  // left by somebody who is gone
    for (const char* path : stay) GivenFile(path);
    for (const char* path : go) GivenFile(path);
    EXPECT_EQ(StatusAfterRun(), Completed);
    for (const char* path : stay) EXPECT_TRUE(Has(path)) << path;
    for (const char* path : go) EXPECT_FALSE(Has(path)) << path;
    EXPECT_EQ(window.lblCount.Caption(), "8");
}

TEST_F(VerifyPhotos, Run_LinksLeadOutOfTheTree_TheyAreNotFollowed) {
    listings.rows.clear();
    const testing::TemporaryFolder elsewhere;
    files::WriteWhole(elsewhere.Path() + "100999a.jpg", "x");
    files::EnsureFolder(host.PhotoFolder() + "3");
    std::error_code none;
    std::filesystem::create_symlink(elsewhere.Path() + "100999a.jpg", host.PhotoFolder() + "3/100999a.jpg",
                                    none);
    if (none) GTEST_SKIP() << "links cannot be made here: " << none.message();
    std::filesystem::create_directory_symlink(elsewhere.Path(), host.PhotoFolder() + "4");
    EXPECT_EQ(StatusAfterRun(), Completed);
    EXPECT_TRUE(files::FileExists(elsewhere.Path() + "100999a.jpg"));
    EXPECT_FALSE(Has("3/100999a.jpg"));  // the link itself is a file of the tree
}

TEST_F(VerifyPhotos, Run_ListingsWithVersions_EveryPhotoIsAskedFor) {
    listings.rows.push_back({100124, 3, {}});
    listings.rows.push_back({100125, 1, ""});
    host.Publish(100123, {1, 1});
    host.Publish(100125, {1});
    EXPECT_EQ(StatusAfterRun(), Completed);
    EXPECT_EQ(host.fetched, (Texts{"100123 1 11,12", "100123 2 11,12", "100125 1 "}));
    EXPECT_EQ(window.pbBar.Max(), 3);
    EXPECT_EQ(desktop.pointer, Pointer::Default);
    window.cmdExit.Press();
    EXPECT_FALSE(window.IsLoaded());
}

TEST_F(VerifyPhotos, Run_SomethingFails_IsToldInTheStatus) {
    EXPECT_TRUE(StatusAfterRun().starts_with("Abort - no photo ")) << window.lblStatus.Caption();
    host.onQuery = [](const std::string&) -> FakeTable { throw Error(1, "db", "The database is gone"); };
    EXPECT_EQ(StatusAfterRun(), "Abort - The database is gone");
    EXPECT_TRUE(window.cmdStart.Enabled());
}

TEST_F(VerifyPhotos, CancelOrUnload_InEitherPhase_StopsThere) {
    GivenFile("3/100123z.jpg");
    host.Publish(100123, {1, 1});
    EXPECT_EQ(StatusAfterRun([this] {
                  EXPECT_FALSE(window.cmdStart.Enabled() || window.cmdExit.Enabled());
                  EXPECT_FALSE(window.Unload(CloseReason::Frame));
                  EXPECT_FALSE(window.cmdCancel.Enabled()) << "the frame's close command cancels";
              }),
              Cancelled);
    EXPECT_TRUE(Has("3/100123z.jpg"));
    EXPECT_TRUE(host.queries.empty());

    std::function<void()> cancelWhenSearching = [&] {
        if (window.lblStatus.Caption() == "Searching for missing photos")
            window.cmdCancel.Press();
        else
            desktop.AtPendingEvents(1, cancelWhenSearching);
    };
    EXPECT_EQ(StatusAfterRun(cancelWhenSearching), Cancelled);
    EXPECT_FALSE(Has("3/100123z.jpg"));
    EXPECT_EQ(window.lblCount.Caption(), "1");
    EXPECT_TRUE(host.fetched.empty());
    EXPECT_TRUE(window.cmdStart.Enabled() && window.cmdExit.Enabled() && !window.cmdCancel.Enabled());

    GivenFile("3/100123z.jpg");
    StatusAfterRun([this] { EXPECT_FALSE(window.Unload(CloseReason::Host)); });
    EXPECT_TRUE(Has("3/100123z.jpg") && !window.IsLoaded());
}

}  // namespace lumarin
