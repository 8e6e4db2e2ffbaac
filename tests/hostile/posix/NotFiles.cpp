#include <sys/stat.h>

#include <filesystem>

#include "hostile/SweepTest.h"

namespace lumarin::hostile {

void MakeThingsThatAreNotFiles(const std::function<std::string(const std::string&)>& path,
                               const std::string& ending) {
    std::filesystem::create_symlink("nowhere", path("100123 link" + ending));
    std::filesystem::create_symlink("/dev/zero", path("100123 endless" + ending));
    mkfifo(path("100123 pipe" + ending).c_str(), 0600);
}

}  // namespace lumarin::hostile
