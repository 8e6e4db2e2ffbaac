#pragma once

#include "documents/builder/PdfLibrary.h"
#include "entry/JobPorts.h"

namespace lumarin {

/// The ports of the document manager and of the PDF builder that it opens; all outlive them.
struct DocumentPorts : JobPorts {
    PdfLibrary& pdf;
};

}  // namespace lumarin
