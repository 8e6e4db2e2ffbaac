#pragma once

#include <string>

#include "base/Error.h"

namespace lumarin::qpdf {

/// Why a step of the PDF library failed, as a sentence for a person.
class PdfError : public Error {
public:
    explicit PdfError(const std::string& description)
        : Error(ApplicationErrorNumber, "PDF library", description) {}
};

}  // namespace lumarin::qpdf
