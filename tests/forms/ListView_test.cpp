#include "forms/ListView.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "support/ScriptedDesktop.h"

namespace lumarin {
namespace {

struct TestForm : Form {
    explicit TestForm(Desktop& desktop) : Form(desktop, "frmTest") {}
    ListView list{*this, "List"};
};

std::vector<std::string> Texts(const ListView& list) {
    std::vector<std::string> texts;
    for (int row = 0; row < list.Count(); ++row) texts.push_back(list.At(row).text);
    return texts;
}

class ListViewTest : public ::testing::Test {
protected:
    testing::ScriptedDesktop desktop;
    TestForm form{desktop};
    ListView& list = form.list;
};

TEST_F(ListViewTest, SortBy_Numbers_CompareByValueAndSelectionFollows) {
    for (const char* text : {"100", "9", "none", "20"}) list.AddRow({.text = text});
    list.Select(1);
    list.SortBy(0);
    EXPECT_EQ(Texts(list), (std::vector<std::string>{"9", "20", "100", "none"}));
    EXPECT_EQ(list.Selected(), 0);
    EXPECT_EQ(list.AddRow({.text = "30"}), 2);
    list.SortBy(0, false);
    EXPECT_EQ(Texts(list), (std::vector<std::string>{"none", "100", "30", "20", "9"}));
    EXPECT_EQ(list.Selected(), 4);
}

TEST_F(ListViewTest, SortBy_SeveralColumns_LaterOnesDecideTies) {
    list.AddRow({.text = "3", .subItems = {"20", "Elm"}});
    list.AddRow({.text = "2", .subItems = {"5", "elm"}});
    list.AddRow({.text = "1", .subItems = {"5", "Oak"}});
    list.SortBy({2, 1, 0});
    EXPECT_EQ(Texts(list), (std::vector<std::string>{"2", "3", "1"}));
}

TEST_F(ListViewTest, RemoveAndInsert_AroundTheSelection_KeepItOnItsRow) {
    for (const char* text : {"a", "b", "c"}) list.AddRow({.text = text});
    list.Select(1);
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
    const struct {
        const char* name;
        ListView::Row row;
    } cases[] = {
        {"nothing", {}},
        {"everything", {.text = "t", .subItems = {"s"}, .key = "k", .tag = "g", .picture = "p"}},
        {"just below and at a longer length", {.text = std::string(254, 'x'), .key = std::string(255, 'y')}},
        {"long", {.text = longText, .subItems = {"", longText, nul}, .tag = longText}},
        {"many cells", {.text = "t", .subItems = std::vector<std::string>(300, "cell")}},
    };
    for (const auto& test : cases) {
        const int at = list.AddRow(test.row);
        const ListView::Row row = list.At(at);
        EXPECT_TRUE(row.text == test.row.text && row.key == test.row.key && row.tag == test.row.tag &&
                    row.picture == test.row.picture && row.subItems == test.row.subItems)
            << test.name;
        const int cells = static_cast<int>(row.subItems.size());
        EXPECT_EQ(list.Cell(at, cells), cells > 0 ? row.subItems.back() : row.text) << test.name;
        EXPECT_EQ(list.Cell(at, cells + 1), "") << test.name;
    }
}

TEST_F(ListViewTest, Select_ByCode_RaisesItemClickAsAUserWould) {
    std::vector<int> clicked;
    list.ItemClick = [&](int row) { clicked.push_back(row); };
    list.AddRow({.text = "a"});
    list.Select(0);
    list.Select(-1);
    EXPECT_EQ(clicked, std::vector<int>{0});
}

}  // namespace
}  // namespace lumarin
