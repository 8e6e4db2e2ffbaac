#include "forms/Controls.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "forms/ListView.h"
#include "support/ScriptedDesktop.h"

namespace lumarin {
namespace {

struct TestForm : Form {
    explicit TestForm(Desktop& desktop) : Form(desktop, "frmTest") {}
    Slider slider{*this, "slider"};
    ControlArray<OptionButton, 3> options{*this, "options"};
    NumberBox number{*this, "number"};
    ListView list{*this, "List"};
};

struct CountingView : ControlView {
    void StateChanged() override { ++changes; }
    int changes = 0;
};

struct ControlsTest : ::testing::Test {
    testing::ScriptedDesktop desktop;
    TestForm form{desktop};
};

TEST_F(ControlsTest, State_SetToWhatItIs_TellsNobody) {
    CountingView view;
    form.slider.Attach(&view);
    int changes = 0, resized = 0;
    form.slider.Change = [&] { ++changes; };
    form.slider.SetRange(-500, 500, 25, 100);
    form.slider.SetValue(9999);
    EXPECT_EQ(form.slider.Value(), 500);
    form.slider.SetValue(500);
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(view.changes, 2);
    form.slider.Attach(nullptr);
    form.slider.Resize = [&] { ++resized; };
    form.slider.Placed({0, 0, 100, 50});
    form.slider.Placed({30, 0, 100, 50});
    EXPECT_EQ(resized, 1);
}

TEST_F(ControlsTest, OptionButton_Chosen_GivesUpTheOthersOfItsGroup) {
    form.options(0).Choose();
    form.options(2).Choose();
    EXPECT_TRUE(form.options(2).Value() && !form.options(0).Value());
    EXPECT_EQ(form.Find("options_1"), &form.options(1));
    EXPECT_EQ(form.Find("options"), nullptr);
}

TEST_F(ControlsTest, NumberBox_OutsideItsRange_IsKeptWithin) {
    form.number.SetRange(0, 100);
    form.number.SetValue(-5);
    EXPECT_EQ(form.number.Value(), 0);
    form.number.SetValue(std::nullopt);
    EXPECT_FALSE(form.number.Value());
}

using Texts = std::vector<std::string>;

struct ListViewTest : ControlsTest {
    Texts Rows() const {
        Texts texts;
        for (int row = 0; row < list.Count(); ++row) texts.push_back(list.At(row).text);
        return texts;
    }

    ListView& list = form.list;
};

TEST_F(ListViewTest, SortBy_Numbers_CompareByValueAndSelectionFollows) {
    for (const char* text : {"100", "9", "none", "20"}) list.AddRow({.text = text});
    list.Select(1);
    list.SortBy(0);
    EXPECT_EQ(Rows(), (Texts{"9", "20", "100", "none"}));
    EXPECT_EQ(list.Selected(), 0);
    EXPECT_EQ(list.AddRow({.text = "30"}), 2);
    list.SortBy(0, false);
    EXPECT_EQ(Rows(), (Texts{"none", "100", "30", "20", "9"}));
    EXPECT_EQ(list.Selected(), 4);
}

TEST_F(ListViewTest, SortBy_SeveralColumns_LaterOnesDecideTies) {
    list.AddRow({.text = "3", .subItems = {"20", "Elm"}});
    list.AddRow({.text = "2", .subItems = {"5", "elm"}});
    list.AddRow({.text = "1", .subItems = {"5", "Oak"}});
    list.SortBy({2, 1, 0});
    EXPECT_EQ(Rows(), (Texts{"2", "3", "1"}));
}

TEST_F(ListViewTest, RemoveAndInsert_AroundTheSelection_KeepItOnItsRow) {
    for (const char* text : {"a", "b", "c"}) list.AddRow({.text = text});
    int clicked = -1;
    list.ItemClick = [&](int row) { clicked = row; };
    list.Select(1);
    EXPECT_EQ(clicked, 1);
    list.RemoveRow(0);
    EXPECT_EQ(list.Selected(), 0);
    list.InsertRow(0, {.text = "x"});
    EXPECT_EQ(list.Selected(), 1);
    list.RemoveRow(1);
    EXPECT_EQ(list.Selected(), -1);
    EXPECT_THROW(list.At(2), IndexError);
    EXPECT_THROW(list.RemoveRow(-1), IndexError);
}

TEST_F(ListViewTest, Row_OfAnyLengthAndBytes_ComesBackWhole) {
    const std::string nul("a\0b", 3), longText(70'000, 'x');
    const ListView::Row rows[] = {
        {},
        {.text = "t", .subItems = {"s"}, .key = "k", .tag = "g", .picture = "p"},
        {.text = std::string(254, 'x'), .key = std::string(255, 'y')},  // just below and at a longer length
        {.text = longText, .subItems = {"", longText, nul}, .tag = longText},
        {.text = "t", .subItems = Texts(300, "cell")},
    };
    for (const ListView::Row& given : rows) {
        const int at = list.AddRow(given);
        const ListView::Row row = list.At(at);
        EXPECT_TRUE(std::tie(row.text, row.key, row.tag, row.picture, row.subItems) ==
                    std::tie(given.text, given.key, given.tag, given.picture, given.subItems))
            << "row " << at;
        const int cells = static_cast<int>(row.subItems.size());
        EXPECT_EQ(list.Cell(at, cells), cells > 0 ? row.subItems.back() : row.text);
        EXPECT_EQ(list.Cell(at, cells + 1), "");
    }
}

}  // namespace
}  // namespace lumarin
