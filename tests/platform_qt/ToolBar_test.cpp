#include <QAction>
#include <QMenu>
#include <QToolBar>

#include "platform_qt/EveryKindForm.h"

namespace lumarin::testing {

class ToolBarTest : public EveryKindTest {
protected:
    ToolBarTest() {
        form->Menu.AddTool(
            {.name = "Open", .caption = "&Open", .icon = "document-open", .shortcut = "Ctrl+O"});
        form->Menu.AddTool(
            {.name = "Preview", .caption = "File Preview", .checkable = true, .checked = true});
        form->Menu.AddTool({.name = "Help", .caption = "&Help", .icon = "help-contents"});
        form->Menu.AddTool({.name = "File", .caption = "&File", .tools = {"Open", "-", "Preview"}});
        form->Menu.AddBand({"Main", ToolBar::BandKind::MenuBar, {"File", "Help"}});
        form->Menu.AddBand({"Standard", ToolBar::BandKind::ToolBar, {"Open", "File", "Later"}});
        form->Menu.AddBand({"File", ToolBar::BandKind::ContextMenu, {"Open", "Preview"}});
    }
    QAction& Action(const char* name) { return *Window().findChild<QAction*>(name); }
    static QString Texts(const QWidget& band) {
        QStringList texts;
        for (const QAction* action : band.actions()) texts << (action->isSeparator() ? "-" : action->text());
        return texts.join(' ');
    }
};

TEST_F(ToolBarTest, Bands_AreBuiltFromSharedTools) {
    Show();
    EXPECT_EQ(Texts(Widget("Menu")), "&File &Help");
    EXPECT_EQ(Texts(Widget<QToolBar>("Standard")), "&Open &File");
    EXPECT_EQ(Texts(Widget<QMenu>("File")), "&Open File Preview");
    EXPECT_EQ(Texts(*Action("File").menu()), "&Open - File Preview");
    EXPECT_EQ(Window().findChildren<QAction*>("Open").size(), 1);
    EXPECT_FALSE(Action("Open").icon().isNull());
    for (const QAction* action : Widget("Menu").actions())
        EXPECT_TRUE(action->icon().isNull()) << "an icon would hide the menu bar's text";
    form->Menu.AddTool({.name = "Later", .caption = "Later"});
    EXPECT_EQ(Texts(Widget<QToolBar>("Standard")), "&Open &File Later");
    form->Menu.EnableTool("Help", false);
    EXPECT_FALSE(Widget("Menu").actions().last()->isEnabled()) << "in the menu bar too";
    form->Menu.SetEnabled(false);
    EXPECT_FALSE(Action("Open").isEnabled());
}

TEST_F(ToolBarTest, Clicks_ReachTheControlByName_AlsoWhenTheyChangeTheBands) {
    std::string clicked;
    form->Menu.ToolClick = [&](const std::string& name) { clicked += name + " "; };
    Show();
    Action("Open").trigger();
    QTest::keyClick(&Window(), Qt::Key_O, Qt::ControlModifier);
    Action("Preview").trigger();
    Widget("Menu").actions().last()->trigger();
    EXPECT_EQ(clicked, "Open Open Preview Help ");
    EXPECT_TRUE(Action("Preview").isChecked()) << "the check mark is the code's to change";

    form->Menu.ToolClick = [this](const std::string&) {
        form->Menu.AddTool({.name = "New", .caption = "New"});
        for (const char* group : {"File", "Help"}) form->Menu.SetGroup(group, {"New"});  // "Help" was a tool
    };
    Action("Help").trigger();
    Settle();
    EXPECT_EQ(Texts(*Action("File").menu()) + Texts(*Action("Help").menu()), "NewNew");
}

TEST_F(ToolBarTest, TypingInAMenu_FindsTheEntryThatStartsSo) {
    for (const char* caption : {"Kitchen", "Back yard", "Bath", "Bed && Bath", "Bedroom"})
        form->Menu.AddTool({.name = caption, .caption = caption});
    form->Menu.SetGroup("File", {"Kitchen", "Back yard", "Bath", "-", "Bed && Bath", "Bedroom"});
    std::string opened;
    form->Menu.GroupOpens = [&](const std::string& group) { opened = group; };
    Show();
    QMenu& menu = *Action("File").menu();
    const std::pair<const char*, const char*> cases[] = {
        {"k", "Kitchen"}, {"bat", "Bath"},  {"bed &", "Bed && Bath"}, {"bedr", "Bedroom"},
        {"bb", "Bath"},   {"x", "Kitchen"}, {"K", "Kitchen"},
    };
    for (const auto& [typed, found] : cases) {
        menu.popup({0, 0});
        menu.setActiveAction(&Action("Kitchen"));
        QTest::keyClicks(&menu, typed);
        EXPECT_EQ(menu.activeAction()->text(), found) << typed;
        menu.close();
    }
    EXPECT_EQ(opened, "File");
}

}  // namespace lumarin::testing
