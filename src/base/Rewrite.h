#pragma once

#include <string>
#include <string_view>

/// Files that the component shares with others, such as settings: new bytes, but still the same file.
namespace lumarin::files {

/// Writes into the file itself, so that it keeps its owner, its mode and the links to it; a file that is not
/// there is made. Where its folder can be written, a copy of the change lies beside it until all is written,
/// and nothing is written without one. Of a file that cannot be written no copy is made. Throws FileError.
void Rewrite(const std::string& path, std::string_view bytes);

/// The bytes of a file that is written by `Rewrite`. A change that was interrupted in the middle counts as
/// made, and is finished where the file can be written. Throws FileError.
std::string ReadRewritten(const std::string& path);

/// Name of the copy of a change.
std::string ChangeName(const std::string& path);

}  // namespace lumarin::files
