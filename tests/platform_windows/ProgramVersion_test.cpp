#include "platform/windows/ProgramVersion.h"

#include <gtest/gtest.h>

namespace lumarin {

TEST(ProgramVersion, FileVersion_OfFilesWithAndWithoutOne) {
    const windows::ProgramVersion versions;
    const std::string engines = ENGINES;
    EngineVersion::Version version;
    EXPECT_TRUE(versions.FileVersion(engines + "4.0.40000.7\\MsJet40.dll", version));
    EXPECT_EQ(version.high, 0x00040000);
    EXPECT_EQ(version.low, static_cast<std::int32_t>(0x9C400007)) << "a signed number";
    EXPECT_FALSE(versions.FileVersion(engines + "none\\MsJet40.dll", version));
    EXPECT_FALSE(versions.FileVersion(engines + "missing\\MsJet40.dll", version));
    EXPECT_TRUE(versions.FileVersion(versions.SystemFolder() + "\\kernel32.dll", version));
}

}  // namespace lumarin
