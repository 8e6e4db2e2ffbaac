#include "platform/qt/QtDesktop.h"

#include <QApplication>
#include <QClipboard>
#include <QCursor>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>
#include <QSaveFile>
#include <QScreen>
#include <QUrl>

#include <algorithm>
#include <optional>
#include <utility>

#include "base/Error.h"
#include "forms/ToolBar.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/FileChooser.h"
#include "platform/qt/FormWindow.h"
#include "platform/qt/MessageDialog.h"
#include "platform/qt/Owner.h"

namespace lumarin::qt {

namespace {

constexpr int LongestEventTurn = 10;  // milliseconds
constexpr int WaitForCommand = 50;
constexpr int LongestWaitToBeSeen = 250;

QWidget* WidgetOf(const OwnerWindow* owner) {
    return owner != nullptr ? static_cast<QWidget*>(owner->NativeWindow()) : nullptr;
}

QWidget* OwnerOrActive(const Form* owner) {
    QWidget* widget = WidgetOf(owner);
    return widget != nullptr && widget->isVisible() ? widget : QApplication::activeWindow();
}

/// The web address that a browser's address line would make of this; nothing for other schemes.
std::optional<QUrl> WebAddress(QString address) {
    static const QRegularExpression scheme(
        QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*:(?![0-9]+(?:[/\\\\?#]|$))"));
    address = address.trimmed();
    if (!scheme.match(address).hasMatch()) address = "http://" + address.replace('\\', '/');
    const QUrl url(address, QUrl::TolerantMode);
    const bool isWeb = url.scheme() == "http" || url.scheme() == "https";
    return url.isValid() && isWeb && !url.host().isEmpty() ? std::optional(url) : std::nullopt;
}

}  // namespace

/// While one of these lives, events run inside a handler: nothing of a window may be destroyed.
class QtDesktop::Nested {
public:
    enum class Shows { Nothing, Dialog };

    Nested(QtDesktop& desktop, Shows shows)
        : desktop_(desktop), hidesPointer_(shows == Shows::Dialog && desktop.busyPointer_) {
        ++desktop_.nesting_;
        if (hidesPointer_)
            desktop_.SetPointer(Pointer::Default);  // a person who is asked is not kept waiting
        if (shows == Shows::Dialog) hostPause_.emplace(desktop_.HostOwner().host);
    }
    ~Nested() {
        if (hidesPointer_) desktop_.SetPointer(Pointer::Hourglass);
        if (--desktop_.nesting_ == 0) desktop_.destroy_.start();
    }
    Nested(const Nested&) = delete;
    Nested& operator=(const Nested&) = delete;

private:
    QtDesktop& desktop_;
    bool hidesPointer_;
    std::optional<platform::WindowPause> hostPause_;
};

QtDesktop::QtDesktop(WindowSizes sizes, System system) : sizes_(sizes), system_(std::move(system)) {
    destroy_.setSingleShot(true);
    destroy_.setInterval(0);
    QObject::connect(&destroy_, &QTimer::timeout, &destroy_, [this] { DestroyRetired(); });
}

QtDesktop::~QtDesktop() {
    retiredForms_.clear();
    windows_.clear();
}

/// A host's window that is of the toolkit after all is treated as such.
Owner QtDesktop::HostOwner() const {
    const platform::WindowNumber host = hostWindow_ ? hostWindow_() : 0;
    QWidget* widget = QWidget::find(host);
    return {widget, widget == nullptr ? host : 0};
}

Owner QtDesktop::OwnerOf(const OwnerWindow* owner) const {
    QWidget* widget = WidgetOf(owner);
    return hostWindow_ && (widget == nullptr || !widget->isVisible()) ? HostOwner() : Owner{widget};
}

FormWindow& QtDesktop::WindowOf(const Form& form) const {
    const auto found = windows_.find(&form);
    if (found == windows_.end())
        throw ApplicationError(form.Name(), "The window " + form.Name() + " is not loaded");
    return *found->second;
}

void QtDesktop::Load(Form& form) {
    if (!windows_.contains(&form))
        windows_.emplace(&form, std::make_unique<FormWindow>(form, sizes_, Memory()));
}

void QtDesktop::Show(Form& form, const OwnerWindow* owner) {
    FormWindow& window = WindowOf(form);
    window.Show(OwnerOf(owner), Qt::NonModal);
    unseen_ = window.Window().windowHandle();
}

void QtDesktop::ShowModal(Form& form, const OwnerWindow* owner) {
    FormWindow& window = WindowOf(form);
    const Nested nested(*this, Nested::Shows::Dialog);
    const bool ended = window.RunModal(OwnerOf(owner));
    // The program ends while the window waits: for its caller it is as if it had been hidden.
    if (!ended && !window.IsDetached()) form.Hide();
}

void QtDesktop::Hide(Form& form) { WindowOf(form).Hide(); }

void QtDesktop::Unload(Form& form) {
    const auto found = windows_.find(&form);
    if (found == windows_.end()) return;
    retiredWindows_.push_back(std::move(found->second));
    windows_.erase(found);
    retiredWindows_.back()->Detach();
    destroy_.start();
}

void QtDesktop::DestroyLater(std::unique_ptr<Form> form) {
    retiredForms_.push_back(std::move(form));
    destroy_.start();
}

void QtDesktop::DestroyRetired() {
    if (nesting_ > 0) return;  // the end of the nesting starts it again
    const auto finished = std::partition(retiredForms_.begin(), retiredForms_.end(),
                                         [](const auto& form) { return form->IsRunningCommand(); });
    const std::vector<std::unique_ptr<Form>> forms(std::make_move_iterator(finished),
                                                   std::make_move_iterator(retiredForms_.end()));
    retiredForms_.erase(finished, retiredForms_.end());
    if (!retiredForms_.empty()) QTimer::singleShot(WaitForCommand, &destroy_, [this] { DestroyRetired(); });
    std::exchange(retiredWindows_, {}).clear();
}

Answer QtDesktop::ShowMessage(const Message& message, const Form* owner) {
    const Nested nested(*this, Nested::Shows::Dialog);
    QWidget* widget = OwnerOrActive(owner);
    return RunMessageBox(message, widget != nullptr ? Owner{widget} : HostOwner());
}

std::vector<std::string> QtDesktop::ChooseFiles(const FileDialog& dialog, const Form* owner) {
    const Nested nested(*this, Nested::Shows::Dialog);
    return RunFileDialog(dialog, OwnerOrActive(owner));
}

std::string QtDesktop::ChooseFileToSave(const SaveDialog& dialog, const Form* owner) {
    const Nested nested(*this, Nested::Shows::Dialog);
    return RunSaveDialog(dialog, OwnerOrActive(owner));
}

void QtDesktop::OpenInBrowser(const std::string& address) {
    const std::optional<QUrl> url = WebAddress(ToQt(address));
    if (!url) throw ApplicationError("OpenInBrowser", "\"" + address + "\" is not the address of a web page");
    if (!QDesktopServices::openUrl(*url))
        throw ApplicationError("OpenInBrowser", "No browser of this computer opens \"" + address + "\"");
}

void QtDesktop::OpenDocument(const std::string& path) {
    const QFileInfo file(ToQt(path));
    if (!file.isFile()) throw FileError("open", path, "there is no such file");
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(file.absoluteFilePath())))
        throw FileError("open", path, "no program of this computer shows it");
}

void QtDesktop::PopupMenu(ToolBar& toolBar, const std::string& band) {
    auto* menu = WindowOf(toolBar.Owner()).Window().findChild<QMenu*>(ToQt(band));
    if (menu == nullptr || menu->isEmpty()) return;
    const Nested nested(*this, Nested::Shows::Dialog);
    menu->exec(MenuPlace().value_or(QCursor::pos()));
}

void QtDesktop::SetPointer(Pointer pointer) {
    const bool busy = pointer == Pointer::Hourglass;
    if (busy == std::exchange(busyPointer_, busy)) return;
    if (busy)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

Size QtDesktop::ScreenSize() const {
    const Rect room = ToTwips(QGuiApplication::primaryScreen()->availableGeometry());
    return {room.width, room.height};
}

double QtDesktop::PixelScale(const Form& form) const {
    const auto* window = static_cast<const QWidget*>(form.NativeWindow());
    return window != nullptr ? window->devicePixelRatioF() : 1.0;
}

void QtDesktop::ProcessPendingEvents() {
    const Nested nested(*this, Nested::Shows::Nothing);
    // Painting waits behind the events that ask for it, so one turn is not always enough.
    QCoreApplication::processEvents(QEventLoop::AllEvents, LongestEventTurn);
    // Whoever works on without a pause after showing a window would keep it blank: the system takes a moment
    // to show it.
    QElapsedTimer waited;
    waited.start();
    for (bool seen = unseen_ == nullptr; !seen && waited.elapsed() < LongestWaitToBeSeen;) {
        seen = unseen_ == nullptr || !unseen_->isVisible() || unseen_->isExposed();
        QCoreApplication::processEvents(QEventLoop::AllEvents, LongestEventTurn);
    }
    unseen_ = nullptr;
}

bool QtDesktop::ClipboardHasPicture() const {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data != nullptr && data->hasImage();
}

PicturePtr QtDesktop::ClipboardPicture() const {
    const QImage image = QGuiApplication::clipboard()->image();
    if (!image.isNull()) return std::make_shared<Picture>(ToPicture(image));
    return system_.clipboardPicture ? system_.clipboardPicture() : nullptr;
}

std::vector<std::string> QtDesktop::ClipboardFiles() const {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data == nullptr ? std::vector<std::string>() : FilesOf(*data);
}

void QtDesktop::SetClipboardText(const std::string& text) {
    QGuiApplication::clipboard()->setText(ToQt(text));
}

void QtDesktop::SetClipboardPicture(const Picture& picture) {
    QGuiApplication::clipboard()->setImage(ToImage(std::make_shared<Picture>(picture)));
}

void QtDesktop::ClearClipboard() { QGuiApplication::clipboard()->clear(); }

void QtDesktop::OpenHelp(const std::string& helpFile, int context) {
    const QFileInfo file(ToQt(helpFile));
    if (!file.isFile()) throw FileError("open the help file", helpFile, "there is no such file");
    if (system_.help != nullptr && system_.help->Shows(helpFile)) {
        const QWidget* owner = QApplication::activeWindow();
        system_.help->Open(PathFromQt(file.absoluteFilePath()), context,
                           owner != nullptr ? owner->winId() : 0);
        return;
    }
    QUrl page = QUrl::fromLocalFile(file.absoluteFilePath());
    page.setFragment(QString::number(context));
    // Some desktops drop the page's number from the address of a file: a page of one line leads there.
    const QString jump = QDir::temp().filePath(QStringLiteral("lumarin-help-%1.html").arg(context));
    const QString line = QStringLiteral("<meta http-equiv=\"refresh\" content=\"0; url=%1\">")
                             .arg(page.toString(QUrl::FullyEncoded));
    QSaveFile leading(jump);
    const bool written =
        leading.open(QIODevice::WriteOnly) && leading.write(line.toUtf8()) > 0 && leading.commit();
    if (!QDesktopServices::openUrl(written ? QUrl::fromLocalFile(jump) : page))
        throw FileError("open the help file", helpFile, "no program of this computer shows it");
}

}  // namespace lumarin::qt
