#include <gtest/gtest.h>

#include "host/drive/DriveError.h"
#include "host/drive/DriveLine.h"
#include "host/drive/KeyStroke.h"

namespace host {

TEST(DriveLine_SplitInWords, BlanksQuotesAndEscapes_GiveTheWords) {
    const struct {
        const char* line;
        QStringList words;
    } cases[] = {
        {"  set  a.b\t\"two words\" ", {"set", "a.b", "two words"}},
        {R"(set a.b "say \"yes\" \\ no \n")", {"set", "a.b", R"(say "yes" \ no \n)"}},
        {R"(set a.b "")", {"set", "a.b", ""}},
        {R"(shot w C:\x.png)", {"shot", "w", R"(C:\x.png)"}},
        {"", {}},
    };
    for (const auto& given : cases) EXPECT_EQ(SplitDriveLine(given.line), given.words) << given.line;
    for (const char* line : {R"(set a.b "open)", R"(set a.b x"y")", R"(set a.b "x"y)"})
        EXPECT_THROW(SplitDriveLine(line), DriveError) << line;
}

TEST(KeyStroke_ParseKey, NamesAndModifiers_GiveWhatAKeyboardSends) {
    const std::pair<const char*, std::tuple<Qt::Key, Qt::KeyboardModifiers, QString>> cases[] = {
        {"Enter", {Qt::Key_Return, Qt::NoModifier, "\r"}},
        {"Shift+a", {Qt::Key_A, Qt::ShiftModifier, "A"}},
        {"Ctrl+V", {Qt::Key_V, Qt::ControlModifier, "\x16"}},
        {"Shift+Tab", {Qt::Key_Backtab, Qt::ShiftModifier, ""}},
        {"Ctrl++", {Qt::Key_Plus, Qt::ControlModifier, ""}},
    };
    for (const auto& [name, expected] : cases) {
        const KeyStroke stroke = ParseKey(name);
        EXPECT_EQ(std::tuple(stroke.key, stroke.modifiers, stroke.text), expected) << name;
    }
    for (const char* unknown : {"Entr", "F13", "Hyper+a", "Ctrl+"})
        EXPECT_THROW(ParseKey(unknown), DriveError) << unknown;
}

}  // namespace host
