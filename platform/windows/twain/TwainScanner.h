#pragma once

#include <memory>
#include <string>
#include <vector>

#include "imaging/Scanner.h"

namespace lumarin::twain {

/// Adapter: the scanner port over TWAIN. The source manager and the sources are worked by a thread of their
/// own that runs their messages, so that a source that keeps still, or shows a modal window, never keeps the
/// caller. Pictures are acquired through the source's own window. A program may have several of these, but
/// only one of them may work at a time.
class TwainScanner final : public Scanner {
public:
    struct Setup {
        /// The one source that is to be known; "" for all.
        std::string onlySource;
    };

    explicit TwainScanner(Setup setup = {});
    /// Waits until a source that was left behind by a cancel is closed.
    ~TwainScanner() override;

    std::vector<ScannerSource> Sources(const WhileWaiting& whileWaiting) override;
    ScanOutcome Acquire(const ScanOrder& order, const ScanEvents& events) override;

private:
    class Work;
    std::unique_ptr<Work> work_;
};

}  // namespace lumarin::twain
