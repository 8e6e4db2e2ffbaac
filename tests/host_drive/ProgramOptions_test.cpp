#include <gtest/gtest.h>

#include "host/desktop/ProgramOptions.h"

namespace host {

TEST(ProgramOptions_Parse, Mistakes_AreNamed) {
    const std::pair<std::vector<std::string>, const char*> cases[] = {
        {{"--photo"}, "Unknown option \"--photo\""},
        {{"--data"}, "--data needs a value"},
        {{"--data", "--photos"}, "--data needs a value"},
        {{"--level", "10x"}, "--level needs a whole number of 0 or more, not \"10x\""},
        {{"--level", "99999999999"}, "--level needs a whole number of 0 or more, not \"99999999999\""},
        {{"--faults", "chunk lose"}, "--faults: \"chunk lose\" is no fault."},
        {{"--demo", "--drive", "-"}, "--demo and --drive exclude each other"},
        {{"--demo", "--data", "x"}, "--demo uses a data folder of its own; leave out --data"},
    };
    for (const auto& [arguments, said] : cases) {
        try {
            ParseOptions(arguments);
            ADD_FAILURE() << said;
        } catch (const OptionError& error) {
            EXPECT_TRUE(std::string(error.what()).starts_with(said)) << error.what();
        }
    }
}

}  // namespace host
