#include "host/desktop/HostScanner.h"

#include "base/Files.h"
#include "platform/sane/SaneScanner.h"

namespace host {

namespace {

void UseTestDevice(const std::string& folder) {
    lumarin::files::EnsureFolder(folder);
    lumarin::files::WriteWhole(folder + "dll.conf", "test\n");
    lumarin::files::WriteWhole(folder + "test.conf",
                               "number_of_devices 1\ntest-picture \"Color pattern\"\nmode Color\n");
}

}  // namespace

std::unique_ptr<lumarin::Scanner> MakeScanner(const std::string& dataFolder, ScannerUse use) {
    // A data folder may have a configuration of its own, dll.conf and the devices' files.
    std::string folder = dataFolder + "scanner/";
    if (use == ScannerUse::Demo) UseTestDevice(folder);
    if (!lumarin::files::FileExists(folder + "dll.conf")) folder.clear();
    return std::make_unique<lumarin::sane::SaneScanner>(lumarin::sane::SaneScanner::Setup{folder, {}});
}

}  // namespace host
