#include "platform/qt/FileChooser.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QTreeView>

#include "base/Text.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/PreviewPane.h"

namespace lumarin::qt {

namespace {

constexpr QSize DialogSize(1080, 520);

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

void AddPreview(QFileDialog& dialog) {
    auto* layout = qobject_cast<QGridLayout*>(dialog.layout());
    if (layout == nullptr) return;
    auto* pane = new PreviewPane(&dialog);
    layout->addWidget(pane, 0, layout->columnCount(), layout->rowCount(), 1);
    QObject::connect(&dialog, &QFileDialog::currentChanged, pane,
                     [pane](const QString& path) { pane->ShowFile(path); });
    if (auto* list = dialog.findChild<QTreeView*>())
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    dialog.resize(DialogSize);
}

std::vector<std::string> Run(QFileDialog& chooser) {
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
    QFileDialog chooser(owner, ToQt(dialog.title), ToQt(dialog.folder));
    chooser.setObjectName("fileDialog");
    chooser.setFileMode(dialog.several ? QFileDialog::ExistingFiles : QFileDialog::ExistingFile);
    if (dialog.preview) chooser.setOption(QFileDialog::DontUseNativeDialog);
    chooser.setOption(QFileDialog::HideNameFilterDetails);
    chooser.setNameFilters(NameFilters(dialog.filter));
    if (dialog.preview) AddPreview(chooser);
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
