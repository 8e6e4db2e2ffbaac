#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/Error.h"
#include "forms/Picture.h"

namespace lumarin {

/// Shown, and thrown, when a picture is to be acquired and there is nothing to acquire it from.
inline constexpr const char* NoScannerSource =
    "No scanner or camera was found. Connect it, switch it on and try again.";

/// A failure of the scanner; the description says what the user can do about it.
class ScannerError : public Error {
public:
    explicit ScannerError(const std::string& description)
        : Error(ApplicationErrorNumber, "scanner", description) {}
};

/// A device that pictures can be acquired from.
struct ScannerSource {
    std::string name;  ///< the scanner library's own name; what an order asks for
    std::string vendor;
    std::string model;
    std::string kind;  ///< "flatbed scanner"
};

/// What is acquired.
struct ScanOrder {
    std::string source;    ///< name of a source; "" takes the first one
    bool several = false;  ///< all pages of a document feeder, or one after the other from the glass
    int resolution = 300;  ///< dots an inch; the nearest that the device can do is taken
};

/// One picture, as it comes in.
struct ScannedPage {
    PicturePtr picture;
    int number = 1;           ///< from 1
    bool fromFeeder = false;  ///< false: the next page of several needs a person to change the original
};

enum class AfterPage { Continue, Stop };
enum class ScanOutcome { Finished, Cancelled };

/// False cancels. Called on the caller's thread at least every 50 ms while the device works, so that the
/// window can let its pending events run.
using WhileWaiting = std::function<bool()>;

/// What an acquisition reports; all on the caller's thread. Each may be empty, and may throw: the acquisition
/// then ends and the exception passes through.
struct ScanEvents {
    WhileWaiting whileWaiting;
    /// How much of a page has arrived, from 0 to 100; -1 where the device does not know its length.
    std::function<void(int page, int percent)> progress;
    /// May take as long as it likes: the device waits. `Stop` ends the acquisition as finished.
    std::function<AfterPage(const ScannedPage&)> pageArrived;
};

/// Port: scanners and cameras. Calls block the caller until they are done, but never for more than 50 ms
/// between two `whileWaiting`; a cancelled call returns at once, and the device is put to rest behind it.
/// One call at a time: a call from within another's events throws ScannerError.
class Scanner {
public:
    virtual ~Scanner() = default;

    /// The devices that can be reached now. Empty when there are none, and when it was cancelled.
    virtual std::vector<ScannerSource> Sources(const WhileWaiting& whileWaiting) = 0;

    /// Acquires one or several pictures. Throws ScannerError with a text for the user; pages that came
    /// before the failure have been handed over.
    virtual ScanOutcome Acquire(const ScanOrder& order, const ScanEvents& events) = 0;
};

}  // namespace lumarin
