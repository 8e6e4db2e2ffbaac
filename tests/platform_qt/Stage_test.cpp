// Pictures, frames and the box over them: mouse, keys, drops and what is painted.
#include <QDropEvent>
#include <QImage>
#include <QMimeData>

#include "base/Files.h"
#include "base/Text.h"
#include "platform/qt/Conversions.h"
#include "platform/qt/widgets/PictureWidget.h"
#include "platform/qt/widgets/ShapeWidget.h"
#include "platform_qt/EveryKindForm.h"

namespace lumarin::testing {

namespace {

PicturePtr PlainPicture(int width, int height, std::uint8_t grey) {
    const auto bytes = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3;
    return std::make_shared<Picture>(Picture{width, height, std::vector<std::uint8_t>(bytes, grey)});
}

void Drop(QWidget& widget, const QMimeData& data) {
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &enter);
    QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&widget, &drop);
}

void Drop(QWidget& widget, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    Drop(widget, data);
}

}  // namespace

class StageTest : public EveryKindTest {
protected:
    /// A picture of 60 x 40 pixels at (50, 30) of the stage.
    void ShowStage() {
        Show();
        form->picOnStage.Move({50 * 15, 30 * 15, 60 * 15, 40 * 15});
        form->picOnStage.SetImage(PlainPicture(60, 40, 200));
    }
};

TEST_F(StageTest, Mouse_OnPicture_CarriesItsTwipsAndStaysWithIt) {
    QString events;
    const auto note = [&](const char* what) {
        return [&events, what](const Mouse& mouse) {
            events += QString("%1 %2@").arg(what).arg(static_cast<int>(mouse.button)) +
                      QString("%1,%2 ").arg(mouse.x).arg(mouse.y);
        };
    };
    form->picOnStage.MouseDown = note("down");
    form->picOnStage.MouseMove = note("move");
    form->picOnStage.MouseUp = note("up");
    ShowStage();
    form->shpBox.Move({0, 0, 1500, 1500});  // lies above it and takes nothing
    QWidget& stage = Widget("fraStage");
    const QPoint onPicture = stage.mapTo(&Window(), QPoint(52, 33));
    const QPoint besides = stage.mapTo(&Window(), QPoint(10, 20));
    QWindow* window = Window().windowHandle();
    QTest::mouseMove(window, besides);
    events.clear();
    QTest::mouseMove(window, onPicture);
    QTest::mousePress(window, Qt::LeftButton, {}, onPicture);
    QTest::mouseMove(window, besides);
    QTest::mouseRelease(window, Qt::LeftButton, {}, besides);
    EXPECT_EQ(events, "move 0@30,45 down 1@30,45 move 1@-600,-150 up 1@-600,-150 ");
    EXPECT_TRUE(stage.hasFocus());
}

TEST_F(StageTest, Frame_Keys_GoToItAndOnOnlyWhenNotUsed) {
    std::vector<Key> keys;
    form->fraStage.KeyPressed = [&](const KeyDown& key, bool& used) {
        keys.push_back(key.key);
        used = key.shift;
    };
    Show();
    for (const auto modifier : {Qt::NoModifier, Qt::ShiftModifier}) {
        QKeyEvent left(QEvent::KeyPress, Qt::Key_Left, modifier);
        QApplication::sendEvent(&Widget("fraStage"), &left);
        EXPECT_EQ(left.isAccepted(), modifier == Qt::ShiftModifier);
    }
    EXPECT_EQ(keys, (std::vector{Key::Left, Key::Left}));
}

TEST_F(StageTest, Lens_EnlargesContentsAndMouse_AndTonesAreShownOnly) {
    double x = 0, factor = 0;
    form->picOnStage.MouseMove = [&](const Mouse& mouse) { x = mouse.x; };
    form->fraStage.Zoomed = [&](const ZoomStep& step) { factor = step.factor * 1000 + step.x; };
    ShowStage();
    form->picOnStage.Move({757.5, 450, 900, 600});
    Window().resize(900, 700);
    Settle();
    EXPECT_EQ(form->picOnStage.Left(), 757.5) << "what the code says is not rounded to pixels";
    form->picOnStage.Move({750, 450, 900, 600});
    form->shpBox.Move({80 * 15, 30 * 15, 30 * 15, 40 * 15});
    form->fraStage.SetLens({2, -40 * 15, -20 * 15});
    EXPECT_EQ(Widget("picOnStage").geometry(), QRect(60, 40, 120, 80));
    EXPECT_EQ(Widget<qt::ShapeWidget>("shpBox").Box(), QRect(120, 40, 60, 80));
    QTest::mouseMove(Window().windowHandle(), Widget("picOnStage").mapTo(&Window(), QPoint(20, 10)));
    EXPECT_EQ(x, 150);
    QWheelEvent wheel({80, 50}, {}, {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&Widget("fraStage"), &wheel);
    EXPECT_NEAR(factor, 1250 + 60 * 15, 1e-6) << "at the place in its contents";
    form->shpBox.Move({});
    form->picOnStage.SetImage(PlainPicture(120, 80, 200));
    ToneTable tones{};
    tones[200] = 33;
    form->picOnStage.SetTones(tones);
    EXPECT_EQ(Widget("fraStage").grab().toImage().pixelColor(100, 60), QColor(33, 33, 33));
}

TEST_F(StageTest, Picture_InOtherProportions_IsSeenWholeInTheMiddle) {
    Show();
    qt::PictureWidget picture;
    picture.resize(300, 100);
    picture.SetPicture(PlainPicture(200, 100, 10));
    EXPECT_EQ(picture.PictureRect(), QRect(50, 0, 200, 100));
    picture.resize(100, 200);
    EXPECT_EQ(picture.PictureRect(), QRect(0, 75, 100, 50));
    const QImage seen = picture.grab().toImage();
    EXPECT_EQ(seen.pixelColor(50, 100), QColor(10, 10, 10));
    EXPECT_NE(seen.pixelColor(50, 20), QColor(10, 10, 10));
}

TEST_F(StageTest, Shape_OverPicture_DimsOnlyThePictureOutsideOfIt) {
    ShowStage();
    const QColor besidesBefore = Widget("fraStage").grab().toImage().pixelColor(20, 50);
    // From the picture's middle to beyond the stage.
    form->shpBox.Move({80 * 15, 10 * 15, 400 * 15, 400 * 15});
    const QImage seen = Widget("fraStage").grab().toImage();
    EXPECT_EQ(seen.pixelColor(90, 50), QColor(200, 200, 200)) << "inside";
    EXPECT_LT(seen.pixelColor(60, 50).red(), 120) << "outside, on the picture";
    EXPECT_EQ(seen.pixelColor(20, 50), besidesBefore) << "outside, beside the picture";
    EXPECT_EQ(seen.pixelColor(150, 40), QColor(Qt::white)) << "inside, beside the picture";
    EXPECT_GT(seen.pixelColor(80, 20).red(), 200) << "the box's edge";
    EXPECT_EQ(Widget<qt::ShapeWidget>("shpBox").Box(), QRect(80, 10, 400, 400));
}

TEST_F(StageTest, Drop_FilesAndOtherThings_AreToldApart) {
    const QUrl file = QUrl::fromLocalFile("/photos/a b.jpg"), page("https://example.com/x.jpg");
    std::vector<std::string> dropped;
    int others = 0;
    form->picPhoto.OtherDropped = [&] { ++others; };
    form->picPhoto.FilesDropped = [&](const std::vector<std::string>& paths) { dropped = paths; };
    Show();
    EXPECT_FALSE(Widget("picPhoto").acceptDrops());
    form->picPhoto.SetAcceptsFiles(true);
    EXPECT_TRUE(Widget("picPhoto").acceptDrops());
    Drop(Widget("picPhoto"), {page});
    EXPECT_EQ(others, 0) << "the other program still waits";
    QCoreApplication::processEvents();
    EXPECT_EQ(others, 1);
    Drop(Widget("picPhoto"), {file, page, file});
    QCoreApplication::processEvents();
    const std::string path = files::FixedPath("\\photos\\a b.jpg");
    EXPECT_EQ(dropped, (std::vector<std::string>{path, path}));
}

TEST_F(StageTest, Drop_PictureFromABrowser_ComesAsAFileForAsLongAsItIsTaken) {
    const QUrl page("https://example.com/in/kitchen%3A1.jpg?w=2");
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    const std::tuple<const char*, QByteArray, QByteArray, bool, const char*, QByteArray> cases[] = {
        {"bytes of its file", "image/jpeg", "JPG", false, "kitchen1.jpg", "JPG"},
        {"unnamed bytes", "application/octet-stream", "RAW", false, "kitchen1.jpg", "RAW"},
        {"a decoded picture", "", "", true, "kitchen1.jpg", "\x89PNG"},
        {"in the address", "text/uri-list", "data:image/png;base64,UE5H", false, "picture", "PNG"},
        {"of a file manager", "x-special/gnome-copied-files", "copy\nfile:///a%20b.jpg", false, "a b.jpg",
         ""},
    };
    std::string path, bytes;
    form->picPhoto.FilesDropped = [&](const std::vector<std::string>& paths) {
        path = paths.at(0);
        if (files::FileExists(path)) bytes = files::ReadAll(path);
    };
    form->picPhoto.SetAcceptsFiles(true);
    Show();
    for (const auto& [what, format, data, decoded, name, start] : cases) {
        SCOPED_TRACE(what);
        QMimeData dropped;
        if (!format.startsWith("x-")) dropped.setUrls({page});
        if (!format.isEmpty()) dropped.setData(format, data);
        if (decoded) dropped.setImageData(image);
        bytes.clear();
        Drop(Widget("picPhoto"), dropped);
        QCoreApplication::processEvents();
        EXPECT_EQ(text::AfterLastSeparator(path), name);
        EXPECT_TRUE(bytes.starts_with(start.toStdString())) << bytes;
        EXPECT_FALSE(files::FileExists(path));
    }
}

TEST(Conversions, Picture_ThereAndBack_KeepsPixelsWithoutPadding) {
    // 5 pixels of 3 bytes are not a multiple of 4, as the toolkit's own rows are.
    Picture picture{5, 2, {}};
    for (int i = 0; i < 30; ++i) picture.pixels.push_back(static_cast<std::uint8_t>(i * 8));
    EXPECT_EQ(qt::ToPicture(qt::ToImage(std::make_shared<Picture>(picture)).copy()).pixels, picture.pixels);
    QImage glass(1, 1, QImage::Format_ARGB32);
    glass.fill(QColor(0, 0, 0, 128));
    EXPECT_NEAR(qt::ToPicture(glass).pixels[0], 127, 1) << "alpha is laid on white";
    EXPECT_TRUE(qt::ToImage(std::make_shared<Picture>(Picture{5, 2, {1, 2, 3}})).isNull()) << "too few bytes";
}

}  // namespace lumarin::testing
