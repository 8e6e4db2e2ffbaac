#pragma once

#include <string>
#include <string_view>

namespace lumarin {

/// The listing statuses that a search may return.
class clsAllowedStatuses {
public:
    /// The status codes, quoted and separated by commas as an IN list takes them, without those that
    /// occur anywhere in `excluded`. Never empty: with all of them excluded it is a status that no
    /// listing has.
    std::string SQLAllowedStatuses(std::string_view excluded) const;
};

}  // namespace lumarin
