// bench_imaging preview PICTURE: opens the picture to its preview of 320 pixels.
// bench_imaging capture PICTURE DESTINATION: opens it and captures the full width at 480 x 300.

#include <algorithm>
#include <iostream>
#include <string>

#include "base/Numbers.h"
#include "platform/vips/VipsImaging.h"

namespace {

using namespace lumarin;

void OpenToPreview(SourcePicture& picture) {
    const double scale = 320.0 / std::max(picture.Width(), picture.Height());
    const Picture preview =
        picture.Preview(RoundToWhole(picture.Width() * scale), RoundToWhole(picture.Height() * scale));
    std::cout << preview.width << 'x' << preview.height << '\n';
}

void CaptureFullWidth(SourcePicture& picture, const std::string& destination) {
    CaptureOrder order;
    order.width = order.canvasWidth = 480;
    order.height = order.canvasHeight = 300;
    for (std::size_t value = 0; value < order.tones.size(); ++value)
        order.tones[value] = static_cast<std::uint8_t>(value);
    order.cut.width = picture.Width();
    order.cut.height = picture.Width() * 5 / 8;
    order.cut.top = (picture.Height() - order.cut.height) / 2;
    picture.Capture(order, destination);
}

}  // namespace

int main(int count, char** arguments) {
    const std::string job = count > 1 ? arguments[1] : "";
    if (!(job == "preview" && count == 3) && !(job == "capture" && count == 4)) return 2;
    try {
        vips::VipsImaging imaging;
        const auto picture = imaging.Open(arguments[2]);
        if (job == "preview")
            OpenToPreview(*picture);
        else
            CaptureFullWidth(*picture, arguments[3]);
    } catch (const Error& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
