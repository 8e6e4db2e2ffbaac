#include "platform/vips/GreyPixels.h"

#include <memory>

#include "platform/vips/Library.h"

namespace lumarin::vips {

GreyPixels ToGrey(const Picture& picture) {
    const VImage grey = ImageOver(picture).colourspace(VIPS_INTERPRETATION_B_W).cast(VIPS_FORMAT_UCHAR);
    std::size_t size = 0;
    const std::unique_ptr<void, decltype(&g_free)> memory(grey.write_to_memory(&size), &g_free);
    const auto* bytes = static_cast<const std::uint8_t*>(memory.get());
    return {grey.width(), grey.height(), {bytes, bytes + size}};
}

}  // namespace lumarin::vips
