#include "reliability/WorkTest.h"

namespace lumarin::reliability {
namespace {

const std::string Retry = "Unavailable to connect to server, do you want to retry";

class ServiceFaults : public WorkTest {};

TEST_F(ServiceFaults, Send_AnyCallGoesWrong_NothingIsLostAndARetrySendsEverythingOnce) {
    GivenChanges();
    const int calls = ServiceCallsOf([&] { agent->Send(); });
    ExpectAllSent();
    ASSERT_GE(calls, 8);
    AtEachServiceCall("send", calls, [&](int call, const ServiceFault& fault, Lasts lasts) {
        GivenChanges();
        GoesWrong(call, fault, lasts);
        agent->desktop.Expect(Retry, lasts == Lasts::On ? Answer::No : Answer::Yes);
        agent->Send();
        if (lasts == Lasts::On) {
            EXPECT_EQ(agent->Work(), work);
            EXPECT_EQ(WorkOnDisk(folder->Path()), work);
            const Photos held = agent->Published();
            EXPECT_TRUE(held == before ||
                        (call == calls && std::string("lose") == fault.word && held == work));
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
    AtEachServiceCall("load", calls, [&](int call, const ServiceFault& fault, Lasts lasts) {
        Start();
        GoesWrong(call, fault, lasts);
        agent->Load("1001");
        EXPECT_EQ(agent->Told(), 1U);
        EXPECT_TRUE(agent->IsEmpty());
        EXPECT_TRUE(WorkOnDisk(folder->Path()).empty());
        NothingGoesWrong();
        agent->Load("1001");
        EXPECT_EQ(agent->Work()["1001"], before["1001"]);
    });
}

}  // namespace
}  // namespace lumarin::reliability
