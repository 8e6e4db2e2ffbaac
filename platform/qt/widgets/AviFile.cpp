#include "platform/qt/widgets/AviFile.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QtEndian>

#include <algorithm>

namespace lumarin::qt {

namespace {
constexpr qsizetype ChunkHead = 8;  ///< name and length
constexpr int DeepestList = 4;
constexpr int LargestSide = 4096;
constexpr qint64 LargestFile = 64 << 20;
}  // namespace

AviFile::AviFile(QByteArray bytes) : bytes_(std::move(bytes)) {
    ForEachChunk({0, bytes_.size()}, [this](QByteArrayView name, Span chunk) {
        if (name == "RIFF") ReadList(chunk, 0);
    });
}

AviFile AviFile::Open(const QString& path) {
    QFile file(path);
    if (file.size() > LargestFile || !file.open(QIODevice::ReadOnly)) return {};
    return AviFile(file.readAll());
}

QImage AviFile::Frame(int index) const {
    if (index < 0 || index >= FrameCount()) return {};
    const Span& span = frames_[static_cast<std::size_t>(index)];
    QByteArray jpeg = QByteArray::fromRawData(bytes_.constData() + span.start, span.length);
    QBuffer buffer(&jpeg);
    QImageReader reader(&buffer, "jpeg");
    const QSize size = reader.size();
    if (size.width() > LargestSide || size.height() > LargestSide) return {};
    return reader.read();
}

QSize AviFile::FrameSize() const { return Frame(0).size(); }

quint32 AviFile::Number(qsizetype at) const { return qFromLittleEndian<quint32>(bytes_.constData() + at); }

QByteArrayView AviFile::Name(qsizetype at) const { return QByteArrayView(bytes_).sliced(at, 4); }

/// Visits the chunks that begin inside a span; one that runs past its end is cut there.
template <class Visit>
void AviFile::ForEachChunk(Span inside, Visit visit) const {
    const qsizetype end = inside.start + inside.length;
    for (qsizetype at = inside.start; end - at >= ChunkHead;) {
        const qsizetype start = at + ChunkHead;
        const qsizetype length = static_cast<qsizetype>(std::min<qint64>(Number(at + 4), end - start));
        visit(Name(at), Span{start, length});
        at = start + length + length % 2;
    }
}

/// A list starts with the name of what it holds.
void AviFile::ReadList(Span list, int depth) {
    if (list.length < 4 || depth > DeepestList) return;
    ForEachChunk({list.start + 4, list.length - 4}, [&](QByteArrayView name, Span chunk) {
        if (name == "LIST") ReadList(chunk, depth + 1);
        if (name == "avih") ReadHeader(chunk);
        if (name == "strh") ReadStream(chunk);
        ReadFrame(name, chunk);
    });
}

void AviFile::ReadHeader(Span chunk) {
    if (chunk.length < 4) return;
    frameMilliseconds_ = static_cast<int>(std::clamp<quint32>(Number(chunk.start) / 1000, 10, 2000));
}

void AviFile::ReadStream(Span chunk) {
    if (videoStream_ < 0 && chunk.length >= 4 && Name(chunk.start) == "vids") videoStream_ = streams_;
    ++streams_;
}

/// Frames are named after their stream: "00dc".
void AviFile::ReadFrame(QByteArrayView name, Span chunk) {
    if (chunk.length == 0 || (name.sliced(2) != "dc" && name.sliced(2) != "db")) return;
    const int stream = (name[0] - '0') * 10 + (name[1] - '0');
    if (stream == videoStream_) frames_.push_back(chunk);
}

}  // namespace lumarin::qt
