#pragma once

#include "automation/calls/Variant.h"

#include <wrl/client.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace lumarin::automation {

// What a value means, by value or by reference, whatever its type. Each throws Error (type mismatch) for one
// that cannot be read so. Nothing depends on the user's language or region: numbers have a point, dates are
// written as 2026-03-01, or 2026-03-01 14:30:00.

/// "" for an empty or null value; bytes are read as the code page of files.
std::string TextOf(const VARIANT& value);
/// 0 for an empty or null value; a fraction is rounded half to even.
std::int32_t IntegerOf(const VARIANT& value);
/// The same, for numbers of up to 64 bits.
std::int64_t LargeIntegerOf(const VARIANT& value);
/// False for an empty or null value.
bool TruthOf(const VARIANT& value);
/// Null for an empty value and for "Nothing".
Microsoft::WRL::ComPtr<IDispatch> ObjectOf(const VARIANT& value);
/// The bytes of a byte array; none for an empty value.
std::vector<std::byte> BytesOf(const VARIANT& value);
/// The elements of an array of one dimension, of whatever type; none for an empty value.
std::vector<Variant> ElementsOf(const VARIANT& value);

}  // namespace lumarin::automation
