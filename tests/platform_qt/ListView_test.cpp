#include <QHeaderView>
#include <QImage>
#include <QTreeView>

#include "platform_qt/EveryKindForm.h"
#include "support/TemporaryFolder.h"

namespace lumarin::testing {

class ListViewTest : public EveryKindTest {
protected:
    ListViewTest() {
        form->lisRows.AddColumn("Number");
        form->lisRows.AddColumn("Street", 3000);
        form->lisRows.ItemClick = [this](int row) { clicked.push_back(row); };
    }
    void Add(std::initializer_list<const char*> numbers) {
        for (const char* number : numbers) form->lisRows.AddRow({.text = number, .subItems = {"Street"}});
    }
    static std::vector<PackedRow> Rows(std::initializer_list<const char*> texts) {
        std::vector<PackedRow> rows;
        for (const char* text : texts) rows.emplace_back(ListView::Row{.text = text});
        return rows;
    }
    QTreeView& Tree() { return Widget<QTreeView>("lisRows"); }
    QString Shown() {
        QStringList texts;
        const QAbstractItemModel& model = *Tree().model();
        for (int row = 0; row < model.rowCount(); ++row) texts << model.index(row, 0).data().toString();
        return texts.join(' ');
    }
    int Current() { return Tree().selectionModel()->hasSelection() ? Tree().currentIndex().row() : -1; }
    void Click(int row, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(Tree().viewport(), button, {},
                          Tree().visualRect(Tree().model()->index(row, 0)).center());
    }

    std::vector<int> clicked;
};

TEST_F(ListViewTest, Rows_ChangedByCode_AreShownAndChooseNothing) {
    Add({"5", "6"});
    Show();
    EXPECT_EQ(Shown(), "5 6");
    form->lisRows.InsertRow(0, {.text = "4"});
    Add({"7"});
    form->lisRows.SetText(1, "55");
    EXPECT_EQ(Shown(), "4 55 6 7");
    EXPECT_EQ(Tree().model()->index(1, 1).data(), "Street");
    form->lisRows.Select(2);
    EXPECT_EQ(Current(), 2);
    form->lisRows.InsertRow(0, {.text = "3"});
    EXPECT_EQ(Current(), 3) << "the selection goes with its row";
    clicked.clear();
    form->lisRows.RemoveRow(3);
    EXPECT_EQ(Current(), -1) << "no neighbour is selected";
    form->lisRows.AddRows(Rows({"8", "9"}));
    form->lisRows.SortBy(0, false);
    EXPECT_EQ(Shown(), "55 9 8 7 4 3");
    EXPECT_EQ(Tree().header()->sortIndicatorOrder(), Qt::DescendingOrder);
    form->lisRows.Clear();
    EXPECT_EQ(Shown(), "");
    EXPECT_EQ(clicked, std::vector<int>{});
}

TEST_F(ListViewTest, User_ClicksAndMoves_SelectsEachTimeOnce) {
    Add({"1", "2", "3"});
    Show();
    Click(1);
    Click(1);  // the selected row counts too
    QTest::keyClick(&Tree(), Qt::Key_Down);
    Click(0, Qt::RightButton);
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, {20, Tree().viewport()->height() - 2});
    EXPECT_EQ(Current(), 0) << "a click beside the rows changes nothing";
    EXPECT_EQ(clicked, (std::vector{1, 1, 2, 0}));
}

TEST_F(ListViewTest, User_KeysHeaderAndButtons_RaiseTheirEvents) {
    Add({"1", "2"});
    std::string events;
    form->lisRows.KeyPressed = [&](const KeyDown& key, bool& used) {
        events += "key " + std::to_string(static_cast<int>(key.key)) + " ";
        used = key.key == Key::Delete;
    };
    form->lisRows.MouseUp = [&](const Mouse& mouse) {
        events += mouse.button == MouseButton::Right ? "right " : "left ";
    };
    form->lisRows.DoubleClick = [&] { events += "double "; };
    form->lisRows.ColumnClick = [&](int column) {
        events += "column " + std::to_string(column) + " ";
        form->lisRows.SortBy(column);
    };
    Show();
    QTest::keyClick(&Tree(), Qt::Key_Delete);
    Click(0, Qt::RightButton);
    const QPoint first = Tree().visualRect(Tree().model()->index(0, 0)).center();
    QTest::mouseDClick(Tree().viewport(), Qt::LeftButton, {}, first);
    QHeaderView& header = *Tree().header();
    for (int i = 0; i < 2; ++i)
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {header.sectionViewportPosition(1) + 20, header.height() / 2});
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&Tree(), &menuKey);
    EXPECT_EQ(events, "key 46 right double column 1 column 1 right ");
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::AscendingOrder) << "the arrow follows the list, not the click";
}

TEST_F(ListViewTest, ManyRows_ShownAndScrolled_ReadOnlyWhatIsSeen) {
    std::vector<PackedRow> rows;
    rows.reserve(100000);
    for (int i = 0; i < 100000; ++i) rows.emplace_back(ListView::Row{.text = std::to_string(i)});
    form->lisRows.AddRows(std::move(rows));
    Show();
    form->lisRows.Select(99999);
    Settle();
    EXPECT_TRUE(Tree().uniformRowHeights());
    EXPECT_TRUE(Tree().viewport()->rect().contains(Tree().visualRect(Tree().currentIndex()).center()));
    // One by one, as a search finds them, with the window showing.
    for (int i = 0; i < 20000; ++i) form->lisRows.AddRow({.text = "more"});
    Settle();
    EXPECT_EQ(Tree().model()->rowCount(), 120000);
}

TEST_F(ListViewTest, RowsThatFollow_AreShownALittleLaterAndWhenSomebodyNeedsThem) {
    Show();
    const auto add = [&](std::initializer_list<const char*> texts) {
        form->lisRows.AddRows(Rows(texts), MoreRows::Follow);
    };
    add({"1", "2"});
    EXPECT_EQ(Shown(), "1 2") << "the first rows at once";
    add({"3", "4"});
    EXPECT_EQ(Shown(), "1 2");
    form->lisRows.RemoveRow(3);
    form->lisRows.SetText(2, "33");
    form->lisRows.InsertRow(1, {.text = "1b"});
    form->lisRows.RemoveRow(0);
    EXPECT_EQ(Shown(), "1b 2") << "changes behind the rows that are shown wait with them";
    form->lisRows.Select(0);
    QTest::keyClick(&Tree(), Qt::Key_End);
    EXPECT_EQ(form->lisRows.Selected(), 2);
    add({"5"});
    form->lisRows.Select(3);
    EXPECT_EQ(Current(), 3);
    add({"6"});
    EXPECT_TRUE(QTest::qWaitFor([&] { return Shown() == "1b 2 33 5 6"; })) << Shown().toStdString();
    add({"7"});
    form->lisRows.AddRows({}, MoreRows::No);
    EXPECT_EQ(Shown(), "1b 2 33 5 6 7") << "none follow";
}

TEST_F(ListViewTest, RowPicture_FileChanges_IsMadeAnew) {
    const TemporaryFolder folder;
    const QString file = QString::fromStdString(folder.Path() + "photo.png");
    const auto draw = [&](QColor colour, int side) {
        QImage image(side, side, QImage::Format_RGB32);
        image.fill(colour);
        image.save(file);
    };
    const auto seen = [&] {
        const QIcon icon = Tree().model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>();
        return icon.pixmap(64, 40).toImage().pixelColor(32, 20);
    };
    draw(Qt::red, 100);
    form->lisRows.AddRow({.text = "a", .picture = file.toStdString()});
    form->lisRows.AddRow({.text = "none"});
    Show();
    EXPECT_EQ(seen(), QColor(Qt::red));
    draw(Qt::blue, 120);
    EXPECT_EQ(seen(), QColor(Qt::blue));
    EXPECT_FALSE(Tree().model()->index(1, 0).data(Qt::DecorationRole).isValid());
}

}  // namespace lumarin::testing
