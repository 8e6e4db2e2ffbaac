#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/qpdf/QpdfLibrary.h"
#include "platform_vips/Samples.h"

/// What the command line's PDF tools make of a document, and a folder to write documents in.
namespace lumarin::judges {

/// What a command prints; its failure is a failure of the test.
std::string OutputOf(const std::string& command);
std::string Quoted(const std::string& path);

/// "type width height colour components bits encoding" of every picture, in the order of the pages.
std::vector<std::string> PicturesOf(const std::string& pdf);
/// A page as it looks at 72 dots per inch, so that a pixel is a point.
Picture Rendered(const std::string& pdf, int page);

class QpdfLibraryTest : public ::testing::Test {
protected:
    std::string GivenFile(const std::string& name, const std::string& bytes);
    /// Everything that makes a page of this picture; whether all of it was done.
    bool AddPage(PdfHandle handle, const std::string& png, int left = 27, int top = 27, int width = 558,
                 int height = 738, std::int32_t size = PdfLetterPage);
    /// A document with one small page.
    std::string GivenDocument(const std::string& name);

    samples::Folder folder;
    std::optional<QpdfLibrary> library{std::in_place};  ///< `emplace` is a new start of the program
};

}  // namespace lumarin::judges
