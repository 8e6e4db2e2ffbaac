#pragma once

#include <string>

#include "platform/qpdf/PngFile.h"

namespace lumarin::qpdf {

/// Unpacks a picture of one bit per pixel: its rows one after the other, each of whole bytes. Throws PdfError
/// when the packed pixels are damaged.
std::string UnpackRows(const PngFile& png);

/// Packs such rows as fax machines do (CCITT group 4), so that a 1 bit is paper and a 0 bit is ink, which is
/// what readers make of it unless told otherwise. Throws PdfError when the packer fails.
std::string PackGroup4(std::string rows, std::uint32_t width, std::uint32_t height);

}  // namespace lumarin::qpdf
