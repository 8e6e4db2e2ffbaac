#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "imaging/Imaging.h"

namespace lumarin::vips {

/// Adapter: the imaging port over libvips. The library starts with the first picture, not with the object.
///
/// A file is decoded again for each preview and capture, at the smallest size that the step can use, so an
/// open picture holds its header and nothing else; only a HEIC picture, whose decoding takes seconds, is
/// kept. Messages of the library never reach standard error.
///
/// A HEIC picture that libvips cannot decode goes to the system's decoder, where there is one.
class VipsImaging final : public Imaging {
public:
    /// Reads the HEIC picture of this path, upright and in sRGB. Throws ImagingError; never returns null.
    using SystemDecoder = std::function<PicturePtr(const std::string& path)>;

    explicit VipsImaging(SystemDecoder decodeHeic = nullptr) : decodeHeic_(std::move(decodeHeic)) {}

    std::unique_ptr<SourcePicture> Open(const std::string& path) override;
    std::unique_ptr<SourcePicture> OpenPage(const std::string& path, int page) override;
    std::unique_ptr<SourcePicture> FromMemory(PicturePtr picture) override;
    Picture Thumbnail(const std::string& path, int longestSide) override;

private:
    SystemDecoder decodeHeic_;
};

}  // namespace lumarin::vips
