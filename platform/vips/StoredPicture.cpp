#include "platform/vips/StoredPicture.h"

#include <algorithm>
#include <utility>

#include "base/FileSystem.h"
#include "base/Files.h"
#include "platform/vips/JpegDecoder.h"

namespace lumarin::vips {

namespace {

constexpr std::int64_t MostPixelsKept = 64'000'000;  // three bytes each

VOption* ReadOptions() {
    return VImage::option()->set("access", VIPS_ACCESS_SEQUENTIAL)->set("fail_on", VIPS_FAIL_ON_TRUNCATED);
}

Decoded Unreduced(const VImage& image) { return {image, 1.0, 1.0, nullptr}; }

VSource SourceOf(const std::string& path) { return VSource::new_from_file(files::LibraryPath(path).c_str()); }

/// Name of the reader for these bytes.
std::string FindReader(const VSource& source) {
    const char* reader = vips_foreign_find_load_source(source.get_source());
    if (reader == nullptr) {
        vips_error_clear();
        LoadHeifReader();
        reader = vips_foreign_find_load_source(source.get_source());
    }
    if (reader == nullptr) throw VError();
    return reader;
}

constexpr const char* HeifSource = "VipsForeignLoadHeifSource";

class StoredFile final : public StoredPicture {
public:
    StoredFile(std::string path, int page) : path_(std::move(path)), page_(page) {
        const VSource source = Source();
        const std::string reader = FindReader(source);
        isJpeg_ = reader == "VipsForeignLoadJpegSource";
        isWebp_ = reader == "VipsForeignLoadWebpSource";
        isTiff_ = reader == "VipsForeignLoadTiffSource";
        isHeif_ = reader == HeifSource;
        ReadHeader(VImage::new_from_source(source, "", PageOptions()));
    }

    int Width() const override { return width_; }
    int Height() const override { return height_; }
    int Orientation() const override { return orientation_; }
    int PageCount() const override { return pageCount_; }
    bool IsPlainJpeg() const override { return isJpeg_ && has24Bits_ && orientation_ == 1; }

    Decoded Decode(double reduction) const override {
        if (isJpeg_) return DecodeJpegFile(reduction);
        if (isHeif_) return DecodeHeif();
        if (isWebp_ && reduction > 2.0) return DecodeWebp(2.0 / reduction);
        return Unreduced(Read([this] { return PageOptions(); }));
    }

private:
    VOption* PageOptions() const {
        VOption* options = ReadOptions();
        return page_ == 0 ? options : options->set("page", page_);
    }
    VSource Source() const { return SourceOf(path_); }

    /// The options are made when the file is open: the library takes them over then, and nobody before.
    template <class MakeOptions>
    VImage Read(MakeOptions options) const {
        const VSource source = Source();
        return VImage::new_from_source(source, "", options());
    }

    void ReadHeader(const VImage& image) {
        width_ = image.width();
        height_ = image.height();
        if (static_cast<std::int64_t>(width_) * height_ > MaximumPixels)
            throw ImagingError(InvalidPictureError, InvalidPictureText);
        has24Bits_ = image.bands() == 3 && image.format() == VIPS_FORMAT_UCHAR;
        // The frames of an animation are not pages.
        if (isTiff_) pageCount_ = vips_image_get_n_pages(image.get_image());
        if (isJpeg_ && image.get_typeof(VIPS_META_ICC_NAME) != 0) {
            std::size_t size = 0;
            const auto* bytes = static_cast<const char*>(image.get_blob(VIPS_META_ICC_NAME, &size));
            profile_.assign(bytes, size);
        }
        orientation_ = std::clamp(vips_image_get_orientation(image.get_image()), 1, 8);
    }

    // The decoder's own reduction averages blocks, which sharpens a little; a factor of two or more that is
    // left to the resampling hides it.
    Decoded DecodeJpegFile(double reduction) const {
        const int shrink = reduction >= 16 ? 8 : reduction >= 8 ? 4 : reduction >= 4 ? 2 : 1;
        auto [image, check] = DecodeJpeg(Source(), shrink);
        if (!profile_.empty())
            vips_image_set_blob_copy(image.get_image(), VIPS_META_ICC_NAME, profile_.data(), profile_.size());
        return {image, 1.0 / shrink, 1.0 / shrink, check};
    }

    // A picture of this kind can only be decoded whole, which takes seconds; so it is done once.
    Decoded DecodeHeif() const {
        if (!whole_.is_null()) return Unreduced(whole_);
        const VImage image = Read(ReadOptions);
        if (static_cast<std::int64_t>(width_) * height_ > MostPixelsKept) return Unreduced(image);
        whole_ = image.copy_memory();
        return Unreduced(whole_);
    }

    Decoded DecodeWebp(double scale) const {
        const VImage image = Read([&] { return ReadOptions()->set("scale", scale); });
        return {image, static_cast<double>(image.width()) / width_,
                static_cast<double>(image.height()) / height_, nullptr};
    }

    std::string path_;
    int page_ = 0;
    int pageCount_ = 1;
    bool isTiff_ = false;
    bool isJpeg_ = false;
    bool isWebp_ = false;
    bool isHeif_ = false;
    std::string profile_;   ///< the colour profile of a JPEG; "" for none
    mutable VImage whole_;  ///< the decoded picture, once it was needed; null otherwise
    bool has24Bits_ = false;
    int width_ = 0;
    int height_ = 0;
    int orientation_ = 1;
};

class StoredPixels final : public StoredPicture {
public:
    explicit StoredPixels(PicturePtr picture) : picture_(std::move(picture)) {}

    int Width() const override { return picture_->width; }
    int Height() const override { return picture_->height; }
    int Orientation() const override { return 1; }
    int PageCount() const override { return 1; }
    bool IsPlainJpeg() const override { return false; }
    Decoded Decode(double) const override { return Unreduced(ImageOver(*picture_)); }

private:
    PicturePtr picture_;
};

}  // namespace

std::unique_ptr<StoredPicture> OpenFile(const std::string& path, int page) {
    // Reading a pipe or a device might never end.
    if (!files::FileExists(path)) throw ImagingError(InvalidPictureError, InvalidPictureText);
    return std::make_unique<StoredFile>(path, page);
}

bool IsHeifFile(const std::string& path) {
    if (!files::FileExists(path)) return false;
    return FindReader(SourceOf(path)) == HeifSource;
}

std::unique_ptr<StoredPicture> OpenHeif(const std::string& path,
                                        const std::function<PicturePtr(const std::string&)>& decode) {
    try {
        auto stored = OpenFile(path, 0);
        stored->Decode(1.0);  // the header alone does not tell whether the pixels can be read
        return stored;
    } catch (const VError&) {
        vips_error_clear();
        return OpenPixels(decode(path));
    }
}

std::unique_ptr<StoredPicture> OpenPixels(PicturePtr picture) {
    const bool whole = picture != nullptr && !picture->IsEmpty() &&
                       picture->pixels.size() == std::size_t{3} * static_cast<std::size_t>(picture->width) *
                                                     static_cast<std::size_t>(picture->height);
    if (!whole) throw ImagingError(InvalidPictureError, InvalidPictureText);
    return std::make_unique<StoredPixels>(std::move(picture));
}

}  // namespace lumarin::vips
