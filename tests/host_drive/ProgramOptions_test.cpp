#include <gtest/gtest.h>

#include "host/desktop/ProgramOptions.h"

namespace host {

using Arguments = std::vector<std::string>;

TEST(ProgramOptions_Parse, AllTogether_AreTaken) {
    const ProgramOptions options =
        ParseOptions({"--photos", "--documents", "--offline", "--no-internet", "--data", "/tmp/x", "--drive",
                      "-", "--level=100", "--agent", "A202", "--office=OF2", "--board", "2"});
    EXPECT_TRUE(options.photos && options.documents && options.offline && options.noInternet);
    EXPECT_EQ(options.dataFolder, "/tmp/x");
    EXPECT_EQ(options.drive, "-");
    EXPECT_EQ(options.level, 100);
    EXPECT_EQ(options.agent + options.office + options.board, "A202OF22");
}

TEST(ProgramOptions_Parse, Mistakes_AreNamed) {
    const struct {
        Arguments arguments;
        const char* said;
    } cases[] = {
        {{"--photo"}, "Unknown option \"--photo\""},
        {{"--data"}, "--data needs a value"},
        {{"--data", "--photos"}, "--data needs a value"},
        {{"--level", "10x"}, "--level needs a whole number of 0 or more, not \"10x\""},
        {{"--level", "99999999999"}, "--level needs a whole number of 0 or more, not \"99999999999\""},
        {{"--demo", "--drive", "-"}, "--demo and --drive exclude each other"},
        {{"--faults", "chunk lose"},
         "--faults: \"chunk lose\" is no fault. A fault is a call (query, begin, chunk, end, abort, apply, "
         "command, fetch, any), a number from 1 on and fail, stall or lose, such as \"chunk 3 lose\""},
        {{"--demo", "--data", "x"}, "--demo uses a data folder of its own; leave out --data"},
    };
    for (const auto& given : cases) {
        try {
            ParseOptions(given.arguments);
            ADD_FAILURE() << given.said;
        } catch (const OptionError& error) {
            EXPECT_STREQ(error.what(), given.said);
        }
    }
}

}  // namespace host
