#pragma once

#include <exception>
#include <string>

namespace lumarin {

/// What is left to do when the thing itself is done: each step is tried, whatever became of the others.
class Afterwards {
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
