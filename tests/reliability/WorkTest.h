#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iostream>
#include <utility>

#include "reliability/DiskFaults.h"
#include "reliability/Workplace.h"

namespace lumarin::reliability {

/// What may become of a call of the host's services, and what the agent is then told.
struct ServiceFault {
    const char* word;
    const char* reason;
};
inline constexpr ServiceFault ServiceFaultKinds[] = {
    {"fail", "The server cannot be reached"},
    {"stall", "The server does not answer"},
    {"lose", "The connection broke before the server had answered"}};
enum class Lasts { Once, On };

struct DiskKind {
    const char* name;
    disk_faults::Kind kind;
};
inline const std::vector<DiskKind> DiskKinds = {{"disk full", disk_faults::Kind::Full},
                                                {"read-only", disk_faults::Kind::ReadOnly},
                                                {"locked", disk_faults::Kind::Locked}};

/// Three listings of which two have published photos, and what the agent then changes.
class WorkTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        published_ = std::make_unique<testing::TemporaryFolder>();
        Workplace::Prepare(published_->Path());
        Workplace agent(published_->Path());
        agent.Open();
        agent.Load("1001");
        for (const int picture : {1, 2}) agent.Add(picture);
        agent.Load("1002");
        agent.Add(3);
        agent.Send();
        ASSERT_EQ(agent.Told(), 0U) << agent.LastMessage();
        changed_ = std::make_unique<testing::TemporaryFolder>();
        CopyFolder(*published_, *changed_);
        MakeChanges(changed_->Path());
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
    /// What becomes of a call of the host's services, or of that and all later ones.
    void GoesWrong(int call, const ServiceFault& fault, Lasts lasts) {
        ++faults_;
        SetFaults("any " + std::to_string(call) + (lasts == Lasts::On ? "+ " : " ") + fault.word);
    }
    void NothingGoesWrong() { SetFaults(""); }
    int ServiceCallsOf(const std::function<void()>& act) {
        NothingGoesWrong();
        act();
        return agent->host.common.Faults().Calls(host::HostCall::Any);
    }
    static void AtEachServiceCall(const std::string& what, int calls,
                                  const std::function<void(int, const ServiceFault&, Lasts)>& check) {
        for (int call = 1; call <= calls; ++call)
            for (const ServiceFault& fault : ServiceFaultKinds)
                for (const Lasts lasts : {Lasts::Once, Lasts::On}) {
                    SCOPED_TRACE(what + ", call " + std::to_string(call) + " " + fault.word +
                                 (lasts == Lasts::On ? " from there on" : ""));
                    check(call, fault, lasts);
                }
    }
    /// Acts on a disk that is well, then with each kind of fault at each of the file calls which that made.
    void AtEachFileCall(const std::string& what, const std::vector<DiskKind>& kinds,
                        const std::function<void()>& given, const std::function<void()>& act,
                        const std::function<void()>& checkWell, const std::function<void()>& check) {
        const auto actOn = [&](disk_faults::Kind kind, int call) {
            given();
            disk_faults::Begin(folder->Path(), kind, call);
            act();
            return disk_faults::End();
        };
        for (const DiskKind& kind : kinds) {
            const int calls = actOn(kind.kind, 0);
            checkWell();
            for (int call = 1; call <= calls; ++call) {
                SCOPED_TRACE(what + ", " + kind.name + " at call " + std::to_string(call) + " of " +
                             std::to_string(calls));
                ++faults_;
                actOn(kind.kind, call);
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

    std::unique_ptr<testing::TemporaryFolder> folder;
    std::unique_ptr<Workplace> agent;
    Photos before, work;

private:
    static void CopyFolder(const testing::TemporaryFolder& from, const testing::TemporaryFolder& to) {
        std::filesystem::copy(from.Path(), to.Path(), std::filesystem::copy_options::recursive);
    }
    static void MakeChanges(const std::string& dataFolder) {
        Workplace agent(dataFolder);
        agent.Open();
        agent.Load("1001");
        agent.Add(4);
        agent.window->cmdMove(0).Press();
        agent.Load("1002");
        agent.Add(5);
        agent.window->PhotoList.Select(0);
        agent.window->Menu.ClickTool("DeletePhoto");
        agent.Load("1003");
        for (const int picture : {6, 7, 8}) agent.Add(picture);
        ASSERT_EQ(agent.Told(), 0U) << agent.LastMessage();
    }
    void SetFaults(const std::string& script) {
        host::FaultScript& faults = agent->host.common.Faults();
        faults = host::FaultScript::Parse(script);
        faults.SetPatience(std::chrono::milliseconds(1));
    }
    void StartOn(const testing::TemporaryFolder& given) {
        agent.reset();
        folder = std::make_unique<testing::TemporaryFolder>();
        CopyFolder(given, *folder);
        agent = std::make_unique<Workplace>(folder->Path());
        agent->Open();
        before = agent->Published();
    }

    static inline std::unique_ptr<testing::TemporaryFolder> published_, changed_;
    static inline int faults_ = 0;
};

}  // namespace lumarin::reliability
