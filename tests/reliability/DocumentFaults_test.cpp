#include "reliability/WorkTest.h"

namespace lumarin::reliability {

struct Change {
    const char* name;
    void (*act)(Workplace&);
    std::string failure;
};

const std::string Unsent = "The document could not be sent to the server.";

const Change Changes[] = {
    {"existing file", [](Workplace& agent) { agent.AddPdf(); }, Unsent},
    {"link", [](Workplace& agent) { agent.AddLink(); }, "The link could not be sent to the server."},
    {"built file", [](Workplace& agent) { agent.BuildPdf(); }, Unsent},
    {"delete", [](Workplace& agent) { agent.DeleteDocument(); },
     "The document could not be deleted at the server."},
};

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
        const int calls = ServiceCallsOf([&] { change.act(*agent); });
        EXPECT_EQ(agent->Told(), 0U) << agent->LastMessage();
        after = agent->Documents();
        EXPECT_NE(after, held);
        EXPECT_FALSE(agent->HasDraftFiles());
        return calls;
    }
    /// With the fault gone: what was not done, or is still begun, is done at the next try, and nothing twice.
    void ExpectNextTryWorks(const Change& change) {
        const bool isDone = agent->Documents() == after;
        if (!isDone) {
            EXPECT_EQ(agent->Documents(), held);
        }
        if (!isDone || !agent->DraftPages().empty())
            ExpectWorksNow([&] {
                agent->OpenDocuments();
                change.act(*agent);
            });
        EXPECT_EQ(agent->Documents(), after);
    }

    std::vector<std::string> held, after;
};

TEST_F(DocumentFaults, Change_AnyCallGoesWrong_NothingIsLostAndARetryDoesItOnce) {
    for (const Change& change : Changes)
        AtEachServiceCall(change.name, CallsOf(change), [&](const ServiceFault& fault) {
            Prepare();
            GoesWrong(fault);
            if (!fault.lasts) agent->desktop.Expect(change.failure + "\n" + fault.reason, Answer::Retry);
            change.act(*agent);
            EXPECT_GT(agent->Told(), 0U);
            EXPECT_TRUE(fault.lasts || agent->Told() == 1) << agent->LastMessage();
            NothingGoesWrong();
            ExpectNextTryWorks(change);
        });
}

TEST_F(DocumentFaults, Change_AnyFileCallGoesWrong_IsDoneOrToldAndRepeatable) {
    for (const Change& change : Changes) {
        CallsOf(change);
        AtEachFileCall(
            change.name, BadDisks, [&] { Prepare(); }, [&] { change.act(*agent); }, [] {},
            [&] { ExpectNextTryWorks(change); });
    }
}

}  // namespace lumarin::reliability
