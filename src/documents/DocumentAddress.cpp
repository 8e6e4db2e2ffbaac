#include "documents/DocumentAddress.h"

#include <algorithm>

#include "base/Text.h"

namespace lumarin {

namespace {

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsOfScheme(char c) { return IsLetter(c) || IsDigit(c) || c == '+' || c == '-' || c == '.'; }

/// Browsers pass over blanks and control characters where they look for a scheme.
std::string WithoutGaps(std::string_view address) {
    std::string solid;
    std::copy_if(address.begin(), address.end(), std::back_inserter(solid),
                 [](char c) { return static_cast<unsigned char>(c) > ' ' && c != '\x7F'; });
    return solid;
}

bool IsPort(std::string_view rest) {
    const auto digits =
        static_cast<std::size_t>(std::find_if_not(rest.begin(), rest.end(), IsDigit) - rest.begin());
    return digits > 0 &&
           (digits == rest.size() || std::string_view("/\\?#").find(rest[digits]) != std::string_view::npos);
}

}  // namespace

std::string PreviewAddress(const VelCommon& host, std::int32_t listing, const clsDoc& document) {
    if (!document.Url.empty()) return document.Url;
    const std::string number = std::to_string(listing);
    const std::string last = number.substr(number.size() - 1);
    const std::string nextToLast = number.size() > 1 ? number.substr(number.size() - 2, 1) : "0";
    return "Docs." + host.DocDomain() + "\\" + host.ConnectionName() + "\\Docs\\" + nextToLast + "\\" + last +
           "\\" + number + "_" + std::to_string(document.DocId) + ".pdf";
}

bool HasOtherScheme(std::string_view address) {
    const std::string solid = WithoutGaps(address);
    const std::size_t colon = solid.find(':');
    if (colon == std::string::npos || colon == 0 || !IsLetter(solid.front())) return false;
    const std::string scheme = solid.substr(0, colon);
    if (!std::all_of(scheme.begin(), scheme.end(), IsOfScheme)) return false;
    if (text::EqualsIgnoringCase(scheme, "http") || text::EqualsIgnoringCase(scheme, "https")) return false;
    return !IsPort(std::string_view(solid).substr(colon + 1));
}

}  // namespace lumarin
