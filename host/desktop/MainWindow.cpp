#include "host/desktop/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QStatusBar>
#include <QToolBar>

#include "host/database/Schema.h"
#include "host/desktop/StartPage.h"
#include "platform/qt/Icons.h"

namespace host {

namespace {

constexpr QSize UsualSize(860, 600);
constexpr QSize FrameRoom(16, 48);  // a screen may be small
// What the component reports after photos were sent.
constexpr int PhotosFirst = 0;
constexpr int PhotosSecond = 9;

}  // namespace

MainWindow::MainWindow(const HostOptions& user)
    : user_(user), queries_(DatabasePath(user.dataFolder), DatabaseUse::Queries) {
    setObjectName("frmMain");
    setWindowTitle("Lumarin Reference Host");
    resize(UsualSize.boundedTo(screen()->availableSize() - FrameRoom));
    AddTools();
    page_ = new StartPage(user_);
    page_->opened = [this](std::int32_t listing) { OpenInPhotos(listing); };
    setCentralWidget(page_);
    statusBar()->setObjectName("StatusBar");
    Refresh();
}

void MainWindow::AddTools() {
    auto* bar = addToolBar("Jobs");
    bar->setObjectName("Jobs");
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bar->setIconSize(QSize(32, 32));
    photos_ = AddTool(JobKind::Photos, "Photos", "&Photos", "image-x-generic", "Ctrl+P");
    documents_ = AddTool(JobKind::Documents, "Documents", "&Documents", "document-open", "Ctrl+D");
    photos_->setToolTip("Gather listings and send their photos");
    documents_->setToolTip("Attach documents to a listing");
    bar->addActions({photos_, documents_});
}

QAction* MainWindow::AddTool(JobKind kind, const char* name, const char* caption, const char* icon,
                             const char* shortcut) {
    auto* tool = new QAction(lumarin::qt::ToolIcon(icon), caption, this);
    tool->setObjectName(name);
    tool->setShortcut(QKeySequence(shortcut));
    QObject::connect(tool, &QAction::triggered, this, [this, kind, tool] { startJob(kind, *tool); });
    return tool;
}

std::int32_t MainWindow::SelectedListing() const { return page_->SelectedListing(); }

/// The photo window asks for the listing when it is activated.
void MainWindow::OpenInPhotos(std::int32_t listing) {
    wanted_ = listing;
    if (photos_->isEnabled()) return photos_->trigger();
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == "frmLumarin" && window->isVisible()) window->activateWindow();
}

void* MainWindow::NativeWindow() const { return const_cast<QWidget*>(static_cast<const QWidget*>(this)); }

void MainWindow::Prog(int first, int second) {
    if (first != PhotosFirst || second != PhotosSecond) return;
    Refresh();
    statusBar()->showMessage("The photos were sent.");
}

void MainWindow::Refresh() {
    try {
        page_->ShowOverview(ReadOverview(queries_, user_));
        statusBar()->showMessage("Ready");
    } catch (const std::exception& error) {
        statusBar()->showMessage(QString("The listings could not be read: ") + error.what());
    }
}

void MainWindow::closeEvent(QCloseEvent* event) {
    closing();
    event->accept();
}

}  // namespace host
