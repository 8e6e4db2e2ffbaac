#include "host/drive/Driver.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
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
#include <QPushButton>
#include <QSlider>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QVBoxLayout>

namespace host {

namespace {

QApplication& Application() {
    static int count = 1;
    static char name[] = "test";
    static char* arguments[] = {name, nullptr};
    static auto* application = new QApplication(count, arguments);
    return *application;
}

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
    }

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
        for (int row = 0; row < 200; ++row) table->setItem(row, 0, new QTableWidgetItem(QString::number(100 + row)));
        QObject::connect(table, &QTableWidget::cellDoubleClicked, this, [this](int row, int) { Result(QString::number(row)); });
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
    QString ResultAfter(const QStringList& commands) { return Last(commands + QStringList{"get frmTest.lblResult"})["text"].toString(); }

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
        {{"set frmTest.txtName abc", "key frmTest.txtName Home", "key frmTest.txtName Delete"}, "txtName", "text", "bc"},
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
    const auto answers = Do({"press frmTest.cmdAsk", "message", "press frmTest.cmdAsk", "answer yes", "message",
                             "get frmTest.lblResult"});
    EXPECT_TRUE(answers[0].toObject()["ok"].toBool());
    EXPECT_EQ(answers[1].toObject()["text"], "Go on?");
    EXPECT_EQ(answers[1].toObject()["title"], "Sure?");
    EXPECT_EQ(answers[1].toObject()["icon"], "question");
    EXPECT_EQ(answers[1].toObject()["buttons"].toArray().size(), 2);
    EXPECT_TRUE(answers[2].toObject().contains("error")) << "the window is behind the message";
    EXPECT_TRUE(answers[4].isNull());
    EXPECT_EQ(answers[5].toObject()["text"], "Yes");
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
    const auto answers = Do({"press frmTest.cmdWork", "get frmProgress", "message", "answer No", "get frmTest.lblResult"});
    EXPECT_TRUE(answers[1].toObject()["visible"].toBool()) << "the first answer comes when the window appears";
    EXPECT_EQ(answers[2].toObject()["text"], "Go on?");
    EXPECT_EQ(answers[4].toObject()["text"], "No");
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
    const QString both = QString("choose \"%1\" %2").arg(folder.filePath("a b.jpg"), folder.filePath("c.jpg"));
    EXPECT_EQ(ResultAfter({"press frmTest.cmdOpen", both}), "a b.jpg|c.jpg");
    EXPECT_EQ(ResultAfter({"press frmTest.cmdOpen", "choose " + folder.filePath("c.jpg")}), "c.jpg");
    EXPECT_EQ(ResultAfter({"press frmTest.cmdOpen", "choose"}), "none");
    const auto answers = Do({"press frmTest.cmdOpen", "choose " + folder.filePath("missing.jpg"), "choose"});
    EXPECT_TRUE(answers[1].toObject().contains("error"));
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
    driver.Submit("press frmTest.cmdAsk", [this](const QJsonValue&) { driver.Quit([this] { loop.quit(); }); });
    loop.exec();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(window.findChild<QLabel*>("lblResult")->text(), "No");
}

}  // namespace host
