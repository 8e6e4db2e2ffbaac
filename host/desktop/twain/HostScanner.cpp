#include "host/desktop/HostScanner.h"

#include "platform/windows/twain/TwainScanner.h"

namespace host {

std::unique_ptr<lumarin::Scanner> MakeScanner(const std::string&, ScannerUse use) {
    lumarin::twain::TwainScanner::Setup setup;
    // The source of the tests; other sources would open windows that only a person can work.
    if (use == ScannerUse::Demo) setup.onlySource = "Lumarin Test Scanner";
    return std::make_unique<lumarin::twain::TwainScanner>(setup);
}

}  // namespace host
