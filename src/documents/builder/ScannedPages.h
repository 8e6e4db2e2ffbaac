#pragma once

#include <string>

#include "documents/builder/PdfDraft.h"
#include "entry/VelCommon.h"

namespace lumarin {

/// What is done to scanned pages as they come in, as the user has chosen it; it is remembered.
struct ScanSettings {
    bool straighten = true;
    bool leaveOutBlank = true;
};

ScanSettings ReadScanSettings(const VelCommon& host);
void WriteScanSettings(const VelCommon& host, const ScanSettings& settings);

/// The pages of sheets whose fronts were scanned from the first one to the last, and then, with the stack
/// turned over, their backs from the last one to the first. As many of both.
PageIds FrontsAndBacks(const PageIds& fronts, const PageIds& backs);

/// Puts the pages into this order. Those that are left out stay so, and have their new place in it.
void Arrange(PdfDraft& draft, const PageIds& all);
/// The document's order with the pages that are left out, each behind the page that it followed.
PageIds WithLeftOut(const PdfDraft& draft);

/// "1 blank page", "2 blank pages".
std::string BlankPagesText(std::size_t count);
/// What has become of scanned pages besides being added; "" for nothing.
std::string ScansText(std::size_t straightened, std::size_t leftOut);

}  // namespace lumarin
