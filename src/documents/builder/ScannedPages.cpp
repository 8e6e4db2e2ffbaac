#include "documents/builder/ScannedPages.h"

#include <algorithm>

#include "base/Text.h"
#include "entry/Settings.h"

namespace lumarin {

namespace {

constexpr const char* Section = "Lumarin";
constexpr const char* StraightenKey = "StraightenScans";
constexpr const char* BlankKey = "LeaveOutBlankPages";

std::string UserIni(const VelCommon& host) { return host.UserFolder() + "User.ini"; }

bool ReadSwitch(const VelCommon& host, const char* key) {
    return text::EqualsIgnoringCase(settings::ReadText(UserIni(host), Section, key, "True"), "True");
}

void WriteSwitch(const VelCommon& host, const char* key, bool on) {
    settings::WriteText(UserIni(host), Section, key, on ? "True" : "False");
}

/// The page as it came, where this one is it turned.
PageId OriginalOf(const PdfDraft& draft, PageId page) {
    const PageId original = draft.pages.at(page).original;
    return original == 0 ? page : original;
}

}  // namespace

ScanSettings ReadScanSettings(const VelCommon& host) {
    return {ReadSwitch(host, StraightenKey), ReadSwitch(host, BlankKey)};
}

void WriteScanSettings(const VelCommon& host, const ScanSettings& settings) {
    WriteSwitch(host, StraightenKey, settings.straighten);
    WriteSwitch(host, BlankKey, settings.leaveOutBlank);
}

PageIds FrontsAndBacks(const PageIds& fronts, const PageIds& backs) {
    PageIds pages;
    for (std::size_t i = 0; i < fronts.size(); ++i) {
        pages.push_back(fronts[i]);
        pages.push_back(backs[backs.size() - 1 - i]);
    }
    return pages;
}

void Arrange(PdfDraft& draft, const PageIds& all) {
    draft.order.clear();
    PageId before = 0;
    for (const PageId page : all) {
        const auto leftOut = std::ranges::find(draft.leftOut, page, &PdfDraft::LeftOut::page);
        if (leftOut == draft.leftOut.end())
            draft.order.push_back(page);
        else
            leftOut->behind = before;
        before = page;
    }
}

PageIds WithLeftOut(const PdfDraft& draft) {
    PageIds all = draft.order;
    PdfDraft::LeftOuts rest = draft.leftOut;
    // One may follow another one, so that comes first; what it followed may be gone, then it comes at the
    // end.
    for (std::size_t steps = rest.size(); steps > 0 && !rest.empty(); --steps)
        std::erase_if(rest, [&](const PdfDraft::LeftOut& leftOut) {
            const auto before =
                std::ranges::find(all, leftOut.behind, [&](PageId page) { return OriginalOf(draft, page); });
            if (before == all.end() && leftOut.behind != 0) return false;
            all.insert(leftOut.behind == 0 ? all.begin() : before + 1, leftOut.page);
            return true;
        });
    for (const PdfDraft::LeftOut& leftOut : rest) all.push_back(leftOut.page);
    return all;
}

std::string BlankPagesText(std::size_t count) {
    return count == 1 ? "1 blank page" : std::to_string(count) + " blank pages";
}

std::string ScansText(std::size_t straightened, std::size_t leftOut) {
    std::string text;
    if (straightened > 0)
        text = straightened == 1 ? "1 page was straightened."
                                 : std::to_string(straightened) + " pages were straightened.";
    if (leftOut > 0)
        text += (text.empty() ? "" : " ") + BlankPagesText(leftOut) +
                (leftOut == 1 ? " was left out." : " were left out.");
    return text;
}

}  // namespace lumarin
