#pragma once

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "util/FtpTransfer.h"

namespace lumarin::testing {

/// Ends each command at the next poll, as the script says, and well when it says nothing.
struct FakeTransfer final : FtpTransfer {
    void SetServer(const FtpServer&) override {}
    void SetRequestTimeout(int) override {}
    void Execute(const std::string& command) override { commands.push_back(command); }
    void Poll() override {
        const bool fails = !failures.empty() && commands.size() == failures.front().first;
        if (fails) failure = failures.front().second, failures.pop_front();
        StateChanged(fails ? FtpState::Error : FtpState::ResponseCompleted);
    }
    const FtpFailure& Failure() const override { return failure; }
    void Cancel() override { ++cancels; }

    int cancels = 0;
    std::vector<std::string> commands;
    std::deque<std::pair<std::size_t, FtpFailure>> failures;  ///< after how many commands, and why
    FtpFailure failure;
};

}  // namespace lumarin::testing
