// Windows as a whole: shown, modal, closed, given up; messages, help.
#include <QAbstractButton>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include "platform_qt/EveryKindForm.h"
#include "util/frmBusy.h"

namespace lumarin::testing {

class QtDesktopTest : public EveryKindTest {
protected:
    /// Runs while the next modal window or message waits.
    static void Meanwhile(std::function<void()> act) { QTimer::singleShot(0, qApp, std::move(act)); }
};

TEST_F(QtDesktopTest, Window_ShowsTheFormsStateAndTellsItsOwn) {
    form->MoveTo(1351, 750);
    Show();
    EXPECT_EQ(form->Caption(), "Every kind") << "the design's, as the code has none";
    form->SetCaption("Photos");
    EXPECT_EQ(Window().windowTitle(), "Photos");
    EXPECT_EQ(form->Bounds().left, 1351) << "not rounded to pixels";
    EXPECT_EQ(Window().pos(), QPoint(90, 50));
    EXPECT_GE(form->activations, 1);
    Window().move(200, 80);
    Settle();
    EXPECT_EQ(form->Bounds().left, 3000);
    form->SetInnerSize({10500, 9750});
    EXPECT_EQ(Window().size(), QSize(700, 650));
    EXPECT_TRUE(Widget("txtText").hasFocus()) << "the keyboard works at once";
    form->SetEnabled(false);
    EXPECT_FALSE(Window().isEnabled());
    form->SetEnabled(true);
    EXPECT_TRUE(Widget("txtText").hasFocus()) << "and again where it was";
    form->Hide();
    form->Show(nullptr);
    Settle();
    EXPECT_TRUE(Widget("txtText").hasFocus()) << "hidden and shown again in one go";
}

TEST_F(QtDesktopTest, Window_AtTheFarEdge_StaysOnTheScreenWithItsFrame) {
    form->Load();
    const Size screen = desktop.ScreenSize();
    form->MoveTo(screen.width - form->Bounds().width, screen.height - form->Bounds().height);
    Show();
    const QRect place = Window().frameGeometry();
    EXPECT_NE(place, Window().geometry());
    EXPECT_TRUE(Window().screen()->availableGeometry().contains(place));
    form->SetCaption("changed");
    EXPECT_EQ(Window().frameGeometry(), place);
}

TEST_F(QtDesktopTest, FrameClose_AsksTheForm) {
    int asked = 0;
    form->queryClose = [&](CloseReason reason) { return reason == CloseReason::Frame && ++asked > 1; };
    Show();
    QPointer<QWidget> window = &Window();
    window->close();
    EXPECT_TRUE(window->isVisible());
    window->close();
    EXPECT_FALSE(window->isVisible());
    EXPECT_FALSE(form->IsLoaded());
    Settle();
    EXPECT_TRUE(window.isNull());
    Show();
    EXPECT_TRUE(Window().isVisible()) << "it can be loaded again";
}

TEST_F(QtDesktopTest, Modal_ReturnsWhenHiddenOrUnloadedByEscape) {
    Show();
    frmBusy dialog(desktop);
    Meanwhile([&] {
        EXPECT_EQ(QApplication::activeModalWidget(), dialog.NativeWindow());
        const auto* window = static_cast<QWidget*>(dialog.NativeWindow());
        EXPECT_EQ(window->windowHandle()->transientParent(), Window().windowHandle());
        dialog.Hide();
    });
    dialog.ShowModal(form.get());
    EXPECT_TRUE(dialog.IsLoaded());
    Meanwhile([&] { QTest::keyClick(static_cast<QWidget*>(dialog.NativeWindow()), Qt::Key_Escape); });
    dialog.ShowModal(form.get());
    EXPECT_FALSE(dialog.IsLoaded());
}

TEST_F(QtDesktopTest, UnloadOrDestroyLater_WithinAnEventOfTheWindow_DestroyAfterwards) {
    for (const bool wholeForm : {false, true}) {
        SCOPED_TRACE(wholeForm);
        Show();
        QPointer<QWidget> window = &Window();
        bool stillThere = false;
        form->cmdDo.Click = [&] {
            Meanwhile([&] {
                wholeForm ? desktop.DestroyLater(std::move(form)) : static_cast<void>(form->Unload());
                Settle();
                stillThere = !window.isNull();
                qobject_cast<QMessageBox*>(QApplication::activeModalWidget())->accept();
            });
            desktop.ShowMessage({.text = "It waits inside the click", .title = "Wait"}, nullptr);
        };
        QTest::mouseClick(&Widget("cmdDo"), Qt::LeftButton);
        EXPECT_TRUE(stillThere);
        EXPECT_TRUE(Becomes([&] { return window.isNull(); }));
    }
}

TEST_F(QtDesktopTest, Message_ButtonsKeysAndClosing_GiveTheirAnswers) {
    using Act = std::function<void(QMessageBox&)>;
    const auto press = [](QMessageBox::StandardButton button) -> Act {
        return [button](QMessageBox& box) { box.button(button)->click(); };
    };
    const auto key = [](Qt::Key which) -> Act {
        return [which](QMessageBox& box) { QTest::keyClick(box.focusWidget(), which); };
    };
    const Act close = [](QMessageBox& box) { box.close(); };
    const Act end = [](QMessageBox& box) { box.done(0); };
    const std::tuple<const char*, Buttons, std::optional<Answer>, Act, Answer> cases[] = {
        {"ok closed", Buttons::Ok, {}, close, Answer::Ok},
        {"retry", Buttons::RetryCancel, {}, key(Qt::Key_Return), Answer::Retry},
        {"cancel", Buttons::OkCancel, {}, press(QMessageBox::Cancel), Answer::Cancel},
        {"closed with cancel", Buttons::YesNoCancel, Answer::Yes, close, Answer::Cancel},
        {"closed without cancel", Buttons::YesNo, Answer::Yes, close, Answer::Cancel},
        {"escape without cancel", Buttons::YesNo, Answer::Yes, key(Qt::Key_Escape), Answer::Cancel},
        {"the program ends", Buttons::YesNo, Answer::Yes, end, Answer::Cancel},
        {"enter means no", Buttons::YesNo, Answer::No, key(Qt::Key_Return), Answer::No},
    };
    desktop.SetPointer(Pointer::Hourglass);
    for (const auto& [name, buttons, enter, act, answer] : cases) {
        SCOPED_TRACE(name);
        Meanwhile([act = act] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            EXPECT_EQ(box->text(), "50 < 60 & more");
            EXPECT_EQ(box->windowTitle(), "Title");
            EXPECT_EQ(box->icon(), QMessageBox::Critical);
            EXPECT_TRUE(box->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
            EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "no hourglass over a question";
            act(*box);
        });
        const Message message{"50 < 60 & more", "Title", buttons, Icon::Critical, Modality::System, enter};
        EXPECT_EQ(desktop.ShowMessage(message, nullptr), answer);
    }
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
    desktop.SetPointer(Pointer::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(QtDesktopTest, Message_TooLongForTheScreen_ScrollsAndKeepsItsButtons) {
    std::string rows;
    for (int i = 0; i < 200; ++i) rows += "photo-" + std::string(i, 'x') + ".jpg\n\n";
    std::string wraps;
    for (int i = 0; i < 23; ++i) wraps += "a name that wraps in a box as wide as the toolkit's own.jpg\n";
    for (const std::string& text : {rows, wraps}) {
        Meanwhile([] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            const QRect room = box->screen()->availableGeometry();
            EXPECT_TRUE(room.contains(box->geometry().translated(room.center() - box->geometry().center())));
            EXPECT_TRUE(box->rect().contains(box->button(QMessageBox::Ok)->geometry()));
            auto* scrolled = box->findChild<QScrollArea*>();
            QTest::keyClick(box->focusWidget(), Qt::Key_PageDown);
            EXPECT_GT(scrolled != nullptr ? scrolled->verticalScrollBar()->value() : 0, 0);
            box->accept();
        });
        desktop.ShowMessage({.text = text, .title = "Refused"}, nullptr);
    }
}

TEST_F(QtDesktopTest, HelpKey_InAnyWindow_AsksForTheHelpFile) {
    desktop.SetHelpFile("/no/such/help.html");
    Show();
    QString said;
    Meanwhile([&] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        said = box->text();
        box->close();
    });
    QTest::keyClick(&Widget("txtText"), Qt::Key_F1);
    EXPECT_TRUE(said.contains("/no/such/help.html")) << said.toStdString();
}

}  // namespace lumarin::testing
