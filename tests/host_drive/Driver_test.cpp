#include "host/drive/Driver.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

#include "base/Error.h"
#include "platform_qt/EveryKindForm.h"

namespace host {

using namespace lumarin;

/// A window with a control of every kind; what its handlers find out goes into "lblNote".
class DriverTest : public lumarin::testing::EveryKindTest {
protected:
    DriverTest() {
        form->hsbLevel.SetRange(-500, 500, 25, 100);
        for (const char* entry : {"Front", "Kitchen", "Front door"}) form->cmbChoice.AddItem(entry);
        form->lisRows.AddColumn("Number");
        for (int row = 0; row < 200; ++row) form->lisRows.AddRow({.text = std::to_string(100 + row)});
        form->Menu.AddTool({.name = "Copy", .caption = "Copy"});
        form->Menu.AddTool({.name = "Paste", .caption = "Paste", .enabled = false});
        form->Menu.AddBand({"Rows", ToolBar::BandKind::ContextMenu, {"Copy", "Paste"}});
        Show();
    }

    /// The answers to commands that follow each other, read when no handler is at work any more.
    std::vector<QJsonValue> Do(const QStringList& commands) {
        std::vector<QJsonValue> answers;
        QStringList left = commands;
        std::function<void()> next = [&] {
            driver.Submit(left.takeFirst(), [&](const QJsonValue& answer) {
                answers.push_back(answer);
                if (left.isEmpty())
                    loop.quit();
                else
                    next();
            });
        };
        next();
        loop.exec();
        return answers;
    }
    QJsonValue Last(const QStringList& commands) { return Do(commands).back(); }
    QString NoteAfter(const QStringList& commands) {
        return Last(commands + QStringList{"get frmEveryKind.lblNote"})["text"].toString();
    }

    void Ask() {
        const Answer answer =
            desktop.ShowMessage({"Go on?", "Sure?", Buttons::YesNo, Icon::Question}, form.get());
        form->lblNote.SetCaption(answer == Answer::Yes ? "Yes" : "No");
    }

    const QString press = "press frmEveryKind.cmdDo";
    Driver driver;
    QEventLoop loop;
};

TEST_F(DriverTest, Controls_WorkedAsAPerson_ShowIt) {
    form->lisRows.DoubleClick = [&] {
        form->lblNote.SetCaption(form->lisRows.At(form->lisRows.Selected()).text);
    };
    const std::tuple<QStringList, const char*, const char*, QJsonValue> cases[] = {
        {{"set frmEveryKind.txtText \"Grüße 1\""}, "txtText", "text", "Grüße 1"},
        {{"key frmEveryKind.txtText Shift+x"}, "txtText", "text", "Grüße 1X"},
        {{"set frmEveryKind.txtText b"}, "txtText", "text", "b"},
        {{"set frmEveryKind.txtText \"\""}, "txtText", "text", ""},
        {{"set frmEveryKind.hsbLevel -250"}, "hsbLevel", "value", -250},
        {{"set frmEveryKind.cmbChoice Kitchen"}, "cmbChoice", "selected", 1},
        {{"set frmEveryKind.chkExtra 1", "set frmEveryKind.chkExtra 1"}, "chkExtra", "checked", true},
        {{"press frmEveryKind.optWay(1)"}, "optWay(1)", "checked", true},
        {{"select frmEveryKind.lisRows 150"}, "lisRows", "selected", 150},
        {{"double frmEveryKind.lisRows 120"}, "lblNote", "text", "220"},
    };
    for (const auto& [commands, control, member, value] : cases) {
        const QJsonValue state = Last(commands + QStringList{QString("get frmEveryKind.") + control});
        EXPECT_EQ(state[member], value) << commands.last().toStdString();
    }
    EXPECT_FALSE(driver.HadErrors());
}

TEST_F(DriverTest, Press_HandlerAsks_IsAnsweredWhileItWaits) {
    form->cmdDo.Click = [this] { Ask(); };
    const auto answers = Do({press, "message", press, "answer yes", "message"});
    EXPECT_TRUE(answers[0]["ok"].toBool());
    const QJsonValue& message = answers[1];
    EXPECT_EQ(message["title"].toString() + message["text"].toString() + message["icon"].toString(),
              "Sure?Go on?question");
    EXPECT_EQ(message["buttons"].toArray().size(), 2);
    EXPECT_TRUE(answers[2].toObject().contains("error")) << "the window is behind the message";
    EXPECT_TRUE(answers[4].isNull());
    EXPECT_EQ(form->lblNote.Caption(), "Yes");
    EXPECT_EQ(NoteAfter({"key frmEveryKind.txtText Alt+d", "message", "answer No"}), "No")
        << "the access key";
}

TEST_F(DriverTest, Message_HandlerStillAtWork_WaitsForItsQuestion) {
    form->cmdDo.Click = [this] {
        QWidget progress;
        progress.setObjectName("frmProgress");
        progress.show();
        form->SetEnabled(false);
        QTest::qWait(100);
        form->SetEnabled(true);
        progress.hide();
        Ask();
    };
    const auto answers = Do({press, "get frmProgress", "message", "answer No"});
    EXPECT_TRUE(answers[1]["visible"].toBool()) << "the first answer comes when the window appears";
    EXPECT_EQ(answers[2]["text"], "Go on?");
    EXPECT_EQ(NoteAfter({}), "No");
}

TEST_F(DriverTest, Get_WindowDisabledByTheProgram_WaitsUntilItIsEnabled) {
    form->cmdDo.Click = [this] {
        form->SetEnabled(false);
        form->tmrTick.SetInterval(50);
        form->tmrTick.SetEnabled(true);
    };
    form->tmrTick.Elapsed = [this] {
        form->lblNote.SetCaption("done");
        form->SetEnabled(true);
    };
    EXPECT_EQ(NoteAfter({press}), "done");
}

TEST_F(DriverTest, Drag_IsSeenByTheControl) {
    std::vector<double> seen;
    int moves = 0;
    form->fraStage.MouseDown = form->fraStage.MouseUp = [&](const Mouse& mouse) {
        seen.insert(seen.end(), {mouse.x / TwipsPerPixel, mouse.y / TwipsPerPixel});
    };
    form->fraStage.MouseMove = [&](const Mouse&) { ++moves; };
    Do({"drag frmEveryKind.fraStage 150 120 190 -40"});
    EXPECT_EQ(seen, (std::vector<double>{150, 120, 190, -40}));
    EXPECT_GE(moves, 5);
}

TEST_F(DriverTest, Menu_RightClick_NamesToolsAndClosesIt) {
    form->lisRows.MouseUp = [&](const Mouse& mouse) {
        if (mouse.button == MouseButton::Right) desktop.PopupMenu(form->Menu, "Rows");
    };
    QStringList seen;
    for (const QJsonValue tool : Last({"menu frmEveryKind.lisRows"})["tools"].toArray())
        seen += tool["name"].toString() + (tool["enabled"].toBool() ? "" : " disabled");
    EXPECT_EQ(seen, QStringList({"Copy", "Paste disabled"}));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(DriverTest, Choose_FileDialogWaits_ChoosesOrCancels) {
    QTemporaryDir folder;
    for (const char* name : {"a b.JPG", "c.jpg"}) QFile(folder.filePath(name)).open(QIODevice::WriteOnly);
    const QString one = folder.filePath("c.jpg");
    const QString both = QString("choose \"%1\" %2").arg(folder.filePath("a b.JPG"), one);
    FileDialog dialog{
        .title = "Import", .filter = "JPEG|*.jpg", .folder = folder.path().toStdString(), .several = true};
    std::string chosen;
    form->cmdDo.Click = [&] { chosen = desktop.ChooseFiles(dialog, form.get()); };
    std::vector<QJsonValue> answers;
    const auto chosenAfter = [&](const QStringList& commands) {
        answers = Do(QStringList{press} + commands + QStringList{"get frmEveryKind"});
        return QByteArray::fromStdString(chosen).replace('\0', '|').toStdString();
    };
    for (const bool preview : {false, true}) {
        SCOPED_TRACE(preview);
        dialog.preview = preview;
        EXPECT_EQ(chosenAfter({"get fileDialog.previewPixels", both}), dialog.folder + "|a b.JPG|c.jpg");
        EXPECT_EQ(answers[1]["text"].isString(), preview);
        EXPECT_EQ(chosenAfter({"choose " + one}), one.toStdString());
        EXPECT_EQ(chosenAfter({"choose"}), "");
    }
}

TEST_F(DriverTest, Choose_SaveDialogWaits_NamesAFileAndAsksBeforeItIsReplaced) {
    QTemporaryDir folder;
    QFile(folder.filePath("there.pdf")).open(QIODevice::WriteOnly);
    form->cmdDo.Click = [&] {
        const SaveDialog dialog{"Save", "PDF|*.pdf", folder.path().toStdString(), "100123.pdf"};
        const QString path = QString::fromStdString(desktop.ChooseFileToSave(dialog, form.get()));
        form->lblNote.SetCaption(QFileInfo(path).fileName().toStdString());
    };
    const QString path = "choose " + folder.path();
    EXPECT_EQ(NoteAfter({press, path + "/new"}), "new.pdf");
    EXPECT_EQ(NoteAfter({press, path + "/there.pdf", "answer No", "choose"}), "");
    EXPECT_EQ(NoteAfter({press, path + "/there.pdf", "answer Yes"}), "there.pdf");
    EXPECT_FALSE(driver.HadErrors());
}

TEST_F(DriverTest, Browser_WebAddressesOfTheProgram_AreWrittenDownAndNothingElseIsOpened) {
    // An address and what is opened, "" where it is refused.
    const std::pair<const char*, const char*> cases[] = {
        {"http://example.org/a b?c=%20d", "http://example.org/a%20b?c=%20d"},
        {"www.example.org:8080/x", "http://www.example.org:8080/x"},
        {"Docs.localhost:81\\VELTRANE\\Docs\\4\\5\\12345_17.pdf",
         "http://docs.localhost:81/VELTRANE/Docs/4/5/12345_17.pdf"},
        {"file:///etc/passwd", ""},
        {"javascript:alert(1)", ""},
        {"http://", ""},
    };
    QStringList expected;
    for (const auto& [address, opened] : cases) {
        if (*opened != '\0') {
            desktop.OpenInBrowser(address);
            expected += opened;
        } else {
            EXPECT_THROW(desktop.OpenInBrowser(address), Error) << address;
        }
    }
    EXPECT_THROW(desktop.OpenDocument("/no/such.pdf"), Error);
    EXPECT_EQ(Last({"browser"})["opened"], QJsonArray::fromStringList(expected));
}

TEST_F(DriverTest, Commands_ThatCannotBeDone_SayWhy) {
    form->cmbChoice.SetEnabled(false);
    const std::pair<const char*, const char*> cases[] = {
        {"key frmEveryKind.txtText Entr", "no key \"Entr\""},
        {"fly", "no command \"fly\""},
        {"set frmEveryKind.txtText", "Usage: set"},
        {"press frmEveryKind.cmdNone", "no control \"cmdNone\""},
        {"tool frmEveryKind.Paste", "\"Paste\" is disabled"},
        {"set frmEveryKind.cmbChoice Front", "\"cmbChoice\" is disabled"},
        {"press frmEveryKind.cmdHidden", "\"cmdHidden\" is not visible"},
        {"answer Yes", "No message waits"},
        {"choose x", "No file dialog waits"},
        {"wait frmNone 1", "has not appeared"},
    };
    for (const auto& [command, reason] : cases) {
        const QString error = Last({command})["error"].toString();
        EXPECT_TRUE(error.contains(reason)) << command << ": " << error.toStdString();
    }
    EXPECT_TRUE(driver.HadErrors());
}

TEST_F(DriverTest, Quit_QuestionsWait_AreDismissedBeforeTheEnd) {
    form->cmdDo.Click = [this] {
        Ask();
        Ask();
    };
    driver.Submit(press, [this](const QJsonValue&) { driver.Quit([this] { loop.quit(); }); });
    loop.exec();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(form->lblNote.Caption(), "No");
}

}  // namespace host
