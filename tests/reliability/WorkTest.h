#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <iostream>
#include <utility>

#include "reliability/DiskFaults.h"
#include "reliability/Workplace.h"

namespace lumarin::reliability {

/// What becomes of a call of the host's services, or of that and all later ones.
struct ServiceFault {
    const char* word;
    const char* reason;  ///< what the agent is then told
    int call = 0;
    bool lasts = false;
};

using DiskKinds = std::vector<std::pair<const char*, disk_faults::Kind>>;
inline const DiskKinds BadDisks = {{"disk full", disk_faults::Kind::Full},
                                   {"read-only", disk_faults::Kind::ReadOnly},
                                   {"locked", disk_faults::Kind::Locked},
                                   {"damaged", disk_faults::Kind::Damaged}};

/// Three listings of which two have published photos, and what the agent then changes.
class WorkTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        const testing::TemporaryFolder made;
        Workplace::Prepare(made.Path());
        Workplace agent(made.Path());
        agent.Open();
        agent.Load("1001");
        for (const int picture : {1, 2}) agent.Add(picture);
        agent.Load("1002");
        agent.Add(3);
        agent.Send();
        published_ = std::make_unique<FolderCopy>(made.Path());
        MakeChanges(agent);
        ASSERT_EQ(agent.Told(), 0U) << agent.LastMessage();
        changed_ = std::make_unique<FolderCopy>(made.Path());
    }
    static void TearDownTestSuite() {
        published_.reset();
        changed_.reset();
        std::cout << std::exchange(faults_, 0) << " faults\n";
    }

    /// The agent at work on what is published.
    void Start() { StartOn(*published_); }
    /// The agent with a new photo, an exchange, a removal and a listing that had none.
    void GivenChanges() {
        StartOn(*changed_);
        work = agent->Work();
        ASSERT_EQ(work["1001"].size() + work["1002"].size() + work["1003"].size(), 7U);
    }
    void GoesWrong(const ServiceFault& fault) {
        SetFaults("any " + std::to_string(fault.call) + (fault.lasts ? "+ " : " ") + fault.word);
    }
    void NothingGoesWrong() { SetFaults(""); }
    int ServiceCallsOf(const std::function<void()>& act) {
        NothingGoesWrong();
        act();
        return agent->host.common.Faults().Calls(host::HostCall::Any);
    }
    static void AtEachServiceCall(const std::string& what, int calls,
                                  const std::function<void(const ServiceFault&)>& check) {
        for (int call = 1; call <= calls; ++call)
            for (ServiceFault fault : {ServiceFault{"fail", "The server cannot be reached"},
                                       {"stall", "The server does not answer"},
                                       {"lose", "The connection broke before the server had answered"}})
                for (const bool lasts : {false, true}) {
                    SCOPED_TRACE(what + ", call " + std::to_string(call) + " " + fault.word +
                                 (lasts ? " from there on" : ""));
                    ++faults_;
                    fault.call = call;
                    fault.lasts = lasts;
                    check(fault);
                }
    }
    /// Acts on a disk that is well, then with each kind of fault at each of the file calls which that made.
    void AtEachFileCall(const std::string& what, const DiskKinds& kinds, const std::function<void()>& given,
                        const std::function<void()>& act, const std::function<void()>& checkWell,
                        const std::function<void()>& check) {
        const auto actOn = [&](disk_faults::Kind kind, int call) {
            given();
            disk_faults::Begin(folder->Path(), kind, call);
            act();
            return disk_faults::End();
        };
        for (const auto& [name, kind] : kinds) {
            const int calls = actOn(kind, 0);
            checkWell();
            for (int call = 1 + faults_ % disk_faults::Stride; call <= calls; call += disk_faults::Stride) {
                SCOPED_TRACE(what + ", " + name + " at call " + std::to_string(call) + " of " +
                             std::to_string(calls));
                ++faults_;
                actOn(kind, call);
                check();
            }
        }
    }
    void ExpectAllSent() {
        EXPECT_TRUE(agent->IsEmpty());
        EXPECT_EQ(agent->Published(), work);
        EXPECT_TRUE(WorkOnDisk(folder->Path()).empty());
        for (const auto& [listing, photos] : work)
            for (std::size_t i = 0; i < photos.size(); ++i)
                EXPECT_TRUE(photos[i].ends_with(":" + agent->LocalCopy(listing, static_cast<int>(i) + 1)));
    }
    /// Does again, with the fault gone, what was reported as failed before; that itself is not reported.
    template <class Act>
    void ExpectWorksNow(Act act) {
        const std::size_t told = agent->Told();
        EXPECT_GT(told, 0U) << "it did not work, and nobody was told";
        act();
        EXPECT_EQ(agent->Told(), told) << agent->LastMessage();
    }

    std::unique_ptr<testing::TemporaryFolder> folder;
    std::unique_ptr<Workplace> agent;
    Photos before, work;

private:
    static void MakeChanges(Workplace& agent) {
        agent.Load("1001");
        agent.Add(4);
        agent.window->cmdMove(0).Press();
        agent.Load("1002");
        agent.Add(5);
        agent.window->PhotoList.Select(0);
        agent.window->Menu.ClickTool("DeletePhoto");
        agent.Load("1003");
        for (const int picture : {6, 7, 8}) agent.Add(picture);
    }
    void SetFaults(const std::string& script) {
        host::FaultScript& faults = agent->host.common.Faults();
        faults = host::FaultScript::Parse(script);
        faults.SetPatience(std::chrono::milliseconds(1));
    }
    void StartOn(const testing::TemporaryFolder& given) {
        agent.reset();
        folder = std::make_unique<FolderCopy>(given.Path());
        agent = std::make_unique<Workplace>(folder->Path());
        agent->Open();
        before = agent->Published();
    }

    static inline std::unique_ptr<testing::TemporaryFolder> published_, changed_;
    static inline int faults_ = 0;
};

}  // namespace lumarin::reliability
