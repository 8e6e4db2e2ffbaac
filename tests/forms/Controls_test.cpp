#include "forms/Controls.h"

#include <gtest/gtest.h>

#include "support/ScriptedDesktop.h"

namespace lumarin {
namespace {

struct TestForm : Form {
    explicit TestForm(Desktop& desktop) : Form(desktop, "frmTest") {}
    TextBox txtName{*this, "txtName"};
    Slider slider{*this, "slider"};
    ComboBox combo{*this, "combo"};
    ControlArray<OptionButton, 3> options{*this, "options"};
    NumberBox number{*this, "number"};
    ControlArray<Button, 2> cmdMove{*this, "cmdMove"};
};

struct CountingView : ControlView {
    void StateChanged() override { ++changes; }
    int changes = 0;
};

class ControlsTest : public ::testing::Test {
protected:
    testing::ScriptedDesktop desktop;
    TestForm form{desktop};
};

TEST_F(ControlsTest, State_SetToWhatItIs_TellsNobody) {
    CountingView view;
    form.slider.Attach(&view);
    int changes = 0;
    form.slider.Change = [&] { ++changes; };
    form.slider.SetRange(-500, 500, 25, 100);
    form.slider.SetValue(9999);
    EXPECT_EQ(form.slider.Value(), 500);
    form.slider.SetValue(500);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(view.changes, 2);
    form.slider.Attach(nullptr);
}

TEST_F(ControlsTest, TextBox_KeyDiscarded_IsReported) {
    form.txtName.KeyPressed = [](KeyPress& key) { key.discarded = key.code == 'x'; };
    EXPECT_FALSE(form.txtName.PressKey('x'));
    EXPECT_TRUE(form.txtName.PressKey('y'));
}

TEST_F(ControlsTest, OptionButton_Chosen_GivesUpTheOthersOfItsGroup) {
    form.options(0).Choose();
    form.options(2).Choose();
    EXPECT_FALSE(form.options(0).Value());
    EXPECT_TRUE(form.options(2).Value());
}

TEST_F(ControlsTest, NumberBox_OutsideItsRange_IsKeptWithin) {
    form.number.SetRange(0, 100);
    form.number.SetValue(-5);
    EXPECT_EQ(form.number.Value(), 0);
    form.number.SetValue(std::nullopt);
    EXPECT_FALSE(form.number.Value());
}

TEST_F(ControlsTest, ControlArray_Members_AreFoundByNameAndIndex) {
    EXPECT_EQ(form.Find("cmdMove_1"), &form.cmdMove(1));
    EXPECT_EQ(form.Find("cmdMove"), nullptr);
}

TEST_F(ControlsTest, Placed_OnlyANewSize_RaisesResize) {
    int resized = 0;
    form.slider.Resize = [&] { ++resized; };
    form.slider.Placed({0, 0, 100, 50});
    form.slider.Placed({30, 0, 100, 50});
    EXPECT_EQ(resized, 1);
}

}  // namespace
}  // namespace lumarin
