#include <QApplication>
#include <QLockFile>
#include <QTimer>

#include <cstdio>
#include <memory>

#include "host/demo/SeedData.h"
#include "host/desktop/Component.h"
#include "host/desktop/Demo.h"
#include "host/desktop/FtpTool.h"
#include "host/desktop/Jobs.h"
#include "host/desktop/MainWindow.h"
#include "host/desktop/ProgramOptions.h"
#include "host/desktop/SystemPorts.h"
#include "host/drive/DriveError.h"
#include "host/drive/LineInput.h"
#include "host/services/DataFolder.h"
#include "host/web/WebServer.h"
#include "platform/qt/MessageDialog.h"
#include "platform/qt/QtDesktop.h"
#include "platform/system/UserSession.h"

namespace {

constexpr int Failed = 1;
constexpr int BadOptions = 2;
constexpr int DataInUse = 3;

/// Also when the toolkit was told where to draw.
bool HasDisplay() { return lumarin::platform::HasDisplay() || !qgetenv("QT_QPA_PLATFORM").isEmpty(); }

/// Without a display only the demo and a driven program can run; both then draw off the screen.
void ChoosePlatform(host::ProgramOptions& options) {
    if (!HasDisplay() && options.drive.empty() && !options.demo) {
        std::fputs("There is no display; running the demo instead.\n", stderr);
        options.demo = true;
        options.dataFolder.clear();
    }
    // The driver works only what lies in this program; a file dialog of the desktop's does not.
    if (options.demo || !options.drive.empty()) QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    if (options.demo || !HasDisplay()) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QByteArray fonts = QByteArray::fromStdString(lumarin::platform::FontFolder());
    if (!fonts.isEmpty() && qgetenv("QT_QPA_FONTDIR").isEmpty()) qputenv("QT_QPA_FONTDIR", fonts);
}

QtMessageHandler usualMessages = nullptr;

/// Drawing off the screen, the toolkit reports every wish that needs a real one; nobody can do anything
/// about these.
void SayMessage(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (!text.startsWith("This plugin does not support")) usualMessages(type, context, text);
}

bool IsSeen() { return QGuiApplication::platformName() != "offscreen"; }

/// Says why the program cannot start: to a person in a message box, to whoever drives it on standard error.
int Refuse(const host::ProgramOptions& options, const QString& reason, int exitCode) {
    std::fprintf(stderr, "lumarin-host: %s\n", reason.toUtf8().constData());
    if (IsSeen() && options.drive.empty() && !options.demo)
        lumarin::qt::RunMessageBox({.text = reason.toStdString(),
                                    .title = "Lumarin Reference Host",
                                    .icon = lumarin::Icon::Critical},
                                   {});
    return exitCode;
}

/// The program once its data folder is its own.
class Program {
public:
    Program(host::ProgramOptions options, const host::HostOptions& user)
        : options_(std::move(options)),
          component_(host::MakeComponent(
              user.dataFolder, options_.demo ? host::ScannerUse::Demo : host::ScannerUse::Usual,
              IsSeen() ? lumarin::qt::WindowSizes::WithinScreen : lumarin::qt::WindowSizes::AsDesigned)),
          mainWindow_(user),
          common_(user, mainWindow_, [this](int job) { jobs_.End(job); }),
          web_(user.dataFolder, user.connection),
          jobs_(*component_, common_, mainWindow_),
          ftpTool_(component_->Desktop(), common_, mainWindow_, user.dataFolder + "ftp.pem") {
        if (web_.Port() > 0)
            common_.SetWebPort(web_.Port());
        else
            std::fputs("There is no free port; documents and their help cannot be shown.\n", stderr);
        mainWindow_.startJob = [this](host::JobKind kind, QAction& tool) { jobs_.Start(kind, tool); };
        mainWindow_.closing = [this] {
            jobs_.EndAll();
            // A timer comes after the events that wait: a driver's last answer is given before the end.
            QTimer::singleShot(0, qApp, [] { QCoreApplication::quit(); });
        };
    }

    int Run(const host::DemoFolders& demoFolders) {
        mainWindow_.show();
        if (options_.photos) StartSoon(host::JobKind::Photos);
        if (options_.documents) StartSoon(host::JobKind::Documents);
        if (options_.demo) return RunDemo(demoFolders);
        return options_.drive.empty() ? QApplication::exec() : RunDriven();
    }

private:
    void StartSoon(host::JobKind kind) {
        QTimer::singleShot(0, &mainWindow_, [this, kind] { mainWindow_.JobTool(kind).trigger(); });
    }

    int RunDriven() {
        host::Driver driver;
        host::LineInput input(driver, QString::fromStdString(options_.drive),
                              [this] { mainWindow_.close(); });
        const int exitCode = QApplication::exec();
        return input.AnswerTheRest() && !driver.HadErrors() ? exitCode : Failed;
    }

    int RunDemo(const host::DemoFolders& folders) {
        host::Driver driver;
        host::Demo demo(driver, component_->Desktop(), component_->Scanner(), folders);
        bool wentWell = false;
        demo.Start([&](bool succeeded) {
            wentWell = succeeded;
            driver.Quit([this] { mainWindow_.close(); });
        });
        const int exitCode = QApplication::exec();
        return wentWell ? exitCode : Failed;
    }

    host::ProgramOptions options_;
    std::unique_ptr<host::Component> component_;
    host::MainWindow mainWindow_;
    host::HostVelCommon common_;
    host::WebServer web_;
    host::Jobs jobs_;
    host::FtpTool ftpTool_;
};

int Start(host::ProgramOptions options) {
    host::DemoFolders demoFolders;
    if (options.demo) {
        demoFolders = host::PrepareDemoFolders(options.demoFolder);
        options.dataFolder = demoFolders.data;
    }
    const std::string usual = options.dataFolder.empty() ? host::UsualDataFolder() : options.dataFolder;
    const std::string folder = host::PrepareDataFolder(host::AbsolutePath(usual));

    QLockFile lock(QString::fromStdString(folder + "host.lock"));
    // Only the lock of a program that has ended may be broken, however old it is.
    lock.setStaleLockTime(0);
    if (!lock.tryLock())
        return Refuse(
            options,
            "The data folder \"" + QString::fromStdString(folder) +
                "\" is in use by another run of this program. Close it, or name another folder with --data.",
            DataInUse);
    host::SeedData(folder);
    Program program(options, {.dataFolder = folder,
                              .level = options.level,
                              .agent = options.agent,
                              .office = options.office,
                              .board = options.board,
                              .offline = options.offline,
                              .noInternet = options.noInternet,
                              .faults = options.faults});
    return program.Run(demoFolders);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    lumarin::files::Use(host::PortsOfThisSystem().files);
    lumarin::platform::SpeakToConsole();
    host::ProgramOptions options;
    try {
        options = host::ParseOptions(lumarin::platform::ProgramArguments(argumentCount, arguments));
    } catch (const host::OptionError& error) {
        std::fprintf(stderr, "lumarin-host: %s\nTry --help.\n", error.what());
        return BadOptions;
    }
    if (options.help) {
        std::fputs(host::OptionHelp().c_str(), stdout);
        return 0;
    }
    ChoosePlatform(options);
    usualMessages = qInstallMessageHandler(SayMessage);
    QApplication application(argumentCount, arguments);
    QApplication::setApplicationName("lumarin-host");
    QApplication::setQuitOnLastWindowClosed(false);
    lumarin::qt::SetUpApplication(application);
    try {
        return Start(options);
    } catch (const host::DriveError& error) {
        return Refuse(options, error.Reason(), BadOptions);
    } catch (const std::exception& error) {
        return Refuse(options, error.what(), Failed);
    }
}
