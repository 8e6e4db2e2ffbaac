#include "reliability/WorkTest.h"

namespace lumarin::reliability {

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
    /// With the fault gone: what was not done is done at the next try, and nothing twice.
    void ExpectNextTryWorks(const Change& change) {
        if (agent->Documents() != after) {
            EXPECT_EQ(agent->Documents(), held);
            ExpectWorksNow([&] {
                agent->OpenDocuments();
                change.act(*agent);
            });
        }
        EXPECT_EQ(agent->Documents(), after);
    }

    std::vector<std::string> held, after;
};

TEST_F(DocumentFaults, Change_AnyCallGoesWrong_NothingIsLostAndARetryDoesItOnce) {
    for (const Change& change : Changes)
        AtEachServiceCall(change.name, CallsOf(change), [&](const ServiceFault& fault) {
            Prepare();
            GoesWrong(fault);
            if (!fault.lasts && change.uploads)
                agent->desktop.Expect(
                    std::string("The document could not be sent to the server.\n") + fault.reason,
                    Answer::Retry);
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
