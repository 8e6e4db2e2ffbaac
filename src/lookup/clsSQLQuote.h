#pragma once

#include <string>
#include <string_view>

#include "lookup/EngineVersion.h"

namespace lumarin {

/// Makes user text safe inside a quoted SQL text. Both operations return the text without the quotes
/// around it.
class clsSQLQuote {
public:
    /// Looks up the version of the installed database engine once.
    explicit clsSQLQuote(const EngineVersion& engine);

    /// For a plain text: every apostrophe twice.
    std::string QuoteLiteral(std::string_view text) const;
    /// For a LIKE pattern: what the engine would read as a wildcard stands in brackets.
    std::string QuoteLike(std::string_view text) const;

    /// Whether the engine takes a "-" in a pattern literally.
    bool JetHandlesDash() const { return jetHandlesDash_; }

private:
    bool jetHandlesDash_ = false;
};

}  // namespace lumarin
