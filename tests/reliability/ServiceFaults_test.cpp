#include "reliability/WorkTest.h"

namespace lumarin::reliability {

using ServiceFaults = WorkTest;
using TwoWindows = WorkTest;

TEST_F(ServiceFaults, Send_AnyCallGoesWrong_NothingIsLostAndARetrySendsEverythingOnce) {
    GivenChanges();
    const int calls = ServiceCallsOf([&] { agent->Send(); });
    ExpectAllSent();
    ASSERT_GE(calls, 8);
    AtEachServiceCall("send", calls, [&](const ServiceFault& fault) {
        GivenChanges();
        GoesWrong(fault);
        agent->desktop.Expect("Unavailable to connect to server, do you want to retry",
                              fault.lasts ? Answer::No : Answer::Yes);
        agent->Send();
        if (fault.lasts) {
            EXPECT_EQ(agent->Work(), work);
            EXPECT_EQ(WorkOnDisk(folder->Path()), work);
            const Photos held = agent->Published();
            EXPECT_TRUE(held == before ||
                        (fault.call == calls && std::string("lose") == fault.word && held == work));
            NothingGoesWrong();
            agent->Send();
        }
        EXPECT_EQ(agent->Told(), 1U) << agent->LastMessage();
        ExpectAllSent();
    });
}

TEST_F(ServiceFaults, Load_AnyCallGoesWrong_SaysSoAndWorksTheNextTime) {
    Start();
    const int calls = ServiceCallsOf([&] { agent->Load("1001"); });
    ASSERT_EQ(calls, 3) << "a query and two photos";
    AtEachServiceCall("load", calls, [&](const ServiceFault& fault) {
        Start();
        GoesWrong(fault);
        agent->Load("1001");
        EXPECT_EQ(agent->Told(), 1U);
        EXPECT_TRUE(agent->IsEmpty());
        EXPECT_TRUE(WorkOnDisk(folder->Path()).empty());
        NothingGoesWrong();
        agent->Load("1001");
        EXPECT_EQ(agent->Work()["1001"], before["1001"]);
    });
}

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

TEST_F(TwoWindows, FolderOfAnyLettersAndLength_TakesTheWholeWork) {
    Start();
    const std::string deep =
        folder->Path() + "\u00E9\u4E2D \u0416/" + std::string(120, 'd') + "/" + std::string(120, 'e') + "/";
    Workplace::Prepare(deep);
    Workplace there(deep);
    there.Open();
    there.Load("1001");
    there.Add(1);
    there.AddLarge();
    there.Send();
    there.OpenDocuments();
    there.BuildPdf();
    there.AddPdf();
    EXPECT_EQ(there.Told(), 0U) << there.LastMessage();
    EXPECT_EQ(Workplace::PublishedIn(deep)["1001"].size(), 2U);
    EXPECT_EQ(there.Documents().size(), 2U);
}

}  // namespace lumarin::reliability
