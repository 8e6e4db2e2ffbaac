#include "host/server/WebAddress.h"

#include <algorithm>
#include <charconv>
#include <cstddef>

#include "base/Text.h"

namespace host {

namespace {

namespace text = lumarin::text;

constexpr std::size_t LongestHost = 253;
constexpr int LastPort = 65'535;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Letters beyond ASCII are left to the browser.
bool IsOfName(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '-' || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

bool IsPort(std::string_view digits) {
    int port = 0;
    const auto [end, problem] = std::from_chars(digits.data(), digits.data() + digits.size(), port);
    return std::all_of(digits.begin(), digits.end(), IsDigit) && problem == std::errc() && port > 0 &&
           port <= LastPort;
}

bool IsName(std::string_view host) {
    if (host.ends_with('.')) host.remove_suffix(1);
    const auto parts = text::Split(host, '.');
    return host.size() <= LongestHost && std::all_of(parts.begin(), parts.end(), [](const std::string& part) {
               return !part.empty() && std::all_of(part.begin(), part.end(), IsOfName);
           });
}

/// An address of the sixth version stands in brackets, because it holds colons.
bool IsBracketed(std::string_view host) {
    return host.size() > 2 && host.front() == '[' && host.back() == ']' &&
           std::all_of(host.begin() + 1, host.end() - 1, [](char c) {
               return IsDigit(c) || c == ':' || c == '.' || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
           });
}

bool RemoveScheme(std::string_view& address) {
    for (const std::string_view scheme : {"http://", "https://"})
        if (text::EqualsIgnoringCase(address.substr(0, scheme.size()), scheme)) {
            address.remove_prefix(scheme.size());
            return true;
        }
    return false;
}

}  // namespace

bool IsWebAddress(std::string_view address) {
    const bool hasScheme = RemoveScheme(address);
    std::string_view host = address.substr(0, address.find_first_of("/\\?#"));
    const std::size_t colon =
        host.find(':', host.starts_with('[') ? std::min(host.find(']'), host.size()) : 0);
    const bool hasPort = colon != std::string_view::npos;
    if (hasPort && !IsPort(host.substr(colon + 1))) return false;
    host = host.substr(0, colon);
    if (IsBracketed(host)) return true;
    const bool isNoWord = hasScheme || hasPort ||
                          host.substr(0, host.size() - 1).find('.') != std::string_view::npos ||
                          text::EqualsIgnoringCase(host, "localhost");
    return !host.empty() && isNoWord && IsName(host);
}

}  // namespace host
