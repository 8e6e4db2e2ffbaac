#include "host/demo/SeedData.h"

#include "base/Files.h"
#include "host_services/HostFixture.h"

namespace host {

const std::string& SeededFolder() {
    static const lumarin::testing::TemporaryFolder folder;
    static const std::string path = [] {
        SeedData(folder.Path());
        return folder.Path();
    }();
    return path;
}

}  // namespace host
