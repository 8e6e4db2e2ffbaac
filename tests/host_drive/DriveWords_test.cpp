#include <gtest/gtest.h>

#include "host/drive/DriveError.h"
#include "host/drive/DriveLine.h"

namespace host {

TEST(DriveLine_SplitInWords, BlanksQuotesAndEscapes_GiveTheWords) {
    const std::pair<const char*, QStringList> cases[] = {
        {"  set  a.b\t\"two words\" ", {"set", "a.b", "two words"}},
        {R"(set a.b "say \"yes\" \\ no \n")", {"set", "a.b", R"(say "yes" \ no \n)"}},
        {R"(set a.b "")", {"set", "a.b", ""}},
        {R"(shot w C:\x.png)", {"shot", "w", R"(C:\x.png)"}},
        {"", {}},
    };
    for (const auto& [line, words] : cases) EXPECT_EQ(SplitDriveLine(line), words) << line;
    for (const char* line : {R"(set a.b "open)", R"(set a.b x"y")", R"(set a.b "x"y)"})
        EXPECT_THROW(SplitDriveLine(line), DriveError) << line;
}

}  // namespace host
