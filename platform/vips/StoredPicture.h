#pragma once

#include <functional>
#include <memory>
#include <string>

#include "forms/Picture.h"
#include "platform/vips/Library.h"

namespace lumarin::vips {

/// Which rows of a picture must be sound: those that were read, or the others too.
enum class Rows { Read, All };

/// The pixels of a picture as they lie in its file, and how many of them stand for one stored pixel.
struct Decoded {
    VImage image;
    double horizontalScale = 1.0;  ///< width of `image` over the stored width, 1 or less
    double verticalScale = 1.0;
    /// To be called when the rows have been read; throws VError when they are damaged. The library may go on
    /// with black where a reader has failed, and its resampling leaves out the last rows. Empty where the
    /// format says nothing about damage.
    std::function<void(Rows)> check;
};

/// A picture in its stored orientation, to be decoded from the top for each step.
class StoredPicture {
public:
    virtual ~StoredPicture() = default;

    /// Pixels, before the orientation is applied.
    virtual int Width() const = 0;
    virtual int Height() const = 0;
    /// 1 to 8 as in EXIF; 1 is upright.
    virtual int Orientation() const = 0;
    virtual int PageCount() const = 0;
    virtual bool IsPlainJpeg() const = 0;

    /// The picture, to be read in one pass from top to bottom. `reduction` is how many stored pixels go
    /// into one pixel of the result along a side; the decoder may reduce too, leaving at least a factor of
    /// two to the resampling. Reading past a cut in the file throws VError.
    virtual Decoded Decode(double reduction) const = 0;
};

/// Reads the header of a page, counted from 0. Throws VError or ImagingError when the file is not a picture,
/// has no such page or too many pixels.
std::unique_ptr<StoredPicture> OpenFile(const std::string& path, int page);

/// Whether the file is of the kind of HEIC pictures; AVIF pictures are of it too.
bool IsHeifFile(const std::string& path);

/// Opens such a file with a second decoder, which is asked when libvips cannot decode it. Throws as
/// `OpenFile`.
std::unique_ptr<StoredPicture> OpenHeif(const std::string& path,
                                        const std::function<PicturePtr(const std::string&)>& decode);

/// Shares the pixels with the caller. An empty picture is an ImagingError.
std::unique_ptr<StoredPicture> OpenPixels(PicturePtr picture);

}  // namespace lumarin::vips
