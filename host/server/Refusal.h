#pragma once

#include "base/Error.h"

namespace host {

/// The server will not do what it was asked, and has changed nothing. The description is the reason.
class Refusal : public lumarin::Error {
public:
    explicit Refusal(const std::string& reason) : Error(Number, "server", reason) {}
    static constexpr std::int32_t Number = lumarin::ObjectErrorBase + 400;
};

}  // namespace host
