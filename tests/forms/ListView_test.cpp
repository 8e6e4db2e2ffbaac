#include "forms/ListView.h"

#include <gtest/gtest.h>

#include "base/Error.h"
#include "support/ScriptedDesktop.h"

namespace lumarin {

using Texts = std::vector<std::string>;

struct ListViewTest : ::testing::Test {
    Texts Rows() const {
        Texts texts;
        for (int row = 0; row < list.Count(); ++row) texts.push_back(list.At(row).text);
        return texts;
    }

    testing::ScriptedDesktop desktop;
    Form form{desktop, "frmTest"};
    ListView list{form, "List"};
};

TEST_F(ListViewTest, SortBy_NumbersAndTies_CompareByValueAndLaterColumns) {
    list.AddRow({.text = "3", .subItems = {"20", "Elm"}});
    list.AddRow({.text = "2", .subItems = {"5", "elm"}});
    list.AddRow({.text = "1", .subItems = {"none", "elm"}});
    list.AddRow({.text = "4", .subItems = {"5", "Oak"}});
    list.Select(0);
    list.SortBy({2, 1, 0});
    EXPECT_EQ(Rows(), (Texts{"2", "3", "1", "4"}));
    EXPECT_EQ(list.Selected(), 1);
    EXPECT_EQ(list.AddRow({.text = "30", .subItems = {"9", "ELM"}}), 1);
    list.SortBy(0, false);
    EXPECT_EQ(Rows(), (Texts{"30", "4", "3", "2", "1"}));
    EXPECT_EQ(list.Selected(), 2);
}

TEST_F(ListViewTest, SeveralSelected_SortedMergedAndRemoved_StaySelected) {
    std::string events;
    list.ItemClick = [&](int row) { events += std::to_string(row) + " "; };
    list.SelectionChange = [&] { events += "changed "; };
    const auto selected = [&] {
        Texts texts;
        for (const int row : list.SelectedRows()) texts.push_back(list.At(row).text);
        return texts;
    };
    list.SetMultiSelect(true);
    for (const char* text : {"4", "2", "3", "1"}) list.AddRow({.text = text});
    list.SelectRows({0, 2});
    list.SortBy(0);
    std::vector<PackedRow> more;
    more.emplace_back(ListView::Row{.text = "0"});
    list.AddRows(std::move(more));
    list.SetSubItems(4, {"x"});
    EXPECT_EQ(selected(), (Texts{"3", "4"}));
    list.RemoveRow(list.Selected());
    EXPECT_EQ(selected(), Texts{"4"});
    EXPECT_EQ(list.Selected(), 3);
    list.Select(0);
    EXPECT_EQ(selected(), Texts{"0"});
    list.SelectRows({});
    EXPECT_EQ(list.Selected(), -1);
    EXPECT_EQ(events, "changed 2 changed changed 0 changed ");
}

TEST_F(ListViewTest, DragSelected_AnyPlace_GivesTheOrderOrNothing) {
    using Numbers = std::vector<int>;
    list.SetMultiSelect(true);
    list.SetReorderable(true);
    for (const char* text : {"0", "1", "2", "3", "4"}) list.AddRow({.text = text});
    std::string events;
    list.RowsDragged = [&](int before) { events += std::to_string(before) + " "; };
    const struct {
        Numbers selected;
        int before;
        Numbers order;
    } cases[] = {
        {{0}, 5, {1, 2, 3, 4, 0}}, {{4}, 0, {4, 0, 1, 2, 3}}, {{0, 3}, 2, {1, 0, 3, 2, 4}}, {{1, 2}, 1, {}},
        {{1, 2}, 2, {}},           {{1, 2}, 3, {}},           {{1, 3}, 2, {0, 1, 3, 2, 4}}, {{}, 0, {}},
    };
    for (const auto& [selected, before, order] : cases) {
        events.clear();
        list.SelectRows(selected);
        list.DragSelected(before);
        EXPECT_EQ(events, order.empty() ? "" : std::to_string(before) + " ");
        if (!order.empty()) {
            EXPECT_EQ(list.OrderWithSelected(before), order);
        }
    }
    EXPECT_THROW(list.DragSelected(6), IndexError);
}

TEST_F(ListViewTest, Row_OfAnyLengthAndBytes_ComesBackWhole) {
    const std::string nul("a\0b", 3), longText(70'000, 'x');
    const ListView::Row rows[] = {
        {},
        {.text = "t",
         .subItems = {"s"},
         .key = "k",
         .tag = "g",
         .picture = "p",
         .toolTip = "w",
         .strong = true},
        {.text = std::string(254, 'x'), .key = std::string(255, 'y')},  // just below and at a longer length
        {.text = longText, .subItems = {"", longText, nul}, .tag = longText},
        {.text = "t", .subItems = Texts(300, "cell")},
    };
    for (const ListView::Row& given : rows) {
        const int at = list.AddRow(given);
        const ListView::Row row = list.At(at);
        EXPECT_TRUE(std::tie(row.text, row.key, row.tag, row.picture, row.toolTip, row.strong,
                             row.subItems) == std::tie(given.text, given.key, given.tag, given.picture,
                                                       given.toolTip, given.strong, given.subItems))
            << "row " << at;
        const int cells = static_cast<int>(row.subItems.size());
        EXPECT_EQ(list.Cell(at, cells), cells > 0 ? row.subItems.back() : row.text);
        EXPECT_EQ(list.Cell(at, cells + 1), "");
    }
}

}  // namespace lumarin
