#include "entry/FieldValue.h"

#include "base/Numbers.h"

namespace lumarin {

std::int32_t FieldValue::Integer() const {
    if (const auto* number = std::get_if<std::int64_t>(&value_)) return static_cast<std::int32_t>(*number);
    return LeadingInteger(Text());
}

}  // namespace lumarin
