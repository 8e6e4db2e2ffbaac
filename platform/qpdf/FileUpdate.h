#pragma once

#include <qpdf/QPDF.hh>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/qpdf/FilePipeline.h"

namespace lumarin::qpdf {

/// The end of a document's file, to which changed objects can be added so that nothing before is touched. The
/// file of a new document ends where it begins.
struct FileEnd {
    std::uint64_t length = 0;
    std::uint64_t index = 0;  ///< where the last index of objects begins
};

/// Nothing for files that have to be rewritten: encrypted ones and those whose index is itself packed.
/// Throws FileError when the file cannot be read.
std::optional<FileEnd> FindFileEnd(QPDF& pdf, const std::string& path);

/// Writes the changed and new objects behind a file's end, as an update that readers take for one document
/// with what is before. Rewriting all objects would take each of them apart. Returns the new end.
FileEnd WriteUpdate(QPDF& pdf, const std::vector<QPDFObjectHandle>& changed, const FileEnd& end,
                    FilePipeline& file);

}  // namespace lumarin::qpdf
