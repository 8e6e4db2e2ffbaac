#include "bench/day/Holdings.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace bench {

Holdings HeldBy(std::int64_t processId) {
    const std::string folder = "/proc/" + std::to_string(processId);
    long size = 0, resident = 0;
    std::ifstream(folder + "/statm") >> size >> resident;
    const std::filesystem::directory_iterator descriptors(folder + "/fd");
    return {static_cast<double>(resident * sysconf(_SC_PAGESIZE)) / 1'048'576,
            static_cast<int>(std::distance(begin(descriptors), end(descriptors)))};
}

}  // namespace bench
