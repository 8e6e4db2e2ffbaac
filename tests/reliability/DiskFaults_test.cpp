#include <algorithm>

#include "base/Files.h"
#include "base/Rewrite.h"
#include "reliability/WorkTest.h"

namespace lumarin::reliability {

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

void RemoveTwo(Workplace& agent) {
    agent.window->PhotoList.SetMultiSelect(true);
    agent.window->PhotoList.SelectRows({0, 2});
    agent.window->Menu.ClickTool("DeletePhoto");
}
void Undo(Workplace& agent) { agent.window->Menu.ClickTool("Undo"); }

const Step Steps[] = {
    {"load", [](Workplace&) {}, [](Workplace& agent) { agent.Load("1001"); }},
    {"import", [](Workplace& agent) { agent.Load("1001"); }, [](Workplace& agent) { agent.Add(4); }},
    {"capture", [](Workplace& agent) { agent.Load("1001"); }, [](Workplace& agent) { agent.AddLarge(); }},
    {"move", SelectFirst, [](Workplace& agent) { agent.window->cmdMove(1).Press(); }},
    {"remove a photo", SelectFirst, [](Workplace& agent) { agent.window->Menu.ClickTool("DeletePhoto"); }},
    {"describe", SelectFirst, [](Workplace& agent) { agent.DescribeAsKitchen(); }},
    {"remove the listing", LoadThree, [](Workplace& agent) { agent.RemoveListing(); }},
    {"remove two photos", SelectFirst, RemoveTwo},
    {"undo that", [](Workplace& agent) { SelectFirst(agent), RemoveTwo(agent); }, Undo},
    {"undo the removal of the listing", [](Workplace& agent) { LoadThree(agent), agent.RemoveListing(); },
     Undo},
    {"open again", LoadThree, [](Workplace& agent) { agent.Open(); }, true},
};

/// Tells when a command under a fault neither does its work nor says that it did not, when it leaves
/// something halfway, or when it does not work once the fault is gone.
class DiskFaults : public WorkTest {
protected:
    void ExpectDoneOrTold(const Step& step) {
        const Photos onDisk = WorkOnDisk(folder->Path());
        if (agent->window == nullptr) agent->Open();
        const Photos shown = agent->Work();
        EXPECT_EQ(onDisk, shown == after ? after : work);
        if (shown == after) return;
        // A window that could not take up the work leaves it where it is.
        EXPECT_TRUE(step.opens || shown == work);
        ExpectWorksNow([&] { step.act(*agent); });
        EXPECT_EQ(agent->Work(), after);
    }

    Photos after;
};

TEST_F(DiskFaults, Work_AnyFileCallGoesWrong_IsDoneOrToldAndRepeatable) {
    for (const Step& step : Steps) {
        const auto given = [&] {
            Start();
            step.given(*agent);
            work = agent->Work();
        };
        const auto checkWell = [&] {
            EXPECT_EQ(agent->Told(), 0U) << agent->LastMessage();
            after = agent->Work();
        };
        AtEachFileCall(
            step.name, BadDisks, given, [&] { step.act(*agent); }, checkWell,
            [&] { ExpectDoneOrTold(step); });
    }
}

TEST_F(DiskFaults, Send_AnyFileCallGoesWrong_ServerHasAllOrNothing) {
    AtEachFileCall(
        "send", BadDisks, [&] { GivenChanges(); }, [&] { agent->Send(); }, [&] { ExpectAllSent(); },
        [&] {
            const Photos held = agent->Published();
            EXPECT_TRUE(held == work || held == before);
            if (!agent->IsEmpty()) {
                EXPECT_EQ(WorkOnDisk(folder->Path()), work);
                EXPECT_EQ(agent->Work(), work);
                ExpectWorksNow([&] { agent->Send(); });
                EXPECT_TRUE(agent->IsEmpty());
            }
            EXPECT_EQ(agent->Published(), work);
        });
}

/// How many of the photos are gone; fails the test when the others do not stand as before.
std::size_t Lost(const std::vector<std::string>& photos, std::vector<std::string> kept) {
    std::erase_if(kept, [](const std::string& entry) { return entry.ends_with(":missing"); });
    const auto place = [&](const std::string& photo) { return std::ranges::find(photos, photo); };
    EXPECT_TRUE(std::ranges::includes(photos, kept, {}, place, place));
    return photos.size() - kept.size();
}

TEST_F(DiskFaults, Send_AnyFileVanishes_IsToldAndCostsNoOtherPhoto) {
    AtEachFileCall(
        "send", {{"vanished", disk_faults::Kind::Vanished}}, [&] { GivenChanges(); }, [&] { agent->Send(); },
        [] {},
        [&] {
            const bool sent = agent->IsEmpty();
            EXPECT_EQ(agent->Published(), sent ? work : before);
            if (sent) return;
            EXPECT_GT(agent->Told(), 0U);
            const Photos left = agent->Work();
            std::size_t lost = 0;
            for (const auto& [listing, photos] : work)
                if (left.contains(listing)) lost += Lost(photos, left.at(listing));
            EXPECT_LE(lost, 1U);
        });
}

TEST_F(DiskFaults, Settings_AnyFileCallGoesWrong_AreOldOrNew) {
    const auto toggle = [&] { agent->window->Menu.ClickTool("FilePreview"); };
    const auto read = [&] { return files::ReadRewritten(folder->Path() + "city/CityInfo.ini"); };
    Start();
    const std::string old = read();
    std::string changed;
    AtEachFileCall(
        "settings", BadDisks, [&] { Start(); }, toggle, [&] { ASSERT_NE(old, changed = read()); },
        [&] {
            EXPECT_TRUE(read() == old || read() == changed);
            toggle();
            toggle();
            EXPECT_EQ(read(), changed);
        });
}

}  // namespace lumarin::reliability
