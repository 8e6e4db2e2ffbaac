#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/windows/twain/DataSource.h"
#include "platform/windows/twain/EventWindow.h"
#include "platform/windows/twain/MessageThread.h"
#include "platform/windows/twain/SourceManager.h"

namespace lumarin::twain {

/// The sources of this name, the user's usual one first; all when it is "".
std::vector<TW_IDENTITY> SourcesNamed(SourceManager& manager, const std::string& name);

/// One acquisition, from the opening of the source manager to its closing. `Cancel` is for the caller's
/// thread, everything else for the message thread. Failures throw ScannerError.
class Acquisition {
public:
    struct Page {
        Picture picture;
        bool fromFeeder = false;  ///< nobody has to change the original
        bool isLast = false;      ///< the feeder, or the source's user, has no more
    };

    /// The source's window stays above `owner`, which may be null.
    Acquisition(MessageThread& thread, HWND owner) : thread_(thread), owner_(owner) {}

    /// The order's source, `usualSource` where it names none, the first one where neither does.
    void Open(const ScanOrder& order, const std::string& usualSource);
    /// Nothing when the user has closed the source's window, when the feeder holds no more, or when
    /// cancelled.
    std::optional<Page> NextPage();
    void Close();

    void Cancel();

private:
    bool IsReady();
    Page Finish(Picture picture);

    MessageThread& thread_;
    HWND owner_;
    bool several_ = false;
    int pages_ = 0;
    std::atomic<bool> cancelled_ = false;
    std::atomic<HWND> handle_ = nullptr;
    std::unique_ptr<EventWindow> window_;
    std::unique_ptr<SourceManager> manager_;
    std::unique_ptr<DataSource> source_;
};

}  // namespace lumarin::twain
