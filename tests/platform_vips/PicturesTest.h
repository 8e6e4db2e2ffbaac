#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "base/Files.h"
#include "platform/vips/VipsImaging.h"
#include "platform_vips/Samples.h"
#include "support/Reason.h"

namespace lumarin::samples {

/// The library and a folder for its files.
class PicturesTest : public ::testing::Test {
protected:
    std::unique_ptr<SourcePicture> Open(const std::string& bytes, const std::string& name = "picture") {
        files::WriteWhole(folder / name, bytes);
        return imaging.Open(folder / name);
    }
    /// Of the error that `work` throws; 0 when it throws none.
    static std::int32_t NumberOf(const std::function<void()>& work) try {
        return work(), 0;
    } catch (const ImagingError& error) {
        return error.Number();
    }
    static std::pair<int, int> SizeOf(const auto& picture) { return {picture.width, picture.height}; }
    std::string Destination() const { return folder / "destination"; }

    Folder folder;
    vips::VipsImaging imaging;
};

}  // namespace lumarin::samples
