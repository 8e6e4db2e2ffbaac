// Each kind of control and its widget, both ways.
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include "base/Error.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/WindowLoader.h"
#include "platform_qt/EveryKindForm.h"

namespace lumarin::testing {

class BinderTest : public EveryKindTest {};

TEST_F(BinderTest, State_SetBeforeAndAfterLoading_IsShownAndRaisesNothingAgain) {
    int changes = 0;
    form->txtText.Change = form->hsbLevel.Change = form->cmbChoice.Click = form->sstPages.Click =
        form->numCount.Change = [&] { ++changes; };
    form->txtText.SetText("Straße \xED\xA0\xBD");  // ends in an unpaired surrogate
    form->hsbLevel.SetRange(-500, 500, 25, 100);
    Show();
    EXPECT_FALSE(form->cmdHidden.Visible()) << "as designed";
    form->cmdDo.SetCaption("&Other");
    for (const char* note : {"something", ""}) form->lblNote.SetCaption(note);
    for (const char* item : {"Front", "Rear"}) form->cmbChoice.AddItem(item);
    form->cmbChoice.SetListIndex(1);
    form->cmbChoice.SetVisible(false);
    for (int time = 0; time < 2; ++time) form->hsbLevel.SetValue(9999);
    form->sstPages.SetTab(1);
    form->sstPages.SetTabNote(0, "R&D");
    form->numCount.SetValue(42);
    form->optWay(1).Choose();
    form->pbDone.SetMax(7);
    form->pbDone.SetValue(3);
    form->txtText.SetEnabled(false);
    form->cmdHidden.SetVisible(true);
    const std::tuple<const char*, const char*, QVariant> shown[] = {
        {"txtText", "text", QStringLiteral(u"Straße ") + QChar(0xD83D)},
        {"cmdDo", "text", "&Other"},
        {"lblNote", "text", ""},
        {"cmbChoice", "currentText", "Rear"},
        {"cmbChoice", "visible", false},
        {"choiceLabel", "visible", false},
        {"hsbLevel", "value", 500},
        {"hsbLevel", "singleStep", 25},
        {"sstPages", "currentIndex", 1},
        {"numCount", "text", "42"},
        {"optWay_1", "checked", true},
        {"pbDone", "maximum", 7},
        {"pbDone", "value", 3},
        {"txtText", "enabled", false},
        {"cmdHidden", "visible", true},
    };
    for (const auto& [widget, property, value] : shown)
        EXPECT_EQ(Widget(widget).property(property), value) << widget << "." << property;
    EXPECT_TRUE(Widget<QTabWidget>("sstPages").tabText(0).endsWith(": R&&D"));
    EXPECT_EQ(form->hsbLevel.Value(), 500) << "within its range";
    EXPECT_EQ(changes, 5) << "one for each control that was set";
}

TEST_F(BinderTest, UserInput_ReachesTheControls) {
    form->numCount.SetRange(1, 50);
    std::string events;
    form->cmdDo.MouseDown = [&] { events += "down "; };
    form->cmdDo.MouseUp = [&] { events += "up "; };
    form->cmdDo.Click = [&] { events += "click "; };
    Show();
    QTest::mouseClick(&Widget("cmdDo"), Qt::LeftButton);
    EXPECT_EQ(events, "down up click ");
    Widget<QTabWidget>("sstPages").setCurrentIndex(1);
    EXPECT_EQ(form->sstPages.Tab(), 1);
    form->numCount.SetFocus();
    QTest::keyClicks(&Widget("numCount"), "77");
    EXPECT_EQ(form->numCount.Value(), 50) << "kept within the range";
    EXPECT_EQ(Widget<QLineEdit>("numCount").text(), "77") << "while it is typed";
    Widget<QLineEdit>("numCount").selectAll();
    Widget<QLineEdit>("numCount").insert("99999999999");
    EXPECT_EQ(Widget<QLineEdit>("numCount").text(), "50") << "as far as one can go";
    QTest::keyClicks(&Widget("numCount"), "-");
    for (const int way : {1, 0}) {
        QWidget& button = Widget(way == 1 ? "optWay_1" : "optWay_0");
        QTest::mouseClick(&button, Qt::LeftButton, {}, {5, button.height() / 2});
        EXPECT_TRUE(form->optWay(way).Value() && !form->optWay(1 - way).Value());
    }
    EXPECT_EQ(Widget<QLineEdit>("numCount").text(), "50");
}

TEST_F(BinderTest, TextBox_KeyFilter_SeesEachKeyAndMayDiscardIt) {
    const std::tuple<const char*, Qt::Key, Qt::KeyboardModifiers, const char*, int> cases[] = {
        {"digit", Qt::Key_5, Qt::NoModifier, "5", '5'},
        {"enter", Qt::Key_Return, Qt::NoModifier, "\r", 13},
        {"keypad enter", Qt::Key_Enter, Qt::KeypadModifier, "\r", 13},
        {"backspace", Qt::Key_Backspace, Qt::NoModifier, "\b", 8},
        {"copy", Qt::Key_C, Qt::ControlModifier, "\x03", 3},
        {"paste", Qt::Key_V, Qt::ControlModifier, "\x16", 22},
        {"paste otherwise", Qt::Key_Insert, Qt::ShiftModifier, "", 22},
        {"arrow", Qt::Key_Left, Qt::NoModifier, "", 0},
        {"with alt", Qt::Key_X, Qt::AltModifier, "x", 'x'},
    };
    int code = 0;
    form->txtText.KeyPressed = [&](KeyPress& key) {
        code = key.code;
        key.discarded = true;
    };
    form->txtText.SetText("12");
    Show();
    QApplication::clipboard()->setText("pasted");
    for (const auto& [name, key, modifiers, text, expected] : cases) {
        SCOPED_TRACE(name);
        code = 0;
        QTest::sendKeyEvent(QTest::Click, &Widget("txtText"), key, text, modifiers);
        EXPECT_EQ(code, expected);
        EXPECT_EQ(form->txtText.Text(), "12") << "what the filter discards does not get in";
    }
}

TEST_F(BinderTest, TextBox_ComposedText_IsTakenOnlyWhenTheFilterLetsAllOfItPass) {
    form->txtText.KeyPressed = [](KeyPress& key) { key.discarded = key.code == 0x00E9; };
    Show();
    for (const auto& [text, expected] : {std::pair{"\u00FC", "\u00FC"}, std::pair{"a\u00E9", "\u00FC"}}) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(&Widget("txtText"), &event);
        EXPECT_EQ(form->txtText.Text(), expected);
    }
}

TEST_F(BinderTest, Layout_TellsPlacesInTwips) {
    int resized = 0;
    form->Load();
    form->fraStage.Resize = [&] { ++resized; };
    for (const int width : {700, 900}) {  // at first it is not shown yet
        EXPECT_EQ(form->fraStage.Bounds(), qt::ToTwips(Widget("fraStage").geometry()));
        EXPECT_EQ(form->InnerSize().width, width * TwipsPerPixel);
        Show();
        Window().resize(900, 700);
        Settle();
    }
    EXPECT_GT(resized, 0);
}

TEST(Mismatches, DesignThatDoesNotFit_AllAreNamedAtOnce) {
    struct Mismatched : Form {
        explicit Mismatched(Desktop& desktop) : Form(desktop, "frmMismatched") {}
        TextBox txtText{*this, "txtText"}, txtUnlabelled{*this, "txtUnlabelled", {"&Name:"}};
        Button cmdMissing{*this, "cmdMissing"};
    };
    qt::AddDesign("frmMismatched", [] {
        auto window = std::make_unique<QWidget>();
        (new QLabel(window.get()))->setObjectName("txtText");
        (new QPushButton(window.get()))->setObjectName("pushButton_2");
        (new QLineEdit(window.get()))->setObjectName("txtUnlabelled");
        return window;
    });
    qt::QtDesktop desktop;
    Mismatched form(desktop);
    EXPECT_EQ(qt::Mismatches(form), (std::vector<std::string>{
                                        "txtText: the widget is a QLabel, not a QLineEdit",
                                        "txtUnlabelled: no label shows its caption",
                                        "cmdMissing: there is no such widget (QPushButton or QToolButton)",
                                        "pushButton_2: a numbered name that no control has",
                                    }));
    EXPECT_THROW(form.Load(), Error);
}

}  // namespace lumarin::testing
