// A long day of work, judged by what grows and what becomes slower. Usage: soak PROGRAM LISTINGS PHOTOS.

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <exception>

#include "bench/day/WorkingDay.h"

namespace {

/// The toolkit's and the allocator's caches fill up this long.
constexpr double WarmUp = 0.3;
constexpr double GrowthMegabytes = 8;
/// How many times slower the last steps may be than the first.
constexpr double Slower = 1.5;
constexpr std::size_t Compared = 50;
/// Fewer times of a step say nothing.
constexpr std::size_t FewestJudged = 20;
/// A step that takes less is never too slow: the machine's own noise is of this size.
constexpr double SmallestMilliseconds = 5;

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

/// Prints the figures; false when something has grown.
bool JudgeHoldings(const std::vector<bench::Holdings>& held) {
    if (held.empty()) return true;
    const bench::Holdings &warm = held[static_cast<std::size_t>(WarmUp * static_cast<double>(held.size()))],
                          &last = held.back();
    std::printf("memory      %8.1f MB  then %8.1f MB\nopen files  %8d     then %8d\n", warm.megabytes,
                last.megabytes, warm.descriptors, last.descriptors);
    return last.descriptors <= warm.descriptors &&
           last.megabytes <= warm.megabytes + std::max(GrowthMegabytes, warm.megabytes / 10);
}

/// Prints the figures; false when a step has become slower.
bool JudgeTimes(const std::map<std::string, std::vector<double>>& steps) {
    bool good = true;
    for (const auto& [kind, times] : steps) {
        const auto some = static_cast<std::ptrdiff_t>(std::min(Compared, (times.size() + 1) / 2));
        const double first = Median({times.begin(), times.begin() + some});
        const double now = Median({times.end() - some, times.end()});
        std::printf("%-11s %8.2f ms  then %8.2f ms  (%zu)\n", kind.c_str(), first, now, times.size());
        good = good && (times.size() < FewestJudged || now <= std::max(first, SmallestMilliseconds) * Slower);
    }
    return good;
}

int Run(const QString& program, int listings, int photos) {
    const bench::WorkingDay day = bench::WorkThrough(program, listings, photos);
    const bool grew = !JudgeHoldings(day.held), slower = !JudgeTimes(day.times);
    std::printf("at the server: %d photos of %d, %d documents of %d; files left: %zu\n", day.photosAtServer,
                listings * photos, day.documentsAtServer, day.documents, day.leftFiles.size());
    const bool whole = day.photosAtServer == listings * photos && day.documentsAtServer == day.documents &&
                       day.leftFiles.empty();
    return whole && !grew && !slower ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);  // who draws the pictures looks for plugins beside it
    if (argc != 4) return std::fprintf(stderr, "usage: soak PROGRAM LISTINGS PHOTOS\n"), 2;
    try {
        return Run(argv[1], std::stoi(argv[2]), std::stoi(argv[3]));
    } catch (const std::exception& error) {
        return std::fprintf(stderr, "soak: %s\n", error.what()), 1;
    }
}
