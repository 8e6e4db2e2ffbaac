#pragma once

#include <cstdint>
#include <new>

#include <vips/vips8>

#include "imaging/Imaging.h"

namespace lumarin::vips {

using ::vips::VError;
using ::vips::VImage;
using ::vips::VOption;
using ::vips::VSource;

/// What a person reads when a file is not a picture, damaged or too large.
inline constexpr const char* InvalidPictureText = "The selected file is not a valid photo.";

/// Starts libvips once for the process: only the readers for pictures from cameras and the web, nothing
/// kept from one operation to the next, no messages. Throws ImagingError when the library cannot start.
void StartLibrary();

/// The reader for HEIF pictures: within libvips, or a module of its own.
inline constexpr const char* HeifReader = "VipsForeignLoadHeif";
/// Loads that reader where libvips has it as a module; not needed again once it is there.
void LoadHeifReader();

/// The library's last reason, which is forgotten by that, as our error. `number` says what was tried; lack
/// of memory gets its own.
ImagingError ErrorOf(std::int32_t number);
ImagingError OutOfMemory();

/// The picture as the library sees it. Shares the pixels, which must outlive the result.
VImage ImageOver(const Picture& picture);

/// Runs one step with the library started; nothing but ImagingError leaves it.
template <typename Step>
auto Guarded(std::int32_t number, Step step) -> decltype(step()) {
    StartLibrary();
    try {
        return step();
    } catch (const VError&) {
        throw ErrorOf(number);
    } catch (const std::bad_alloc&) {
        throw OutOfMemory();
    }
}

}  // namespace lumarin::vips
