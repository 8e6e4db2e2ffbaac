#pragma once

#include <string>

namespace host {

/// Tells one upload from another, by length and content; it is not a protection against somebody who means
/// harm.
std::string DigestOf(const std::string& path);

}  // namespace host
