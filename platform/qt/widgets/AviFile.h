#pragma once

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

#include <vector>

namespace lumarin::qt {

/// The frames of an AVI film whose first video stream is a row of JPEG pictures. The bytes come from
/// outside: whatever they are, reading never fails, it only finds fewer frames.
class AviFile {
public:
    AviFile() = default;
    /// Frames are found at once and decoded when they are asked for.
    explicit AviFile(QByteArray bytes);
    /// No frames when the file cannot be read.
    static AviFile Open(const QString& path);

    int FrameCount() const { return static_cast<int>(frames_.size()); }
    /// Null for a frame that cannot be decoded.
    QImage Frame(int index) const;
    /// Between 10 and 2000.
    int FrameMilliseconds() const { return frameMilliseconds_; }
    /// Pixels, as the first frame has them; empty without frames.
    QSize FrameSize() const;

private:
    struct Span {
        qsizetype start = 0;
        qsizetype length = 0;
    };

    quint32 Number(qsizetype at) const;
    QByteArrayView Name(qsizetype at) const;
    template <class Visit>
    void ForEachChunk(Span inside, Visit visit) const;
    void ReadList(Span list, int depth);
    void ReadHeader(Span chunk);
    void ReadStream(Span chunk);
    void ReadFrame(QByteArrayView name, Span chunk);

    QByteArray bytes_;
    std::vector<Span> frames_;
    int frameMilliseconds_ = 100;
    int streams_ = 0;
    int videoStream_ = -1;
};

}  // namespace lumarin::qt
