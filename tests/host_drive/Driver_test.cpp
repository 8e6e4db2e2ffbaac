#include "host/drive/Driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QMouseEvent>
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QUrl>
#include <QVBoxLayout>

#include "base/Error.h"
#include "platform/qt/FileChooser.h"
#include "platform/qt/QtDesktop.h"

namespace host {

namespace {

QApplication& Application() {
    static int count = 1;
    static char name[] = "test";
    static char* arguments[] = {name, nullptr};
    static auto* application = new QApplication(count, arguments);
    return *application;
}

/// Writes down what the mouse does to it, and takes files.
class Surface : public QWidget {
public:
    Surface() {
        setAcceptDrops(true);
        setMinimumSize(200, 100);
        setMouseTracking(true);
    }
    std::vector<QPoint> hovers, presses, moves, releases;
    QStringList dropped;

protected:
    void mousePressEvent(QMouseEvent* event) override { presses.push_back(event->pos()); }
    void mouseReleaseEvent(QMouseEvent* event) override { releases.push_back(event->pos()); }
    void mouseMoveEvent(QMouseEvent* event) override {
        (event->buttons() == Qt::LeftButton ? moves : hovers).push_back(event->pos());
    }
    void dragEnterEvent(QDragEnterEvent* event) override {
        if (event->mimeData()->urls().size() < 3) event->acceptProposedAction();
    }
    void dropEvent(QDropEvent* event) override {
        for (const QUrl& url : event->mimeData()->urls()) dropped += url.toLocalFile();
    }
};

/// A window with one control of each kind; what its handlers find out goes into "lblResult".
class TestWindow : public QMainWindow {
public:
    TestWindow() {
        setObjectName("frmTest");
        auto* middle = new QWidget;
        layout_ = new QVBoxLayout(middle);
        setCentralWidget(middle);
        Add<QLabel>("lblResult");
        Add<QLineEdit>("txtName");
        Add<QCheckBox>("chkFlag");
        Add<QSlider>("hsbControl_0")->setRange(-500, 500);
        Add<QComboBox>("cmbView")->addItems({"Front", "Kitchen", "Front door"});
        AddTable();
        AddMenu();
        surface = Add<Surface>("imgMain");
    }

    Surface* surface = nullptr;

    void Button(const char* name, const std::function<void()>& work) {
        QObject::connect(Add<QPushButton>(name), &QPushButton::clicked, this, work);
    }
    void Result(const QString& text) { findChild<QLabel*>("lblResult")->setText(text); }

private:
    template <class Widget>
    Widget* Add(const char* name) {
        auto* widget = new Widget;
        widget->setObjectName(name);
        layout_->addWidget(widget);
        return widget;
    }

    void AddTable() {
        auto* table = Add<QTableWidget>("RecList");
        table->setColumnCount(2);
        table->setRowCount(200);
        table->setSelectionBehavior(QAbstractItemView::SelectRows);
        for (int row = 0; row < 200; ++row)
            table->setItem(row, 0, new QTableWidgetItem(QString::number(100 + row)));
        QObject::connect(table, &QTableWidget::cellDoubleClicked, this,
                         [this](int row, int) { Result(QString::number(row)); });
    }

    void AddMenu() {
        auto* label = findChild<QLabel*>("lblResult");
        label->setContextMenuPolicy(Qt::CustomContextMenu);
        auto* menu = new QMenu(this);
        menu->addAction("Copy")->setObjectName("Copy");
        menu->addSeparator();
        menu->addAction("Paste")->setObjectName("Paste");
        menu->actions().last()->setEnabled(false);
        QObject::connect(label, &QLabel::customContextMenuRequested, menu,
                         [menu, label](QPoint at) { menu->exec(label->mapToGlobal(at)); });
    }

    QVBoxLayout* layout_ = nullptr;
};

}  // namespace

class DriverTest : public testing::Test {
protected:
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
    QJsonObject Last(const QStringList& commands) { return Do(commands).back().toObject(); }
    QString ResultAfter(const QStringList& commands) {
        return Last(commands + QStringList{"get frmTest.lblResult"})["text"].toString();
    }

    void Ask() {
        const auto answer = QMessageBox::question(&window, "Sure?", "Go on?");
        window.Result(answer == QMessageBox::Yes ? "Yes" : "No");
    }

    void SetUp() override { window.show(); }

    QApplication& application = Application();
    TestWindow window;
    Driver driver;
    QEventLoop loop;
};

TEST_F(DriverTest, Controls_WorkedAsAPerson_ShowIt) {
    const struct {
        QStringList commands;
        const char* target;
        const char* member;
        QJsonValue value;
    } cases[] = {
        {{"set frmTest.txtName \"old\"", "set frmTest.txtName \"Grüße 1\""}, "txtName", "text", "Grüße 1"},
        {{"set frmTest.txtName abc", "key frmTest.txtName Home", "key frmTest.txtName Delete"},
         "txtName",
         "text",
         "bc"},
        {{"set frmTest.txtName abc", "set frmTest.txtName \"\""}, "txtName", "text", ""},
        {{"set frmTest.hsbControl(0) -250"}, "hsbControl(0)", "value", -250},
        {{"set frmTest.cmbView Kitchen"}, "cmbView", "selected", 1},
        {{"set frmTest.chkFlag 1", "set frmTest.chkFlag 1"}, "chkFlag", "checked", true},
        {{"select frmTest.RecList 150"}, "RecList", "selected", 150},
        {{"double frmTest.RecList 120"}, "lblResult", "text", "120"},
    };
    for (const auto& given : cases) {
        const QJsonObject state = Last(given.commands + QStringList{QString("get frmTest.") + given.target});
        EXPECT_EQ(state[given.member], given.value) << given.commands.last().toStdString();
    }
    EXPECT_FALSE(driver.HadErrors());
}

TEST_F(DriverTest, Press_HandlerAsks_IsAnsweredWhileItWaits) {
    window.Button("cmdAsk", [this] { Ask(); });
    const auto answers = Do({"press frmTest.cmdAsk", "message", "press frmTest.cmdAsk", "answer yes",
                             "message", "get frmTest.lblResult"});
    EXPECT_TRUE(answers[0].toObject()["ok"].toBool());
    EXPECT_EQ(answers[1].toObject()["text"], "Go on?");
    EXPECT_EQ(answers[1].toObject()["title"], "Sure?");
    EXPECT_EQ(answers[1].toObject()["icon"], "question");
    EXPECT_EQ(answers[1].toObject()["buttons"].toArray().size(), 2);
    EXPECT_TRUE(answers[2].toObject().contains("error")) << "the window is behind the message";
    EXPECT_TRUE(answers[4].isNull());
    EXPECT_EQ(answers[5].toObject()["text"], "Yes");
}

TEST_F(DriverTest, Key_AccessKeyOfAButton_IsAnsweredAfterItsClick) {
    window.Button("cmdAsk", [this] { Ask(); });
    window.findChild<QPushButton*>("cmdAsk")->setText("&Ask");
    EXPECT_EQ(ResultAfter({"key frmTest.txtName Alt+a", "message", "answer Yes"}), "Yes");
}

TEST_F(DriverTest, Message_HandlerStillAtWork_WaitsForItsQuestion) {
    window.Button("cmdWork", [this] {
        QWidget progress;
        progress.setObjectName("frmProgress");
        progress.show();
        window.setEnabled(false);
        QElapsedTimer time;
        time.start();
        while (time.elapsed() < 100) QCoreApplication::processEvents();
        window.setEnabled(true);
        progress.hide();
        Ask();
    });
    const auto answers =
        Do({"press frmTest.cmdWork", "get frmProgress", "message", "answer No", "get frmTest.lblResult"});
    EXPECT_TRUE(answers[1].toObject()["visible"].toBool())
        << "the first answer comes when the window appears";
    EXPECT_EQ(answers[2].toObject()["text"], "Go on?");
    EXPECT_EQ(answers[4].toObject()["text"], "No");
}

TEST_F(DriverTest, Press_InAModalWindow_IsAnsweredWhenItsHandlerHasEnded) {
    window.Button("cmdOpen", [this] {
        QDialog modal(&window);
        modal.setObjectName("frmModal");
        auto* work = new QPushButton("Work", &modal);
        work->setObjectName("cmdWork");
        QObject::connect(work, &QPushButton::clicked, &modal, [work] {
            QElapsedTimer time;
            time.start();
            while (time.elapsed() < 100) QCoreApplication::processEvents();
            work->setText("Done");
        });
        modal.exec();
    });
    const auto answers =
        Do({"press frmTest.cmdOpen", "press frmModal.cmdWork", "get frmModal.cmdWork", "close frmModal"});
    EXPECT_EQ(answers[2].toObject()["caption"], "Done");
    EXPECT_FALSE(driver.HadErrors());
}

TEST_F(DriverTest, Get_WindowDisabledByTheProgram_WaitsUntilItIsEnabled) {
    window.Button("cmdLater", [this] {
        window.setEnabled(false);
        QTimer::singleShot(50, &window, [this] {
            window.Result("done");
            window.setEnabled(true);
        });
    });
    EXPECT_EQ(ResultAfter({"press frmTest.cmdLater"}), "done");
}

TEST_F(DriverTest, Drag_FromAnEdgeToOutside_IsSeenByTheControlWhereItBegan) {
    Do({"drag frmTest.imgMain 10 20 50 -40"});
    const Surface& seen = *window.surface;
    ASSERT_EQ(seen.presses, std::vector{QPoint(10, 20)});
    EXPECT_EQ(seen.hovers, std::vector{QPoint(10, 20)}) << "the pointer is there before the button goes down";
    EXPECT_GE(seen.moves.size(), 4u);
    EXPECT_EQ(seen.moves.back(), QPoint(50, -40));
    EXPECT_EQ(seen.releases, std::vector{QPoint(50, -40)});
}

TEST_F(DriverTest, Drop_Files_ArriveUnlessTheControlRefuses) {
    const auto answers =
        Do({"drop frmTest.imgMain \"/tmp/a b.jpg\" /tmp/c.png", "drop frmTest.imgMain /1 /2 /3"});
    EXPECT_EQ(window.surface->dropped, QStringList({"/tmp/a b.jpg", "/tmp/c.png"}));
    EXPECT_EQ(answers[1].toObject()["error"], "Control \"imgMain\" refuses these files");
}

TEST_F(DriverTest, ShotAndClipboard_OfAPicture_HoldIt) {
    QTemporaryDir folder;
    const QString file = '"' + folder.filePath("new folder/shot.png") + '"';
    Do({"shot frmTest " + file, "clipboard " + file});
    EXPECT_EQ(QApplication::clipboard()->image().size(), window.size());
    Do({"clipboard clear"});
    EXPECT_TRUE(QApplication::clipboard()->image().isNull());
    EXPECT_FALSE(driver.HadErrors());
}

TEST_F(DriverTest, Menu_RightClick_NamesToolsAndClosesIt) {
    const QJsonArray tools = Last({"menu frmTest.lblResult"})["tools"].toArray();
    ASSERT_EQ(tools.size(), 2);
    EXPECT_EQ(tools[0].toObject()["name"], "Copy");
    EXPECT_TRUE(tools[0].toObject()["enabled"].toBool());
    EXPECT_FALSE(tools[1].toObject()["enabled"].toBool());
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(DriverTest, Choose_FileDialogWaits_ChoosesOrCancels) {
    QTemporaryDir folder;
    for (const char* name : {"a b.jpg", "c.jpg"}) QFile(folder.filePath(name)).open(QIODevice::WriteOnly);
    window.Button("cmdOpen", [&] {
        QFileDialog dialog(&window);
        dialog.setOption(QFileDialog::DontUseNativeDialog);
        dialog.setFileMode(QFileDialog::ExistingFiles);
        QStringList names;
        if (dialog.exec() == QDialog::Accepted)
            for (const QString& path : dialog.selectedFiles()) names += QFileInfo(path).fileName();
        window.Result(names.isEmpty() ? "none" : names.join('|'));
    });
    const QString both =
        QString("choose \"%1\" %2").arg(folder.filePath("a b.jpg"), folder.filePath("c.jpg"));
    EXPECT_EQ(ResultAfter({"press frmTest.cmdOpen", both}), "a b.jpg|c.jpg");
    EXPECT_EQ(ResultAfter({"press frmTest.cmdOpen", "choose " + folder.filePath("c.jpg")}), "c.jpg");
    EXPECT_EQ(ResultAfter({"press frmTest.cmdOpen", "choose"}), "none");
    const auto answers = Do({"press frmTest.cmdOpen", "choose " + folder.filePath("missing.jpg"), "choose"});
    EXPECT_TRUE(answers[1].toObject().contains("error"));
}

TEST_F(DriverTest, Choose_SaveDialogWaits_NamesAFileAndAsksBeforeItIsReplaced) {
    QTemporaryDir folder;
    QFile(folder.filePath("there.pdf")).open(QIODevice::WriteOnly);
    window.Button("cmdSave", [&] {
        const lumarin::SaveDialog dialog{"Save", "PDF|*.pdf", folder.path().toStdString(), "100123.pdf"};
        window.Result(
            QFileInfo(QString::fromStdString(lumarin::qt::RunSaveDialog(dialog, &window))).fileName());
    });
    const QString path = "choose " + folder.path();
    EXPECT_EQ(ResultAfter({"press frmTest.cmdSave", path + "/new"}), "new.pdf");
    EXPECT_EQ(ResultAfter({"press frmTest.cmdSave", path + "/there.pdf", "answer No", "choose"}), "");
    EXPECT_EQ(ResultAfter({"press frmTest.cmdSave", path + "/there.pdf", "answer Yes"}), "there.pdf");
    EXPECT_FALSE(driver.HadErrors());
}

TEST_F(DriverTest, Browser_WebAddressesOfTheProgram_AreWrittenDownAndNothingElseIsOpened) {
    lumarin::qt::QtDesktop desktop;
    const struct {
        const char* address;
        const char* opened;  ///< "" for an address that is refused
    } cases[] = {
        {"http://example.org/a b?c=%20d", "http://example.org/a%20b?c=%20d"},
        {" HTTPS://example.org ", "https://example.org"},
        {"www.example.org", "http://www.example.org"},
        {"www.example.org:8080/x", "http://www.example.org:8080/x"},
        {"Docs.localhost:81\\VELTRANE\\Docs\\4\\5\\12345_17.pdf",
         "http://docs.localhost:81/VELTRANE/Docs/4/5/12345_17.pdf"},
        {"file:///etc/passwd", ""},
        {"javascript:alert(1)", ""},
        {"mailto:a@example.org", ""},
        {"http://", ""},
        {"", ""},
    };
    QStringList expected;
    for (const auto& given : cases) {
        if (*given.opened != '\0') {
            desktop.OpenInBrowser(given.address);
            expected += given.opened;
        } else {
            EXPECT_THROW(desktop.OpenInBrowser(given.address), lumarin::Error) << given.address;
        }
    }
    EXPECT_THROW(desktop.OpenDocument("/no/such.pdf"), lumarin::Error);
    EXPECT_EQ(Last({"browser"})["opened"], QJsonArray::fromStringList(expected));
}

TEST_F(DriverTest, Commands_ThatCannotBeDone_SayWhy) {
    window.findChild<QComboBox*>("cmbView")->setEnabled(false);
    window.findChild<QCheckBox*>("chkFlag")->hide();
    const struct {
        const char* command;
        const char* reason;
    } cases[] = {
        {"fly", "There is no command \"fly\""},
        {"set frmTest.txtName", "Usage: set W.CONTROL TEXT"},
        {"get frmNone", "There is no window \"frmNone\""},
        {"press frmTest.cmdNone", "Window \"frmTest\" has no control \"cmdNone\""},
        {"press frmTest", "A control must be named: \"frmTest.CONTROL\""},
        {"get frmTest.None", "Window \"frmTest\" has neither a control nor a tool \"None\""},
        {"tool frmTest.None", "Window \"frmTest\" has no tool \"None\""},
        {"tool frmTest.Paste", "Tool \"Paste\" is disabled"},
        {"set frmTest.cmbView Front", "Control \"cmbView\" is disabled"},
        {"press frmTest.chkFlag", "Control \"chkFlag\" is not visible"},
        {"set frmTest.hsbControl(0) 501", "Control \"hsbControl_0\" goes from -500 to 500"},
        {"select frmTest.RecList 200", "Control \"RecList\" has no row 200"},
        {"select frmTest.txtName 0", "Control \"txtName\" is no list"},
        {"drop frmTest.lblResult x.jpg", "Control \"lblResult\" takes no files"},
        {"answer Yes", "No message waits"},
        {"choose x", "No file dialog waits"},
        {"wait frmNone 1", "Window \"frmNone\" has not appeared"},
    };
    for (const auto& given : cases) EXPECT_EQ(Last({given.command})["error"], given.reason) << given.command;
    EXPECT_TRUE(driver.HadErrors());
}

TEST_F(DriverTest, Quit_QuestionsWait_AreDismissedBeforeTheEnd) {
    window.Button("cmdAsk", [this] {
        Ask();
        Ask();
    });
    driver.Submit("press frmTest.cmdAsk",
                  [this](const QJsonValue&) { driver.Quit([this] { loop.quit(); }); });
    loop.exec();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(window.findChild<QLabel*>("lblResult")->text(), "No");
}

}  // namespace host
