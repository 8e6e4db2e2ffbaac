#include "bench/day/WorkingDay.h"

#include <gtest/gtest.h>

namespace bench {

// What becomes slower or grows slowly takes a whole day to be seen: bench/soak.
TEST(WorkingDay, ThirtyListings_AreAtTheServerAndLeaveNothingBehind) {
    constexpr int Listings = 30, Photos = 10;
    const WorkingDay day = WorkThrough(HOST_PROGRAM, Listings, Photos);
    EXPECT_EQ(day.photosAtServer, Listings * Photos);
    EXPECT_EQ(day.documents, 3);
    EXPECT_EQ(day.documentsAtServer, day.documents);
    EXPECT_EQ(day.leftFiles, std::vector<std::string>());
    EXPECT_LE(day.held.back().descriptors, day.held.front().descriptors);
}

}  // namespace bench
