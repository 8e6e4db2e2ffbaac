#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>

#include <filesystem>

#include "platform/qt/FileChooser.h"
#include "platform/qt/PreviewPane.h"
#include "support/TemporaryFolder.h"

namespace lumarin::testing {

TEST(NameFilters, PairsOfCaptionAndPatterns_MatchBothCases) {
    EXPECT_EQ(
        qt::NameFilters("JPEG - JFIF Compliant (*.jpg,*.jif)|*.jpg;*.JIF|All (*.*)|*.*"),
        (QStringList{"JPEG - JFIF Compliant (*.jpg,*.jif) (*.jpg *.JPG *.jif *.JIF)", "All (*.*) (*)"}));
    EXPECT_EQ(qt::NameFilters("caption without patterns"), QStringList());
}

TEST(PreviewPane, FileUnderTheCursor_ShowsItsSizesOrNone) {
    const TemporaryFolder folder;
    const QString file = QString::fromStdString(folder.Path() + "large.png");
    QImage image(1600, 900, QImage::Format_RGB32);
    image.fill(Qt::green);
    image.save(file);
    qt::PreviewPane pane;
    const auto text = [&] { return pane.findChild<QLabel*>("previewPixels")->text(); };
    EXPECT_EQ(text(), "No preview");
    pane.ShowFile(file);
    EXPECT_EQ(text(), QStringLiteral(u"1600 × 900 pixels"));
    EXPECT_TRUE(pane.findChild<QLabel*>("previewBytes")->text().endsWith(" bytes"));
    pane.ShowFile(QString::fromStdString(folder.Path()));
    EXPECT_EQ(text(), "No preview");
}

}  // namespace lumarin::testing
