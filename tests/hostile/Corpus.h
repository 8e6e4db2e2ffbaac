#pragma once

#include <string>
#include <utility>
#include <vector>

/// Broken and strange input, the same on every run.
namespace lumarin::hostile {

/// A name for the message of a failing test, and the bytes.
using Sample = std::pair<std::string, std::string>;

/// Pictures of every format that the component opens: cut short, changed, with wrong sizes, profiles and
/// metadata, of unusual kinds and shapes. Needs the picture library to be started.
std::vector<Sample> Pictures();

/// What a valid file turns into when it is cut short, runs on, or has bytes changed.
std::vector<Sample> Damaged(const std::string& name, const std::string& bytes);

/// Names of picture files that a file system takes.
std::vector<std::string> Names();

/// What somebody might type to break out of a statement, a command or an address.
std::vector<std::string> Texts();

}  // namespace lumarin::hostile
