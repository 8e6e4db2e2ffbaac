#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <utility>

#include "reliability/DiskFaults.h"
#include "reliability/Workplace.h"

namespace lumarin::reliability {

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
    /// What the host's services do from now on.
    void GoesWrong(const std::string& script) {
        faults_ += script.empty() ? 0 : 1;
        host::FaultScript& faults = agent->host.common.Faults();
        faults = host::FaultScript::Parse(script);
        faults.SetPatience(std::chrono::milliseconds(1));
    }
    /// What becomes of the disk from now on; without a call its calls are counted only.
    void DiskGoesWrong(disk_faults::Kind kind, int call = 0) {
        faults_ += call > 0 ? 1 : 0;
        disk_faults::Begin(folder->Path(), kind, call);
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
