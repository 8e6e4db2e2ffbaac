#pragma once

#include <qpdf/QPDF.hh>

#include <string>

namespace lumarin::qpdf {

/// Reads a PNG file and makes it a picture object of the document: its packed pixels as they are, or packed
/// for fax where it has one bit a pixel and that is smaller. Throws Error with the reason.
QPDFObjectHandle MakePicture(QPDF& pdf, const std::string& pngPath);

}  // namespace lumarin::qpdf
