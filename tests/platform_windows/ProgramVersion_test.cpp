#include "platform/windows/ProgramVersion.h"

#include <gtest/gtest.h>

#include "lookup/clsSQLQuote.h"

namespace lumarin {

namespace {

/// The platform's folder is one of ours; the versions are real.
class EngineIn final : public EngineVersion {
public:
    explicit EngineIn(std::string folder) : folder_(std::move(folder)) {}
    std::string SystemFolder() const override { return folder_; }
    bool FileVersion(const std::string& path, Version& version) const override {
        return windows::ProgramVersion().FileVersion(path, version);
    }

private:
    std::string folder_;
};

}  // namespace

TEST(ProgramVersion, QuoteLike_EngineFiles_BareDashFromTheKnownVersionOn) {
    const std::pair<const char*, const char*> cases[] = {
        {"4.0.3714.7", "a-b"}, {"4.0.3714.6", "a[-]b"},  {"4.1.3714.7", "a-b"},
        {"5.0.1.0", "a[-]b"},  {"4.0.40000.0", "a[-]b"},  // each half is a signed number
        {"none", "a[-]b"},     {"missing", "a[-]b"},
    };
    for (const auto& [version, quoted] : cases)
        EXPECT_EQ(clsSQLQuote(EngineIn(std::string(ENGINES) + version)).QuoteLike("a-b"), quoted) << version;
}

TEST(ProgramVersion, FileVersion_PlatformsOwnFile_IsKnown) {
    const windows::ProgramVersion versions;
    EngineVersion::Version version;
    EXPECT_TRUE(versions.FileVersion(versions.SystemFolder() + "\\kernel32.dll", version));
    EXPECT_GT(version.high, 0x00040000);
}

}  // namespace lumarin
