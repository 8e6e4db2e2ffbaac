#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "imaging/Imaging.h"
#include "platform/vips/Library.h"
#include "support/TemporaryFolder.h"

/// Pictures drawn for the tests, in a folder of their own that lives as long as the object.
namespace lumarin::samples {

using vips::VImage;
using Colour = std::array<int, 3>;

struct Folder : testing::TemporaryFolder {
    Folder() { vips::StartLibrary(); }
    std::string operator/(const std::string& name) const { return Path() + name; }
};

/// The same values with another meaning.
VImage As(const VImage& image, VipsInterpretation meaning);
VImage Plain(int width, int height, const std::vector<double>& colour);
/// Four quadrants: R(ed), G(reen), B(lue), W(hite), in the order upper left, upper right, lower left, right.
VImage Quadrants(int width, int height, const std::string& letters);
/// Detail of all sizes, the same on every run.
VImage Detailed(int width, int height);

/// The bytes as a file of the format that the suffix names, for example ".jpg[Q=90]".
std::string Encode(const VImage& image, const std::string& format);
/// The bytes of a file as phones make it, or where the library cannot write that, with another compression in
/// it.
std::string EncodeHeif(const VImage& image);

/// A photo of this size in the upper left corner of a canvas of 480 x 300, nothing changed.
CaptureOrder Order(const PixelRect& cut, int width, int height);

PicturePtr InMemory(const VImage& image);
Colour At(const Picture& picture, int x, int y);
/// Largest difference of the three values.
int Distance(const Colour& left, const Colour& right);
/// The letters of the four quadrants, '?' for any other colour, seen this part of a side away from the edges.
std::string QuadrantsOf(const Picture& picture, int divisor = 4);
double MeanDifference(const Picture& left, const Picture& right);

}  // namespace lumarin::samples
