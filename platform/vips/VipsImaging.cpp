#include "platform/vips/VipsImaging.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/Files.h"
#include "platform/vips/Finish.h"
#include "platform/vips/Library.h"
#include "platform/vips/Page.h"
#include "platform/vips/PageContents.h"
#include "platform/vips/Render.h"
#include "platform/vips/StoredPicture.h"
#include "platform/vips/Turning.h"

namespace lumarin::vips {

namespace {

int Scaled(int side, double scale) { return std::max(1, static_cast<int>(std::lround(side * scale))); }

class VipsPicture final : public SourcePicture {
public:
    explicit VipsPicture(std::unique_ptr<StoredPicture> stored) : stored_(std::move(stored)) {}

    int Width() const override { return straightened_.WidthOf(stored_); }
    int Height() const override { return straightened_.HeightOf(stored_); }
    int PageCount() const override { return stored_.PageCount(); }
    bool IsPlainJpeg() const override { return straightened_.IsPlain() && stored_.IsPlainJpeg(); }

    void Turn(const PictureTurn& turn) override {
        stored_.Turn(turn.quarters);
        straightened_ = Straightening();
        if (turn.degrees == 0) return;
        if (turn.edges == PictureTurn::Edges::Paper)
            straightened_ = Straightening(turn.degrees, Guarded(InvalidPictureError, [&] {
                                              return Contents().EdgesFor(turn.degrees);
                                          }));
        else
            straightened_ = Straightening(turn.degrees);
    }

    PageLook Look() override {
        return Guarded(InvalidPictureError, [this] { return Contents().Look(); });
    }

    Picture Preview(int width, int height) override { return Part({0, 0, Width(), Height()}, width, height); }

    Picture Photo(const CaptureOrder& order) override {
        Picture photo = Part(order.cut, order.width, order.height);
        return Guarded(PictureWriteError, [&] {
            for (std::uint8_t& value : photo.pixels) value = order.tones[value];
            Picture canvas = OnCanvas(photo, order);
            DrawCaption(canvas, order.caption);
            return canvas;
        });
    }

    void Capture(const CaptureOrder& order, const std::string& destination) override {
        const Picture photo = Photo(order);
        const std::string jpeg = Guarded(PictureWriteError, [&] { return EncodeJpeg(photo, order); });
        try {
            files::WriteWhole(destination, jpeg);
        } catch (const FileError& error) {
            throw ImagingError(PictureWriteError, error.Description());
        }
    }

    void WritePage(const PageOrder& order, const std::string& destination) override {
        const Picture page = Preview(order.width, order.height);
        const std::string png = Guarded(PictureWriteError, [&] { return EncodePage(page, order.colours); });
        try {
            files::WriteWhole(destination, png);
        } catch (const FileError& error) {
            throw ImagingError(PictureWriteError, error.Description());
        }
    }

private:
    PageContents Contents() {
        const double scale = std::min(1.0, static_cast<double>(ContentsSide) / std::max(Width(), Height()));
        return PageContents(Preview(Scaled(Width(), scale), Scaled(Height(), scale)));
    }

    Picture Part(const PixelRect& cut, int width, int height) {
        return Guarded(InvalidPictureError,
                       [&] { return straightened_.Render(stored_, cut, width, height); });
    }

    TurnedPicture stored_;
    Straightening straightened_;
};

}  // namespace

std::unique_ptr<SourcePicture> VipsImaging::Open(const std::string& path) { return OpenPage(path, 0); }

std::unique_ptr<SourcePicture> VipsImaging::OpenPage(const std::string& path, int page) {
    return std::make_unique<VipsPicture>(Guarded(InvalidPictureError, [&] {
        return decodeHeic_ && IsHeifFile(path) ? OpenHeif(path, decodeHeic_) : OpenFile(path, page);
    }));
}

std::unique_ptr<SourcePicture> VipsImaging::FromMemory(PicturePtr picture) {
    return std::make_unique<VipsPicture>(
        Guarded(InvalidPictureError, [&] { return OpenPixels(std::move(picture)); }));
}

Picture VipsImaging::Thumbnail(const std::string& path, int longestSide) {
    const std::unique_ptr<SourcePicture> picture = Open(path);
    const double longest = std::max(picture->Width(), picture->Height());
    const double scale = std::min(1.0, longestSide / longest);
    return picture->Preview(Scaled(picture->Width(), scale), Scaled(picture->Height(), scale));
}

}  // namespace lumarin::vips
