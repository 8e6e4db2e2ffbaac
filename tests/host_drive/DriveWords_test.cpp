#include <gtest/gtest.h>

#include "host/drive/DriveError.h"
#include "host/drive/DriveLine.h"
#include "host/drive/KeyStroke.h"
#include "host/drive/WidgetFinder.h"

namespace host {

TEST(DriveLine_SplitInWords, BlanksQuotesAndEscapes_GiveTheWords) {
    const struct {
        const char* line;
        QStringList words;
    } cases[] = {
        {"get frmLumarin", {"get", "frmLumarin"}},
        {"  set  a.b\t\"two words\" ", {"set", "a.b", "two words"}},
        {R"(set a.b "say \"yes\" \\ no \n")", {"set", "a.b", R"(say "yes" \ no \n)"}},
        {R"(set a.b "")", {"set", "a.b", ""}},
        {R"(shot w C:\x.png)", {"shot", "w", R"(C:\x.png)"}},
        {"", {}},
    };
    for (const auto& given : cases) EXPECT_EQ(SplitDriveLine(given.line), given.words) << given.line;
}

TEST(DriveLine_SplitInWords, QuoteOutOfPlace_IsRefused) {
    for (const char* line : {R"(set a.b "open)", R"(set a.b x"y")", R"(set a.b "x"y)"})
        EXPECT_THROW(SplitDriveLine(line), DriveError) << line;
}

TEST(KeyStroke_ParseKey, NamesAndModifiers_GiveWhatAKeyboardSends) {
    const struct {
        const char* name;
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        const char* text;
    } cases[] = {
        {"Enter", Qt::Key_Return, Qt::NoModifier, "\r"},
        {"a", Qt::Key_A, Qt::NoModifier, "a"},
        {"Shift+a", Qt::Key_A, Qt::ShiftModifier, "A"},
        {"Ctrl+V", Qt::Key_V, Qt::ControlModifier, "\x16"},
        {"ctrl+shift+Left", Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier, ""},
        {"Shift+Tab", Qt::Key_Backtab, Qt::ShiftModifier, ""},
        {"Alt+n", Qt::Key_N, Qt::AltModifier, ""},
        {"F12", Qt::Key_F12, Qt::NoModifier, ""},
        {"+", Qt::Key_Plus, Qt::NoModifier, "+"},
        {"Ctrl++", Qt::Key_Plus, Qt::ControlModifier, ""},
    };
    for (const auto& expected : cases) {
        const KeyStroke stroke = ParseKey(expected.name);
        EXPECT_EQ(stroke.key, expected.key) << expected.name;
        EXPECT_EQ(stroke.modifiers, expected.modifiers) << expected.name;
        EXPECT_EQ(stroke.text, QString(expected.text)) << expected.name;
    }
    for (const char* unknown : {"Entr", "F13", "Hyper+a", "Ctrl+"})
        EXPECT_THROW(ParseKey(unknown), DriveError) << unknown;
}

TEST(WidgetFinder_ParseTarget, ControlArray_BecomesTheObjectName) {
    EXPECT_EQ(ParseTarget("frmLumarin.cmdMove(1)").control, "cmdMove_1");
    EXPECT_EQ(ParseTarget("frmLumarin.txtID").window, "frmLumarin");
    EXPECT_EQ(ParseTarget("frmLumarin").control, "");
}

}  // namespace host
