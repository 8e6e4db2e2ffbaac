#include "support/Command.h"

#include <gtest/gtest.h>

namespace lumarin::testing {

std::string OutputOf(const std::string& line) {
    Command command(line + " 2>&1");
    int exitCode = 0;
    std::string output = command.ReadAll(exitCode);
    EXPECT_EQ(exitCode, 0) << line << "\n" << output.substr(0, 2000);
    return output;
}

}  // namespace lumarin::testing
