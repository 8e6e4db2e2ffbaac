#include "platform/qt/FileChooser.h"

#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QPointer>
#include <QScreen>
#include <QStandardPaths>
#include <QTimer>
#include <QTreeView>

#include "base/Text.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/PictureModel.h"
#include "platform/qt/PreviewPane.h"

namespace lumarin::qt {

namespace {

constexpr QSize DialogSize(1080, 520);
constexpr QSize FrameRoom(16, 48);
constexpr QSize CellRoom(16, 34);
constexpr int MostLevels = 64;

QString Patterns(const std::string& patterns) {
    QStringList both;
    for (const std::string& pattern : text::Split(patterns, ';')) {
        const QString one = pattern == "*.*" ? QStringLiteral("*") : ToQt(pattern);
        both << one.toLower();
        if (one.toUpper() != one.toLower()) both << one.toUpper();
    }
    return both.join(' ');
}

/// "pdf" for "PDF|*.pdf"; empty where the filter's first patterns name no ending.
QString DefaultSuffix(const std::string& filter) {
    const auto parts = text::Split(filter, '|');
    if (parts.size() < 2) return {};
    const QString suffix = QFileInfo(ToQt(text::Split(parts[1], ';').front())).suffix();
    return suffix == "*" ? QString() : suffix;
}

/// A list of suggestions takes the click that closes it. A person who has typed a folder and clicks on Open,
/// or on a file, means that.
class ClickPassesOn final : public QObject {
public:
    explicit ClickPassesOn(QFileDialog& dialog)
        : QObject(&dialog), shown_(dialog.findChild<QListView*>("listView")) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* list = qobject_cast<QWidget*>(watched);
        if (event->type() != QEvent::MouseButtonPress || list == nullptr) return false;
        const auto& press = static_cast<const QMouseEvent&>(*event);
        if (press.button() != Qt::LeftButton || list->rect().contains(press.position().toPoint()))
            return false;
        // A folder above, selected while it was typed, would be taken for what is typed now.
        if (shown_ != nullptr) shown_->clearSelection();
        list->hide();
        // When the list has really gone.
        QTimer::singleShot(0, this, [at = press.globalPosition()] { Click(at); });
        return true;
    }

private:
    static void Click(QPointF at) {
        const QPointer<QWidget> target = QApplication::widgetAt(at.toPoint());
        for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            if (target == nullptr) return;
            const bool down = type == QEvent::MouseButtonPress;
            QMouseEvent click(type, target->mapFromGlobal(at), at, Qt::LeftButton,
                              down ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
            QApplication::sendEvent(target, &click);
        }
    }

    QListView* shown_;
};

void LetClicksPass(QFileDialog& dialog) {
    auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
    if (name != nullptr && name->completer() != nullptr)
        name->completer()->popup()->installEventFilter(new ClickPassesOn(dialog));
}

/// Pictures in a grid, as in an album.
void ShowThumbnails(QFileDialog& dialog) {
    dialog.setProxyModel(new PictureModel(dialog));
    dialog.setViewMode(QFileDialog::List);
    auto* list = dialog.findChild<QListView*>("listView");
    if (list == nullptr) return;
    list->setViewMode(QListView::IconMode);
    list->setMovement(QListView::Static);
    list->setResizeMode(QListView::Adjust);
    list->setIconSize(PictureModel::ThumbnailSize);
    list->setGridSize(PictureModel::ThumbnailSize + CellRoom);
    list->setUniformItemSizes(true);
    list->setTextElideMode(Qt::ElideMiddle);
}

/// The folder, or as much of its path as is there: a card may have been taken out.
QString StartFolder(const FileDialog& dialog) {
    if (dialog.folder.empty())
        return dialog.preview ? QStandardPaths::writableLocation(QStandardPaths::PicturesLocation)
                              : QString();
    QDir folder(ToQt(dialog.folder));
    for (int up = 0; !folder.exists() && up < MostLevels; ++up)
        folder.setPath(QFileInfo(folder.path()).path());
    return folder.path();
}

void AddPreview(QFileDialog& dialog) {
    auto* layout = qobject_cast<QGridLayout*>(dialog.layout());
    if (layout == nullptr) return;
    auto* pane = new PreviewPane(&dialog);
    layout->addWidget(pane, 0, layout->columnCount(), layout->rowCount(), 1);
    QObject::connect(&dialog, &QFileDialog::currentChanged, pane,
                     [pane](const QString& path) { pane->ShowFile(path); });
    if (auto* list = dialog.findChild<QTreeView*>())
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    dialog.resize(DialogSize.boundedTo(dialog.screen()->availableSize() - FrameRoom));
}

/// Of these lists the labels beside them say what they are, to the eye alone.
void NameLists(QFileDialog& dialog) {
    for (const char* subject : {"lookIn", "fileType"}) {
        const QString name = subject;
        auto* list = dialog.findChild<QComboBox*>(name + "Combo");
        const auto* label = dialog.findChild<QLabel*>(name + "Label");
        if (list != nullptr && label != nullptr)
            list->setAccessibleName(label->text().remove('&').remove(':'));
    }
}

std::vector<std::string> Run(QFileDialog& chooser) {
    NameLists(chooser);
    std::vector<std::string> paths;
    if (chooser.exec() == QDialog::Accepted)
        for (const QString& path : chooser.selectedFiles()) paths.push_back(PathFromQt(path));
    return paths;
}

}  // namespace

QStringList NameFilters(const std::string& pairs) {
    QStringList filters;
    const auto parts = text::Split(pairs, '|');
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2)
        filters << ToQt(parts[i]) + " (" + Patterns(parts[i + 1]) + ")";
    return filters;
}

std::vector<std::string> RunFileDialog(const FileDialog& dialog, QWidget* owner) {
    QFileDialog chooser(owner, ToQt(dialog.title), StartFolder(dialog));
    chooser.setObjectName("fileDialog");
    chooser.setFileMode(dialog.several ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    if (dialog.preview) chooser.setOption(QFileDialog::DontUseNativeDialog);
    chooser.setOption(QFileDialog::HideNameFilterDetails);
    chooser.setNameFilters(NameFilters(dialog.filter));
    if (dialog.preview) {
        ShowThumbnails(chooser);
        LetClicksPass(chooser);
        AddPreview(chooser);
    }
    return Run(chooser);
}

std::string RunSaveDialog(const SaveDialog& dialog, QWidget* owner) {
    QFileDialog chooser(owner, ToQt(dialog.title), ToQt(dialog.folder));
    chooser.setObjectName("fileDialog");
    chooser.setAcceptMode(QFileDialog::AcceptSave);
    chooser.setFileMode(QFileDialog::AnyFile);
    chooser.setOption(QFileDialog::HideNameFilterDetails);
    chooser.setNameFilters(NameFilters(dialog.filter));
    chooser.setDefaultSuffix(DefaultSuffix(dialog.filter));
    chooser.selectFile(ToQt(dialog.name));
    const std::vector<std::string> paths = Run(chooser);
    return paths.empty() ? std::string() : paths.front();
}

}  // namespace lumarin::qt
