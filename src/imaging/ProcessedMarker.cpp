#include "imaging/ProcessedMarker.h"

#include "base/Files.h"

namespace lumarin {

namespace {

constexpr std::size_t MarkOffset = 24;  // the 25th byte
constexpr char MarkValue = 108;
constexpr std::string_view CommentText = "lumarin";
static_assert(CommentText.front() == MarkValue);

constexpr std::size_t StartLength = 2;          // what opens every JPEG file
constexpr std::size_t SegmentHeaderLength = 4;  // two bytes of kind, two of length

std::size_t ByteAt(const std::string& bytes, std::size_t at) { return static_cast<unsigned char>(bytes[at]); }

/// Whether one segment ends and the next begins at `offset`.
bool HasSegmentAt(const std::string& jpeg, std::size_t offset) {
    std::size_t at = StartLength;
    while (at < offset && at + SegmentHeaderLength <= jpeg.size() && ByteAt(jpeg, at) == 0xFF)
        at += 2 + ByteAt(jpeg, at + 2) * 256 + ByteAt(jpeg, at + 3);
    return at == offset && at < jpeg.size();
}

std::string Comment(const std::string& text) {
    const std::size_t length = text.size() + 2;
    return std::string("\xFF\xFE") + static_cast<char>(length / 256) + static_cast<char>(length % 256) + text;
}

}  // namespace

bool HasProcessedMarker(std::string_view file) {
    return file.size() > MarkOffset && file[MarkOffset] == MarkValue;
}

std::string WithProcessedMarker(const std::string& jpeg) {
    if (jpeg.size() < StartLength || ByteAt(jpeg, 0) != 0xFF || ByteAt(jpeg, 1) != 0xD8)
        throw ImagingError(PictureWriteError, "The photo cannot be marked as processed: it is no JPEG.");

    // Behind a file header of the usual length the comment's text begins just at the mark. Otherwise the
    // comment opens the file and is filled up with blanks as far as the mark.
    std::string marked = jpeg;
    constexpr std::size_t UsualPlace = MarkOffset - SegmentHeaderLength;
    if (HasSegmentAt(jpeg, UsualPlace)) return marked.insert(UsualPlace, Comment(std::string(CommentText)));
    const std::string blanks(UsualPlace - StartLength, ' ');
    return marked.insert(StartLength, Comment(blanks + std::string(CommentText)));
}

void CaptureMarked(SourcePicture& source, const CaptureOrder& order, const std::string& destination) {
    const std::string unmarked = files::UnfinishedName(destination);
    try {
        source.Capture(order, unmarked);
        // This takes the unmarked file's name for its own unfinished one, and so leaves none behind.
        files::WriteWhole(destination, WithProcessedMarker(files::ReadAll(unmarked)));
    } catch (...) {
        files::TryDelete(unmarked);
        throw;
    }
}

}  // namespace lumarin
