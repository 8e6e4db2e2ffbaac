#include "host/desktop/ScannerFolder.h"

#include "base/Files.h"

namespace host {

namespace {

std::string FolderIn(const std::string& dataFolder) { return dataFolder + "scanner/"; }

}  // namespace

std::string ScannerConfiguration(const std::string& dataFolder) {
    const std::string folder = FolderIn(dataFolder);
    return lumarin::files::FileExists(folder + "dll.conf") ? folder : std::string();
}

void UseTestScanner(const std::string& dataFolder) {
    const std::string folder = FolderIn(dataFolder);
    lumarin::files::EnsureFolder(folder);
    lumarin::files::WriteWhole(folder + "dll.conf", "test\n");
    lumarin::files::WriteWhole(folder + "test.conf",
                               "number_of_devices 1\ntest-picture \"Color pattern\"\nmode Color\n");
}

}  // namespace host
