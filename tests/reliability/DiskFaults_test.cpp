#include <algorithm>

#include "base/Files.h"
#include "reliability/WorkTest.h"

namespace lumarin::reliability {
namespace {

using disk_faults::Kind;

struct Step {
    const char* name;
    void (*given)(Workplace&);
    void (*act)(Workplace&);
    bool opens = false;
};

void LoadThree(Workplace& agent) {
    agent.Load("1001");
    agent.Add(4);
}
void SelectFirst(Workplace& agent) {
    LoadThree(agent);
    agent.window->PhotoList.Select(0);
}

const Step Steps[] = {
    {"load", [](Workplace&) {}, [](Workplace& agent) { agent.Load("1001"); }},
    {"import", [](Workplace& agent) { agent.Load("1001"); }, [](Workplace& agent) { agent.Add(4); }},
    {"capture", [](Workplace& agent) { agent.Load("1001"); }, [](Workplace& agent) { agent.AddLarge(); }},
    {"move", SelectFirst, [](Workplace& agent) { agent.window->cmdMove(1).Press(); }},
    {"remove a photo", SelectFirst, [](Workplace& agent) { agent.window->Menu.ClickTool("DeletePhoto"); }},
    {"describe", SelectFirst, [](Workplace& agent) { agent.Describe(2117); }},
    {"remove the listing", LoadThree, [](Workplace& agent) { agent.RemoveListing(); }},
    {"open again", LoadThree, [](Workplace& agent) { agent.Open(); }, true},
};

struct DiskKind {
    const char* name;
    Kind kind;
};
const DiskKind Kinds[] = {{"disk full", Kind::Full}, {"read-only", Kind::ReadOnly}, {"locked", Kind::Locked}};

/// Tells when a command under a fault neither does its work nor says that it did not, when it leaves
/// something halfway, or when it does not work once the fault is gone.
class DiskFaults : public WorkTest {
protected:
    int CallsOf(const Step& step, Kind kind) {
        Prepare(step);
        DiskGoesWrong(kind);
        step.act(*agent);
        const int calls = disk_faults::End();
        EXPECT_EQ(agent->Told(), 0U) << agent->LastMessage();
        after = agent->Work();
        return calls;
    }
    void Prepare(const Step& step) {
        Start();
        step.given(*agent);
        work = agent->Work();
    }
    void RunWithFault(const Step& step, Kind kind, int call) {
        Prepare(step);
        DiskGoesWrong(kind, call);
        step.act(*agent);
        disk_faults::End();
        const std::size_t told = agent->Told();
        const Photos onDisk = WorkOnDisk(folder->Path());
        if (agent->window == nullptr) agent->Open();
        const Photos shown = agent->Work();
        EXPECT_EQ(onDisk, shown == after ? after : work);
        if (shown == after) return;
        // A window that could not take up the work leaves it where it is.
        if (!step.opens) {
            EXPECT_EQ(shown, work);
        }
        EXPECT_GT(told, 0U) << "it did not work, and nobody was told";
        step.act(*agent);
        EXPECT_EQ(agent->Work(), after);
        EXPECT_EQ(agent->Told(), told) << agent->LastMessage();
    }

    Photos after;
};

TEST_F(DiskFaults, Work_AnyFileCallGoesWrong_IsDoneOrToldAndRepeatable) {
    for (const Step& step : Steps)
        for (const DiskKind& kind : Kinds) {
            const int calls = CallsOf(step, kind.kind);
            for (int call = 1; call <= calls; ++call) {
                SCOPED_TRACE(std::string(step.name) + ", " + kind.name + " at call " + std::to_string(call) +
                             " of " + std::to_string(calls));
                RunWithFault(step, kind.kind, call);
            }
        }
}

TEST_F(DiskFaults, Send_AnyFileCallGoesWrong_ServerHasAllOrNothing) {
    for (const DiskKind& kind : Kinds) {
        GivenChanges();
        DiskGoesWrong(kind.kind);
        agent->Send();
        const int calls = disk_faults::End();
        ExpectAllSent();
        for (int call = 1; call <= calls; ++call) {
            SCOPED_TRACE(std::string(kind.name) + " at call " + std::to_string(call) + " of " +
                         std::to_string(calls));
            GivenChanges();
            DiskGoesWrong(kind.kind, call);
            agent->Send();
            disk_faults::End();
            const Photos held = agent->Published();
            EXPECT_TRUE(held == work || held == before);
            if (!agent->IsEmpty()) {
                EXPECT_GT(agent->Told(), 0U);
                EXPECT_EQ(WorkOnDisk(folder->Path()), work);
                EXPECT_EQ(agent->Work(), work);
                const std::size_t told = agent->Told();
                agent->Send();
                EXPECT_EQ(agent->Told(), told) << agent->LastMessage();
                EXPECT_TRUE(agent->IsEmpty());
            }
            EXPECT_EQ(agent->Published(), work);
        }
    }
}

/// Without the photos of which nothing is left.
Photos Present(const Photos& photos) {
    Photos present = photos;
    for (auto& [listing, entries] : present)
        std::erase_if(entries, [](const std::string& entry) { return entry.ends_with(":missing"); });
    return present;
}

TEST_F(DiskFaults, Send_AnyFileVanishes_IsToldAndCostsNoOtherPhoto) {
    GivenChanges();
    DiskGoesWrong(Kind::Vanished);
    agent->Send();
    const int calls = disk_faults::End();
    for (int call = 1; call <= calls; ++call) {
        SCOPED_TRACE("call " + std::to_string(call) + " of " + std::to_string(calls));
        GivenChanges();
        DiskGoesWrong(Kind::Vanished, call);
        agent->Send();
        disk_faults::End();
        if (agent->IsEmpty()) {
            EXPECT_EQ(agent->Published(), work);
            continue;
        }
        EXPECT_GT(agent->Told(), 0U);
        EXPECT_EQ(agent->Published(), before);
        const Photos left = Present(agent->Work());
        std::size_t lost = 0;
        for (const auto& [listing, photos] : work) {
            const std::vector<std::string> kept = left.contains(listing) ? left.at(listing) : photos;
            EXPECT_TRUE(std::includes(photos.begin(), photos.end(), kept.begin(), kept.end(),
                                      [&](const auto& a, const auto& b) {
                                          return std::find(photos.begin(), photos.end(), a) <
                                                 std::find(photos.begin(), photos.end(), b);
                                      }));
            lost += photos.size() - kept.size();
        }
        EXPECT_LE(lost, 1U);
    }
}

TEST_F(DiskFaults, Settings_AnyFileCallGoesWrong_AreOldOrNew) {
    const auto toggle = [&] { agent->window->Menu.ClickTool("FilePreview"); };
    const auto read = [&] { return files::ReadAll(folder->Path() + "city/CityInfo.ini"); };
    Start();
    const std::string old = read();
    toggle();
    const std::string changed = read();
    ASSERT_NE(old, changed);
    for (const DiskKind& kind : Kinds)
        for (int call = 1; call <= 8; ++call) {
            SCOPED_TRACE(std::string(kind.name) + " at call " + std::to_string(call));
            Start();
            DiskGoesWrong(kind.kind, call);
            toggle();
            disk_faults::End();
            EXPECT_TRUE(read() == old || read() == changed);
            toggle();
            toggle();
            EXPECT_EQ(read(), changed);
        }
}

}  // namespace
}  // namespace lumarin::reliability
