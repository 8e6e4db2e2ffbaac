#pragma once

#include <cstdint>
#include <string>

namespace lumarin {

/// One document of a listing, as the server lists it.
struct clsDoc {
    std::int32_t DocId = 0;
    std::string Description;
    std::string Url;            ///< "" for an uploaded file
    std::int64_t Filesize = 0;  ///< bytes; 0 for a link
};

}  // namespace lumarin
