// What a user makes of a window is there again when it is opened again.
#include <QHeaderView>
#include <QScreen>
#include <QSplitter>
#include <QTreeView>
#include <QWindow>

#include "entry/UserWindows.h"
#include "platform_qt/EveryKindForm.h"
#include "support/EveryWindow.h"

namespace lumarin::testing {

class UserLayout : public ::testing::Test {
protected:
    UserLayout() {
        link.Set(host);
        desktop.SetWindowMemory(&memory);
    }

    void Open() {
        forms = windows.Make();
        auto& photos = dynamic_cast<frmLumarin&>(*forms.front());
        photos.Load();
        for (const char* column : {"One", "Other", "Last"}) photos.RecList.AddColumn(column, 1200);
        photos.Show(nullptr);
        window = static_cast<QWidget*>(photos.NativeWindow());
        splitter = window->findChild<QSplitter*>("splitter");
        header = window->findChild<QTreeView*>("RecList")->header();
        QTest::qWait(1);
    }
    void Close() {
        EXPECT_TRUE(forms.front()->Unload());
        forms.clear();
        QTest::qWait(1);
    }
    /// With the button held, as the screen reports it.
    void Drag(QWidget& widget, QPoint from, QPoint by) {
        QWindow* screen = window->windowHandle();
        from = widget.mapTo(window, from);
        QTest::mouseMove(screen, from);
        QTest::mousePress(screen, Qt::LeftButton, {}, from);
        QTest::mouseMove(screen, from + by / 2);
        QTest::mouseMove(screen, from + by);
        QTest::mouseRelease(screen, Qt::LeftButton, {}, from + by);
    }

    FakeHost host;
    HostLink link;
    const UserWindows memory{link};
    qt::QtDesktop desktop;
    EveryWindow windows{desktop};
    std::vector<std::unique_ptr<Form>> forms;
    QWidget* window = nullptr;
    QSplitter* splitter = nullptr;
    QHeaderView* header = nullptr;
};

TEST_F(UserLayout, WindowOpenedAgain_IsAsTheUserLeftIt) {
    Open();
    Close();
    EXPECT_EQ(memory.Recall("frmLumarin"), "") << "nobody has made anything of it";

    Open();
    window->resize(window->width(), window->height() - 40);
    Drag(*splitter->handle(1), splitter->handle(1)->rect().center(), {-12, 0});
    Drag(*header->viewport(), {header->sectionSize(0) - 1, header->height() / 2}, {30, 0});
    const auto looks = [&] {
        return std::tuple(window->size(), splitter->sizes(), header->sectionSize(0), header->sectionSize(1));
    };
    const auto left = looks();
    EXPECT_EQ(header->sectionSize(0), 110);
    Close();
    Open();
    EXPECT_EQ(looks(), left);
    Close();
}

TEST_F(UserLayout, SizeThatTheCodeNames_YieldsToTheUsers) {
    QSize left;
    for (const int more : {0, -40, 0}) {
        const auto made = windows.Make();
        auto& crop = dynamic_cast<frmPhotoCrop&>(*made[1]);
        crop.SetPhotoSize("480,300,35,35000");
        crop.Show(nullptr);
        window = static_cast<QWidget*>(crop.NativeWindow());
        QTest::qWait(1);
        EXPECT_EQ(left.isEmpty() ? window->size() : left, window->size());
        window->resize(window->width() + more, window->height());
        left = window->size();
        crop.Hide();
    }
}

TEST_F(UserLayout, KeptTextIsFromElsewhere_IsTakenAsFarAsItFits) {
    for (const char* text : {"size=30000,30000;splitter=1;RecList=5", "size=0,0;splitter=x,;RecList=,;=;",
                             "size=-5,7;RecList=99999999999,1,1;splitter=0,0", "maximised=1;size=1"}) {
        memory.Keep("frmLumarin", text);
        Open();
        EXPECT_TRUE(window->screen()->availableSize().expandedTo(window->minimumSizeHint()).width() >=
                    window->width())
            << text;
        EXPECT_EQ(header->sectionSize(0), 80) << text;
        EXPECT_GT(splitter->sizes()[0], 0) << text;
        Close();
    }
}

}  // namespace lumarin::testing
