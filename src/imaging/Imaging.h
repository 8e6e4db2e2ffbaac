#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "base/Error.h"
#include "forms/Picture.h"

namespace lumarin {

/// Errors of the imaging library carry numbers of this range.
inline constexpr std::int32_t FirstImagingError = 20000;
inline constexpr std::int32_t LastImagingError = 20171;
/// Not a picture, a picture cut short, or one too large to open.
inline constexpr std::int32_t InvalidPictureError = 20009;
/// No memory for the picture.
inline constexpr std::int32_t PictureMemoryError = 20001;
/// Nothing on this machine reads pictures of that kind; the description says what is missing.
inline constexpr std::int32_t MissingCodecError = 20016;
/// The picture could not be written.
inline constexpr std::int32_t PictureWriteError = 20014;

class ImagingError : public Error {
public:
    ImagingError(std::int32_t number, const std::string& description)
        : Error(number, "imaging", description) {}
};

/// A picture with more pixels than this is refused before it is decoded.
inline constexpr std::int64_t MaximumPixels = 250'000'000;

/// A part of a picture, in whole pixels.
struct PixelRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool operator==(const PixelRect&) const = default;
};

/// One finished photo: cut `cut` out of the picture, resample it to `width` x `height`, change its tones,
/// lay it at (`left`, `top`) on a white canvas of `canvasWidth` x `canvasHeight` (parts outside of the
/// canvas are cut off), draw the caption if there is one, and write a JPEG without any metadata.
struct CaptureOrder {
    PixelRect cut;
    int width = 0;
    int height = 0;
    ToneTable tones{};
    int canvasWidth = 0;
    int canvasHeight = 0;
    int left = 0;
    int top = 0;
    /// Drawn in Arial, grey (200,200,200) over (100,100,100), in the lower right corner; "" for none.
    std::string caption;
    int jpegQualityFactor = 35;  ///< scales the quantization tables; lower is better, 35 is about quality 75
};

/// How a picture is turned before anything else is done with it, as if it had come so.
struct PictureTurn {
    /// What becomes of the edges when a picture is turned by some degrees. It always keeps its middle.
    enum class Edges {
        CutOff,  ///< it keeps its proportions; what remains is the largest part that has no empty corners
        Paper    ///< it keeps all that is on it, grows where that takes it, and has paper in its corners
    };
    int quarters = 0;    ///< clockwise, 0 to 3
    double degrees = 0;  ///< after that, clockwise, from -15 to 15
    Edges edges = Edges::CutOff;
    bool operator==(const PictureTurn&) const = default;
};

/// How many colours a page of a document keeps.
enum class PageColours { Colour, Grey, BlackAndWhite };

/// One page of a document: the whole picture resampled to `width` x `height` pixels.
struct PageOrder {
    int width = 0;
    int height = 0;
    PageColours colours = PageColours::Colour;
};

/// What is on a scanned page, as far as it can be told for sure.
struct PageLook {
    /// Nothing but paper: dust, punched holes, shadows at the edges and what shines through from the other
    /// side do not count.
    bool isBlank = false;
    double skew = 0;  ///< degrees clockwise by which its lines are turned, from -10 to 10
};

/// One opened picture. Its size, preview and captures are those of the upright picture in sRGB, 24 bits,
/// alpha laid on white. The source must stay unchanged while it is open.
class SourcePicture {
public:
    virtual ~SourcePicture() = default;

    /// Size of the upright picture in pixels.
    virtual int Width() const = 0;
    virtual int Height() const = 0;
    /// Of a TIFF file; 1 for every other picture.
    virtual int PageCount() const = 0;
    /// Whether the source is a JPEG file of 24 bits per pixel, stored upright, and has not been turned.
    virtual bool IsPlainJpeg() const = 0;

    /// From now on the picture is the one that was opened, turned in this way.
    virtual void Turn(const PictureTurn& turn) = 0;

    /// The picture taken as a scanned page.
    virtual PageLook Look() = 0;

    /// The picture resampled to exactly this size, decoding no more than that takes.
    virtual Picture Preview(int width, int height) = 0;

    /// The finished photo as `Capture` writes it, before the loss of its compression. Throws as that.
    virtual Picture Photo(const CaptureOrder& order) = 0;

    /// Writes the finished photo; the destination appears whole or not at all. Throws ImagingError when
    /// the picture cannot be read to its end or the file not written.
    virtual void Capture(const CaptureOrder& order, const std::string& destination) = 0;

    /// Writes the page as a PNG file without metadata: 24 bits, 8 bits grey or 1 bit per pixel. Throws as
    /// `Capture`.
    virtual void WritePage(const PageOrder& order, const std::string& destination) = 0;
};

/// Port: the imaging library. All calls on the user-interface thread; an implementation may use threads
/// of its own inside a call.
class Imaging {
public:
    virtual ~Imaging() = default;

    /// Opens a picture file by its content; JPEG, PNG, TIFF (first page), WebP, HEIC, GIF. Throws
    /// ImagingError with InvalidPictureError when it is not a picture or has more than MaximumPixels, with
    /// MissingCodecError when it is a HEIC picture and the machine has nothing that reads those. Whether
    /// its data are whole shows when it is decoded.
    virtual std::unique_ptr<SourcePicture> Open(const std::string& path) = 0;

    /// A page of a picture file, counted from 0; only TIFF files have more than that one. Throws as `Open`.
    virtual std::unique_ptr<SourcePicture> OpenPage(const std::string& path, int page) = 0;

    /// A picture that is in memory already (clipboard, scanner).
    virtual std::unique_ptr<SourcePicture> FromMemory(PicturePtr picture) = 0;

    /// A picture file reduced to fit a square of this size; never enlarged. Throws as `Open`.
    virtual Picture Thumbnail(const std::string& path, int longestSide) = 0;
};

}  // namespace lumarin
