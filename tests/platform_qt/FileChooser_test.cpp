#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QtTest/QTest>

#include "platform/qt/FileChooser.h"
#include "platform/qt/PreviewPane.h"
#include "platform/qt/QtDesktop.h"
#include "support/TemporaryFolder.h"

namespace lumarin::testing {

TEST(NameFilters, PairsOfCaptionAndPatterns_MatchBothCases) {
    EXPECT_EQ(
        qt::NameFilters("JPEG - JFIF Compliant (*.jpg,*.jif)|*.jpg;*.JIF|All (*.*)|*.*"),
        (QStringList{"JPEG - JFIF Compliant (*.jpg,*.jif) (*.jpg *.JPG *.jif *.JIF)", "All (*.*) (*)"}));
    EXPECT_EQ(qt::NameFilters("caption without patterns"), QStringList());
}

TEST(ChosenText, NoneOneOrSeveralFiles_IsTheTextOfThePort) {
    EXPECT_EQ(qt::ChosenText({}), "");
    EXPECT_EQ(qt::ChosenText({"/photos/my house.jpg"}), "/photos/my house.jpg");
    EXPECT_EQ(qt::ChosenText({"/photos/a.jpg", "/photos/b.jpg"}), std::string("/photos\0a.jpg\0b.jpg", 19));
}

class FileDialogTest : public ::testing::TestWithParam<bool> {
protected:
    FileDialogTest() {
        for (const char* name : {"a.JPG", "b.jpg", "c.txt"}) {
            QFile file(QString::fromStdString(folder.Path() + name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        }
        dialog.folder = folder.Path();
        dialog.preview = GetParam();
    }
    /// Runs the dialog; `act` plays the user in it.
    std::string Choose(std::function<void(QFileDialog&)> act) {
        QTimer::singleShot(0, qApp, [act] {
            auto* open = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(open, nullptr);
            act(*open);
        });
        return desktop.ChooseFiles(dialog, nullptr);
    }
    static void Accept(QFileDialog& open, const QString& typed) {
        open.findChild<QLineEdit*>("fileNameEdit")->setText(typed);
        static_cast<QDialog&>(open).accept();
    }

    const TemporaryFolder folder;
    qt::QtDesktop desktop;
    FileDialog dialog{.title = "Import Photo", .filter = "JPEG|*.jpg|All|*.*", .folder = {}, .several = true};
};

TEST_P(FileDialogTest, User_ChoosesOneSeveralOrNone_GetsTheText) {
    EXPECT_EQ(Choose([](QFileDialog& open) { Accept(open, "b.jpg"); }), folder.Path() + "b.jpg");
    std::string both = folder.Path();
    both.back() = '\0';  // the separator after the folder
    EXPECT_EQ(Choose([](QFileDialog& open) { Accept(open, "\"a.JPG\" \"b.jpg\""); }),
              both + std::string("a.JPG\0b.jpg", 11));
    EXPECT_EQ(Choose([](QFileDialog& open) {
                  EXPECT_EQ(open.windowTitle(), "Import Photo");
                  EXPECT_EQ(open.findChild<QWidget*>("previewPixels") != nullptr, GetParam());
                  open.reject();
              }),
              "");
}

INSTANTIATE_TEST_SUITE_P(Preview, FileDialogTest, ::testing::Bool(),
                         [](const auto& with) { return with.param ? "With" : "Without"; });

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
