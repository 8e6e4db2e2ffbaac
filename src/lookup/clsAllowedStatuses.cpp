#include "lookup/clsAllowedStatuses.h"

namespace lumarin {

std::string clsAllowedStatuses::SQLAllowedStatuses(std::string_view excluded) const {
    std::string list;
    for (const std::string code : {"2001", "2002", "2003", "2004", "2005", "2006", "2007"})
        if (excluded.find(code) == std::string_view::npos) list += "'" + code + "',";
    if (list.empty()) return "'0000'";
    list.pop_back();
    return list;
}

}  // namespace lumarin
