#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QWindow>

#include <filesystem>

#include "platform/qt/FileChooser.h"
#include "platform/qt/PreviewPane.h"
#include "support/TemporaryFolder.h"

namespace lumarin::testing {

TEST(FileDialog, PicturesInATypedFolder_AreShownAfterOneClickAndAsThumbnails) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.Path() + "album");
    QImage image(400, 300, QImage::Format_RGB32);
    image.fill(Qt::green);
    image.save(QString::fromStdString(folder.Path() + "album/green.png"));
    int looks = 0, clicks = 0;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) return;
        auto* list = dialog->findChild<QListView*>("listView");
        auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
        ++looks;
        const QModelIndex only = list->model()->index(0, 0, list->rootIndex());
        const QImage seen = only.data(Qt::DecorationRole).value<QIcon>().pixmap(128, 96).toImage();
        if (looks == 1)
            EXPECT_EQ(dialog->directory().path(), QDir(QString::fromStdString(folder.Path())).path());
        if (looks > 2000) {
            dialog->reject();
            ADD_FAILURE() << "the pictures were not seen in " << dialog->directory().path().toStdString()
                          << " with \"" << name->text().toStdString() << "\" after " << clicks << " clicks";
        } else if (name->completer()->popup()->isVisible() && name->text().endsWith("album")) {
            ++clicks;
            auto* open = dialog->findChild<QDialogButtonBox*>("buttonBox")->button(QDialogButtonBox::Open);
            QTest::mouseClick(dialog->windowHandle(), Qt::LeftButton, {},
                              open->mapTo(dialog, open->rect().center()));
        } else if (dialog->directory().dirName() == "album" && !seen.isNull() &&
                   seen.pixelColor(seen.rect().center()) == QColor(Qt::green)) {
            dialog->reject();
        } else if (dialog->directory().dirName() != "album" && clicks == 0 && looks % 50 == 1) {
            // The folders to suggest may not have been read yet.
            name->setFocus();
            name->clear();
            QTest::keyClicks(name, QDir(QString::fromStdString(folder.Path() + "album")).path());
        }
    });
    look.start(20);
    const FileDialog dialog{.folder = folder.Path() + "gone/deep", .several = true, .preview = true};
    EXPECT_TRUE(qt::RunFileDialog(dialog, nullptr).empty());
    EXPECT_EQ(clicks, 1);
}

}  // namespace lumarin::testing
