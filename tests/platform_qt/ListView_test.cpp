#include <QHeaderView>
#include <QImage>
#include <QListView>
#include <QTreeView>

#include "base/Error.h"
#include "platform_qt/EveryKindForm.h"
#include "support/TemporaryFolder.h"

namespace lumarin::testing {

class ListViewTest : public EveryKindTest {
protected:
    ListViewTest() {
        form->lisRows.AddColumn("Number");
        form->lisRows.AddColumn("Street", 3000);
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
};

TEST_F(ListViewTest, Rows_ChangedByCode_AreShownAndChooseNothing) {
    Add({"5", "6"});
    Show();
    form->lisRows.InsertRow(0, {.text = "4"});
    Add({"7"});
    form->lisRows.SetText(1, "55");
    EXPECT_EQ(Shown(), "4 55 6 7");
    EXPECT_EQ(Tree().model()->index(1, 1).data(), "Street");
    form->lisRows.SetToolTip(1, "in full");
    form->lisRows.SetStrong(1, true);
    EXPECT_TRUE(Tree().model()->index(1, 1).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_EQ(Tree().model()->index(1, 1).data(Qt::ToolTipRole), "in full");
    form->lisRows.SetToolTip(1, "<b>x");
    EXPECT_TRUE(Tree().model()->index(1, 1).data(Qt::ToolTipRole).toString().contains("&lt;b"));
    form->lisRows.Select(2);
    form->lisRows.InsertRow(0, {.text = "3"});
    EXPECT_EQ(Current(), 3) << "the selection goes with its row";
    form->lisRows.RemoveRow(0);
    form->lisRows.InsertRow(1, {.text = "3"});
    EXPECT_EQ(Current() * 10 + form->lisRows.Selected(), 33);
    form->lisRows.ItemClick = [](int) { FAIL() << "nobody chose a row"; };
    form->lisRows.RemoveRow(3);
    EXPECT_EQ(Current(), -1) << "no neighbour is selected";
    form->lisRows.AddRows(Rows({"8", "9"}));
    form->lisRows.SortBy(0, false);
    EXPECT_EQ(Shown(), "55 9 8 7 4 3");
    EXPECT_THROW(form->lisRows.RemoveRow(6), IndexError);
    form->lisRows.Clear();
    EXPECT_EQ(Shown(), "");
}

TEST_F(ListViewTest, User_MouseKeysAndHeader_RaiseTheirEvents) {
    Add({"1", "2", "3"});
    std::string events;
    form->lisRows.ItemClick = [&](int row) { events += "item " + std::to_string(row) + " "; };
    form->lisRows.KeyPressed = [&](const KeyDown& key, bool& used) {
        used = key.key == Key::Delete;
        if (used) events += "delete ";
    };
    form->lisRows.MouseUp = [&](const Mouse& mouse) {
        if (mouse.button == MouseButton::Right) events += "right ";
    };
    form->lisRows.DoubleClick = [&] { events += "double "; };
    form->lisRows.ColumnClick = [&](int column) {
        events += "column " + std::to_string(column) + " ";
        form->lisRows.SortBy(column);
    };
    Show();
    Click(1);
    Click(1);  // the selected row counts too
    QTest::keyClick(&Tree(), Qt::Key_Down);
    Click(0, Qt::RightButton);
    QTest::mouseClick(Tree().viewport(), Qt::LeftButton, {}, {20, Tree().viewport()->height() - 2});
    EXPECT_EQ(Current(), 0) << "a click beside the rows changes nothing";
    EXPECT_EQ(events, "item 1 item 1 item 2 item 0 right ");

    events.clear();
    form->lisRows.ItemClick = [&](int row) {
        events += "item " + std::to_string(row) + " ";
        if (row == 1) form->lisRows.Select(0);  // refused
    };
    for (int i = 0; i < 2; ++i) QTest::keyClick(&Tree(), Qt::Key_Down);
    EXPECT_EQ(events, "item 1 item 0 item 1 item 0 ") << "one key chooses once";
    EXPECT_EQ(Current() + form->lisRows.Selected(), 0);

    events.clear();
    QTest::keyClick(&Tree(), Qt::Key_Delete);
    Click(0);
    const QPoint first = Tree().visualRect(Tree().model()->index(0, 0)).center();
    QTest::mouseDClick(Tree().viewport(), Qt::LeftButton, {}, first);
    QHeaderView& header = *Tree().header();
    for (int i = 0; i < 2; ++i)
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {header.sectionViewportPosition(1) + 20, header.height() / 2});
    QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(&Tree(), &menuKey);
    EXPECT_EQ(events, "delete item 0 double column 1 column 1 right ");
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::AscendingOrder) << "the arrow follows the list, not the click";
}

TEST_F(ListViewTest, SeveralRows_ChosenByMouseAndKeys_StayChosenWhenSorted) {
    form->lisRows.SetMultiSelect(true);
    Add({"1", "2", "3", "4"});
    Show();
    const auto click = [&](int row, Qt::KeyboardModifiers keys) {
        QTest::mouseClick(Tree().viewport(), Qt::LeftButton, keys,
                          Tree().visualRect(Tree().model()->index(row, 0)).center());
        return form->lisRows.SelectedRows();
    };
    using Chosen = std::vector<int>;
    EXPECT_EQ(click(0, Qt::NoModifier), Chosen{0});
    EXPECT_EQ(click(2, Qt::ControlModifier), (Chosen{0, 2}));
    form->lisRows.SortBy(0, false);
    EXPECT_EQ(form->lisRows.SelectedRows(), (Chosen{1, 3}));
    EXPECT_EQ(Tree().selectionModel()->selectedRows().size(), 2);
    EXPECT_EQ(click(1, Qt::NoModifier), Chosen{1});
    EXPECT_EQ(click(3, Qt::ShiftModifier), (Chosen{1, 2, 3}));
    EXPECT_EQ(click(1, Qt::NoModifier), Chosen{1});
    EXPECT_EQ(click(1, Qt::ControlModifier), Chosen{});
    QTest::keyClick(&Tree(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(form->lisRows.SelectedRows(), (Chosen{0, 1, 2, 3}));
}

TEST_F(ListViewTest, Grid_DraggedAndFramedByMouse_ReordersAndChooses) {
    ListView& photos = form->lisPhotos;
    photos.AddColumn("Photo");
    photos.SetMultiSelect(true);
    photos.SetKeepsSelection(true);
    photos.SetReorderable(true);
    photos.SetPictureSize({900, 600});
    photos.Arrange(ListView::Arrangement::Grid);
    for (const char* text : {"a", "b", "c", "d"}) photos.AddRow({.text = text});
    photos.Select(1);
    Show();
    auto& view = Widget<QListView>("lisPhotos");
    const auto rect = [&](int row) { return view.visualRect(view.model()->index(row, 0)); };
    ASSERT_EQ(rect(0).top(), rect(3).top()) << "side by side";
    std::string events;
    photos.RowsDragged = [&](int before) {
        for (const int row : photos.SelectedRows()) events += std::to_string(row);
        events += ">" + std::to_string(before) + " ";
    };
    const auto drag = [&](QPoint from, QPoint to, bool escape = false) {
        events.clear();
        QTest::mousePress(view.viewport(), Qt::LeftButton, {}, from);
        for (int step = 1; step <= 4; ++step) {
            const QPointF at = from + (to - from) * step / 4;
            QMouseEvent move(QEvent::MouseMove, at, view.viewport()->mapToGlobal(at), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(view.viewport(), &move);
        }
        if (escape) QTest::keyClick(&view, Qt::Key_Escape);
        QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, to);
        return events;
    };
    const QPoint left(3, 20), beside(view.viewport()->width() - 5, rect(0).bottom() + 40);
    EXPECT_EQ(drag(rect(3).center(), rect(1).topLeft() + left), "3>1 ");
    EXPECT_EQ(drag(rect(0).center(), rect(3).bottomRight()), "0>4 ");
    EXPECT_EQ(drag(rect(0).center(), rect(1).topLeft() + left), "") << "it stands there already";
    EXPECT_EQ(drag(rect(2).center(), rect(0).topLeft() + left, true), "") << "given up by Escape";
    EXPECT_EQ(drag(rect(2).center(), {rect(0).x(), -100}), "") << "let go outside";
    EXPECT_EQ(drag(beside, rect(2).center()), "");
    EXPECT_EQ(photos.SelectedRows(), (std::vector{2, 3})) << "what the frame touched";
    EXPECT_EQ(drag(rect(3).center(), rect(0).topLeft() + left), "23>0 ");
    EXPECT_EQ(photos.Selected(), 3) << "the one that was pressed";
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, beside);
    EXPECT_EQ(photos.SelectedRows(), std::vector{3}) << "the last one stays selected";
    photos.SortBy(0);
    EXPECT_EQ(drag(rect(3).center(), rect(0).topLeft() + left), "") << "a sorted list";
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
    EXPECT_TRUE(Becomes([&] { return Shown() == "1b 2 33 5 6"; })) << Shown().toStdString();
    add({"7"});
    form->lisRows.AddRows({}, MoreRows::No);
    EXPECT_EQ(Shown(), "1b 2 33 5 6 7") << "none follow";
}

TEST_F(ListViewTest, RowPicture_FileChanges_IsMadeAnew) {
    const TemporaryFolder folder;
    const std::string file = folder.Path() + "photo.png";
    const auto seenOf = [&](QColor colour, int side) {
        QImage image(side, side, QImage::Format_RGB32);
        image.fill(colour);
        image.save(QString::fromStdString(file));
        const QIcon icon = Tree().model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>();
        return icon.pixmap(64, 40).toImage().pixelColor(32, 20);
    };
    form->lisRows.AddRow({.text = "a", .picture = file});
    form->Load();
    EXPECT_EQ(seenOf(Qt::red, 100), QColor(Qt::red));
    EXPECT_EQ(seenOf(Qt::blue, 120), QColor(Qt::blue));
}

}  // namespace lumarin::testing
