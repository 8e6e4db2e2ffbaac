#include "reliability/WorkTest.h"

namespace lumarin::reliability {
namespace {

using host::FaultScript;
using host::HostCall;

const std::string Retry = "Unavailable to connect to server, do you want to retry";
const char* const Kinds[] = {"fail", "stall", "lose"};

class ServiceFaults : public WorkTest {
protected:
    int CallsOf(const std::function<void()>& given, const std::function<void()>& action) {
        given();
        GoesWrong("");
        action();
        return agent->host.common.Faults().Calls(HostCall::Any);
    }
};

TEST_F(ServiceFaults, Send_AnyCallGoesWrong_RetryAtOnceSendsEverythingOnce) {
    const int calls = CallsOf([&] { GivenChanges(); }, [&] { agent->Send(); });
    ExpectAllSent();
    ASSERT_GE(calls, 8);
    for (int call = 1; call <= calls; ++call)
        for (const std::string kind : Kinds) {
            SCOPED_TRACE("call " + std::to_string(call) + " " + kind);
            GivenChanges();
            GoesWrong("any " + std::to_string(call) + " " + kind);
            agent->desktop.Expect(Retry, Answer::Yes);
            agent->Send();
            EXPECT_EQ(agent->Told(), 1U);
            ExpectAllSent();
        }
}

TEST_F(ServiceFaults, Send_ServerGoesAwayAtAnyCall_NothingIsLostAndALaterSendWorks) {
    const int calls = CallsOf([&] { GivenChanges(); }, [&] { agent->Send(); });
    for (int call = 1; call <= calls; ++call)
        for (const std::string kind : Kinds) {
            SCOPED_TRACE("from call " + std::to_string(call) + " on " + kind);
            GivenChanges();
            GoesWrong("any " + std::to_string(call) + "+ " + kind);
            agent->desktop.Expect(Retry, Answer::No);
            agent->Send();
            EXPECT_EQ(agent->Told(), 1U);
            EXPECT_EQ(agent->Work(), work);
            EXPECT_EQ(WorkOnDisk(folder->Path()), work);
            const Photos held = agent->Published();
            EXPECT_TRUE(held == before || (call == calls && kind == "lose" && held == work));
            GoesWrong("");
            agent->Send();
            EXPECT_EQ(agent->Told(), 1U) << agent->LastMessage();
            ExpectAllSent();
        }
}

TEST_F(ServiceFaults, Load_AnyCallGoesWrong_SaysSoAndWorksTheNextTime) {
    const int calls = CallsOf([&] { Start(); }, [&] { agent->Load("1001"); });
    ASSERT_EQ(calls, 3) << "a query and two photos";
    for (int call = 1; call <= calls; ++call)
        for (const std::string kind : Kinds) {
            SCOPED_TRACE("call " + std::to_string(call) + " " + kind);
            Start();
            GoesWrong("any " + std::to_string(call) + " " + kind);
            agent->Load("1001");
            EXPECT_EQ(agent->Told(), 1U);
            EXPECT_TRUE(agent->IsEmpty());
            EXPECT_TRUE(WorkOnDisk(folder->Path()).empty());
            agent->Load("1001");
            EXPECT_EQ(agent->Work()["1001"], before["1001"]);
        }
}

}  // namespace
}  // namespace lumarin::reliability
