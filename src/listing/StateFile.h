#pragma once

#include <string>
#include <string_view>

#include "listing/ListingState.h"

/// The listing's state file, N.dat, which is also the upload manifest: integers little-endian, texts as a
/// two-byte length and bytes in the single-byte code page, always all 26 photo entries.
namespace lumarin::state_file {

std::string Encode(const ListingState& state);

/// Reads the structure from the start and ignores what follows it. Throws Error, naming what is wrong, for
/// bytes that are cut short or hold impossible numbers.
ListingState Decode(std::string_view bytes);

/// The size of the structure at the start of `bytes`; throws as `Decode`.
std::size_t EncodedSize(std::string_view bytes);

/// Writes over the file from its start; what an older, longer state left behind its end stays there. The
/// file holds the old or the new state, never a part.
void Write(const std::string& path, const ListingState& state);

ListingState Read(const std::string& path);

}  // namespace lumarin::state_file
