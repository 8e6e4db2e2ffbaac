#include "forms/Form.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "forms/Controls.h"
#include "forms/ToolBar.h"
#include "support/ScriptedDesktop.h"

namespace lumarin {
namespace {

struct TestForm : Form {
    explicit TestForm(Desktop& desktop) : Form(desktop, "frmTest") {}
    Button cmdGo{*this, "cmdGo"};
    ToolBar Menu{*this, "Menu"};
    std::vector<std::string> life;
    bool closes = true;

protected:
    void OnLoad() override { life.emplace_back("load"); }
    bool OnQueryClose(CloseReason reason) override {
        life.emplace_back(reason == CloseReason::Frame ? "query frame" : "query");
        return closes;
    }
    void OnUnload() override { life.emplace_back("unload"); }
    void OnStopRequested() override { life.emplace_back("stop"); }
};

struct FormTest : ::testing::Test {
    testing::ScriptedDesktop desktop;
    TestForm form{desktop};
};

TEST_F(FormTest, Handler_Throws_BecomesTheWindowsReport) {
    form.cmdGo.Click = [] { throw ApplicationError("somewhere", "It broke"); };
    desktop.Expect("It broke", "frmTest-cmdGo_Click");
    form.cmdGo.Press();
    EXPECT_EQ(desktop.messages.at(0).icon, Icon::Critical);
    EXPECT_EQ(desktop.messages[0].modality, Modality::System);
}

TEST_F(FormTest, RunCommand_WhileOneRuns_RefusesAnotherAndUnloadWaitsForItsEnd) {
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
    EXPECT_EQ(form.life, (std::vector<std::string>{"load", "stop", "query", "unload"}));
}

TEST_F(FormTest, Unload_Refused_StaysLoaded) {
    form.Show(nullptr);
    form.closes = false;
    EXPECT_FALSE(form.Unload(CloseReason::Frame));
    EXPECT_TRUE(form.IsShown());
    form.closes = true;
    EXPECT_TRUE(form.Unload());
    EXPECT_TRUE(form.Unload());  // again: nothing left to do
    EXPECT_EQ(form.life, (std::vector<std::string>{"load", "query frame", "query", "unload"}));
}

TEST_F(FormTest, ToolBar_DisabledToolOrGroup_DoesNotClick) {
    std::vector<std::string> clicked;
    form.Menu.ToolClick = [&](const std::string& tool) { clicked.push_back(tool); };
    form.Menu.AddTool({.name = "Open"});
    form.Menu.AddTool({.name = "File", .tools = {"Open"}});
    form.Menu.ClickTool("Open");
    form.Menu.ClickTool("File");
    form.Menu.EnableTool("Open", false);
    form.Menu.ClickTool("Open");
    EXPECT_EQ(clicked, std::vector<std::string>{"Open"});
    EXPECT_THROW(form.Menu.EnableTool("None", true), Error);
    EXPECT_THROW(form.Menu.AddTool({.name = "Open"}), Error);
}

}  // namespace
}  // namespace lumarin
