#include <span>
#include <string_view>

#include "fuzz/Promise.h"
#include "platform/dib/DibReader.h"

FUZZ(std::string_view bytes) {
    try {
        const lumarin::Picture picture = lumarin::dib::ReadDib(std::as_bytes(std::span(bytes)));
        const auto pixels =
            static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
        PROMISE(picture.width > 0 && picture.height > 0 && pixels <= bytes.size() * 8);
        PROMISE(picture.pixels.size() == pixels * 3);
    } catch (const lumarin::ImagingError&) {
        // The right answer to nearly everything; nothing else may be thrown.
    }
}
