#pragma once

#include <exception>
#include <string>

namespace lumarin {

/// Steps that do not depend on each other: each is tried, whatever became of those before it.
class EachStep {
public:
    template <class Step>
    void Do(Step step) {
        try {
            step();
        } catch (const std::exception& error) {
            const std::string line = std::string("\n") + error.what();
            if (failures_.find(line) == std::string::npos) failures_ += line;
        }
    }

    /// A line for each reason why a step failed; "" when none did.
    const std::string& Failures() const { return failures_; }

private:
    std::string failures_;
};

}  // namespace lumarin
