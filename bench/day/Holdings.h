#pragma once

#include <cstdint>

namespace bench {

/// What a running program holds at a moment.
struct Holdings {
    double megabytes = 0;
    int descriptors = 0;  ///< open files, or what the system counts instead of them
};

Holdings HeldBy(std::int64_t processId);

}  // namespace bench
