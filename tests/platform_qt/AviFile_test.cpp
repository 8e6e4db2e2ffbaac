#include <gtest/gtest.h>

#include <QBuffer>
#include <QtEndian>

#include <random>

#include "base/Files.h"
#include "platform/qt/widgets/AnimationWidget.h"
#include "platform_qt/EveryKindForm.h"
#include "support/TemporaryFolder.h"

namespace lumarin::testing {

namespace {

QByteArray Number(quint32 value) {
    QByteArray bytes(4, 0);
    qToLittleEndian(value, bytes.data());
    return bytes;
}

QByteArray Chunk(const QByteArray& name, const QByteArray& data) {
    return name + Number(static_cast<quint32>(data.size())) + data + QByteArray(data.size() % 2, '\0');
}

QByteArray Jpeg(QColor colour) {
    QImage image(32, 16, QImage::Format_RGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "JPEG");
    return bytes;
}

/// Sound before the picture, so that the film's frames are those of stream 1.
QByteArray Film() {
    const auto stream = [](const char* kind) {
        return Chunk("LIST", "strl" + Chunk("strh", kind + QByteArray(52, 0)));
    };
    const QByteArray header =
        "hdrl" + Chunk("avih", Number(40000) + QByteArray(52, 0)) + stream("auds") + stream("vids");
    const QByteArray movie = "movi" + Chunk("00wb", "sound") + Chunk("01dc", Jpeg(Qt::red)) +
                             Chunk("LIST", "rec " + Chunk("01dc", Jpeg(Qt::blue))) + Chunk("00dc", "other");
    return Chunk("RIFF", "AVI " + Chunk("LIST", header) + Chunk("LIST", movie));
}

}  // namespace

TEST(AviFile, Film_WithSoundAndNestedFrames_GivesItsPictures) {
    const qt::AviFile film(Film());
    ASSERT_EQ(film.FrameCount(), 2);
    EXPECT_EQ(film.FrameMilliseconds(), 40);
    EXPECT_EQ(film.FrameSize(), QSize(32, 16));
    EXPECT_GT(film.Frame(0).pixelColor(5, 5).red(), 240);
    EXPECT_GT(film.Frame(1).pixelColor(5, 5).blue(), 240);
    EXPECT_TRUE(film.Frame(2).isNull());
}

TEST(AviFile, DamagedBytes_OnlyLoseFrames) {
    const QByteArray whole = Film();
    std::mt19937 random(4711);
    const auto below = [&](qsizetype limit) { return qsizetype(random() % unsigned(limit)); };
    for (int round = 0; round < 2000; ++round) {
        QByteArray bytes = whole.left(round % 4 == 0 ? 1 + below(whole.size()) : whole.size());
        for (int change = 0; change < 4; ++change) bytes[below(bytes.size())] = static_cast<char>(random());
        const qt::AviFile film(bytes);
        for (int i = 0; i < film.FrameCount(); ++i) film.Frame(i);
        EXPECT_TRUE(film.FrameMilliseconds() >= 10 && film.FrameMilliseconds() <= 2000);
    }
    QByteArray nested = "AVI ";
    for (int depth = 0; depth < 3000; ++depth) nested = "AVI " + Chunk("LIST", nested);
    EXPECT_EQ(qt::AviFile(Chunk("RIFF", nested)).FrameCount(), 0);
}

TEST(AnimationWidget, Film_WhileVisible_PlaysRoundAndRound) {
    const TemporaryFolder folder;
    files::WriteWhole(folder.Path() + "film.avi", Film().toStdString());
    qt::AnimationWidget widget;
    widget.SetPlaying(true);
    widget.Open(QString::fromStdString(folder.Path() + "film.avi"));
    widget.show();
    EXPECT_TRUE(Becomes([&] { return widget.CurrentFrame() == 1; }));
    EXPECT_TRUE(Becomes([&] { return widget.CurrentFrame() == 0; }));
    widget.Open("no such file");
    EXPECT_EQ(widget.grab().toImage().pixelColor(5, 5), widget.palette().color(QPalette::Window));
}

}  // namespace lumarin::testing
