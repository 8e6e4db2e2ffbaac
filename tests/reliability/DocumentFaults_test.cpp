#include <functional>

#include "reliability/WorkTest.h"

namespace lumarin::reliability {
namespace {

using disk_faults::Kind;

struct Change {
    const char* name;
    void (*act)(Workplace&);
    bool uploads;
};

const Change Changes[] = {
    {"existing file", [](Workplace& agent) { agent.AddPdf(); }, true},
    {"link", [](Workplace& agent) { agent.AddLink(); }, false},
    {"built file", [](Workplace& agent) { agent.BuildPdf(); }, true},
    {"delete", [](Workplace& agent) { agent.DeleteDocument(); }, false},
};

const struct {
    const char* word;
    const char* reason;
} CallFaults[] = {{"fail", "The server cannot be reached"},
                  {"stall", "The server does not answer"},
                  {"lose", "The connection broke before the server had answered"}};

/// A listing with one document, and one change to them.
class DocumentFaults : public WorkTest {
protected:
    void Prepare() {
        Start();
        agent->OpenDocuments();
        agent->AddPdf();
        ASSERT_EQ(agent->Told(), 0U) << agent->LastMessage();
        held = agent->Documents();
        ASSERT_EQ(held.size(), 1U);
    }
    int CallsOf(const Change& change) {
        Prepare();
        GoesWrong("");
        change.act(*agent);
        EXPECT_EQ(agent->Told(), 0U) << agent->LastMessage();
        after = agent->Documents();
        EXPECT_NE(after, held);
        EXPECT_EQ(agent->DraftFiles(), 0U);
        return agent->host.common.Faults().Calls(host::HostCall::Any);
    }
    /// With the fault gone: what was not done is done at the next try, and nothing twice.
    void ExpectNextTryWorks(const Change& change) {
        if (agent->Documents() != after) {
            EXPECT_EQ(agent->Documents(), held);
            EXPECT_GT(agent->Told(), 0U) << "it did not work, and nobody was told";
            const std::size_t told = agent->Told();
            agent->OpenDocuments();
            change.act(*agent);
            EXPECT_EQ(agent->Told(), told) << agent->LastMessage();
        }
        EXPECT_EQ(agent->Documents(), after);
    }

    std::vector<std::string> held, after;
};

TEST_F(DocumentFaults, Change_AnyCallGoesWrong_RetryAtOnceDoesItOnce) {
    for (const Change& change : Changes) {
        const int calls = CallsOf(change);
        for (int call = 1; call <= calls; ++call)
            for (const auto& fault : CallFaults) {
                SCOPED_TRACE(std::string(change.name) + ", call " + std::to_string(call) + " " + fault.word);
                Prepare();
                GoesWrong("any " + std::to_string(call) + " " + fault.word);
                if (change.uploads)
                    agent->desktop.Expect(
                        std::string("The document could not be sent to the server.\n") + fault.reason,
                        Answer::Retry);
                change.act(*agent);
                EXPECT_EQ(agent->Told(), 1U);
                ExpectNextTryWorks(change);
            }
    }
}

TEST_F(DocumentFaults, Change_ServerGoesAwayAtAnyCall_NothingIsLostAndTheNextTryWorks) {
    for (const Change& change : Changes) {
        const int calls = CallsOf(change);
        for (int call = 1; call <= calls; ++call)
            for (const auto& fault : CallFaults) {
                SCOPED_TRACE(std::string(change.name) + ", from call " + std::to_string(call) + " on " +
                             fault.word);
                Prepare();
                GoesWrong("any " + std::to_string(call) + "+ " + fault.word);
                change.act(*agent);
                EXPECT_GT(agent->Told(), 0U);
                GoesWrong("");
                ExpectNextTryWorks(change);
            }
    }
}

TEST_F(DocumentFaults, Change_AnyFileCallGoesWrong_IsDoneOrToldAndRepeatable) {
    for (const Change& change : Changes) {
        CallsOf(change);
        for (const Kind kind : {Kind::Full, Kind::ReadOnly, Kind::Locked}) {
            Prepare();
            DiskGoesWrong(kind);
            change.act(*agent);
            const int calls = disk_faults::End();
            for (int call = 1; call <= calls; ++call) {
                SCOPED_TRACE(std::string(change.name) + ", fault " + std::to_string(static_cast<int>(kind)) +
                             " at call " + std::to_string(call) + " of " + std::to_string(calls));
                Prepare();
                DiskGoesWrong(kind, call);
                change.act(*agent);
                disk_faults::End();
                ExpectNextTryWorks(change);
            }
        }
    }
}

}  // namespace
}  // namespace lumarin::reliability
