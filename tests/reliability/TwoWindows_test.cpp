#include "reliability/WorkTest.h"

namespace lumarin::reliability {
namespace {

class TwoWindows : public WorkTest {};

TEST_F(TwoWindows, OneSendsWhileTheOtherDoes_BothComeToTheirEnd) {
    // From which of its turns on the other window works: before the first chunk, in the middle, at the end.
    for (const int turn : {1, 2, 4})
        for (const bool photosFirst : {true, false}) {
            SCOPED_TRACE("turn " + std::to_string(turn) +
                         (photosFirst ? " of the photos" : " of a document"));
            GivenChanges();
            agent->OpenDocuments();
            bool didOther = false;
            agent->desktop.AtPendingEvents(turn, [&] {
                didOther = true;
                photosFirst ? agent->AddPdf() : agent->Send();
            });
            photosFirst ? agent->Send() : agent->AddPdf();
            EXPECT_TRUE(didOther);
            EXPECT_EQ(agent->Told(), 0U) << agent->LastMessage();
            ExpectAllSent();
            EXPECT_EQ(agent->Documents().size(), 1U);
            EXPECT_EQ(agent->documents->lvFiles.Count(), 1);
        }
}

}  // namespace
}  // namespace lumarin::reliability
