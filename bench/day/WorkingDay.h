#pragma once

#include <QString>

#include <map>
#include <string>
#include <vector>

#include "bench/day/Holdings.h"

namespace bench {

struct WorkingDay {
    /// Milliseconds of every step, by kind, in order.
    std::map<std::string, std::vector<double>> times;
    std::vector<Holdings> held;  ///< behind each send, with the windows of before closed
    int photosAtServer = 0;
    int documents = 0;  ///< that were built
    int documentsAtServer = 0;
    std::vector<std::string> leftFiles;  ///< in the data folder, of work that is over
};

/// Drives the program through the work on so many listings with so many photos each. Throws
/// std::runtime_error when the program cannot be started, ends badly or could not do a step.
WorkingDay WorkThrough(const QString& program, int listings, int photos);

}  // namespace bench
