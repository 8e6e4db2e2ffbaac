#include "forms/Form.h"

#include <gtest/gtest.h>

#include "support/ScriptedDesktop.h"

namespace lumarin {

struct TestForm : Form {
    explicit TestForm(Desktop& desktop) : Form(desktop, "frmTest") {}
    std::string life;

protected:
    void OnLoad() override { life += "load "; }
    bool OnQueryClose(CloseReason) override { return life += "query ", true; }
    void OnUnload() override { life += "unload "; }
    void OnStopRequested() override { life += "stop "; }
};

TEST(Form, RunCommand_WhileOneRuns_RefusesAnotherAndUnloadWaitsForItsEnd) {
    testing::ScriptedDesktop desktop;
    TestForm form(desktop);
    int runs = 0;
    form.Load();
    const auto run = [&] { ++runs; };
    form.RunCommand("Outer", [&] { form.RunCommand("Inner", run); });
    EXPECT_EQ(runs, 0);
    form.RunCommand("Later", run);
    EXPECT_EQ(runs, 1);
    form.RunCommand("Send", [&] {
        EXPECT_FALSE(form.Unload(CloseReason::Frame));
        EXPECT_FALSE(form.Unload(CloseReason::Host));
        EXPECT_TRUE(form.IsLoaded());
    });
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_EQ(form.life, "load stop query unload ");
}

}  // namespace lumarin
