#include "base/Rewrite.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <fstream>
#include <optional>
#include <utility>

#include "base/Error.h"
#include "base/FileCalls.h"
#include "base/FileSystem.h"
#include "base/Files.h"

namespace lumarin::files {

namespace fs = std::filesystem;

namespace {

/// What a file holds before and after it is written.
struct Change {
    std::string before, after;
};

/// The length of the old bytes in decimal digits, a line feed, the old bytes, the new bytes.
std::string Packed(std::string_view before, std::string_view after) {
    return std::to_string(before.size()).append("\n").append(before).append(after);
}

std::optional<Change> Unpacked(std::string_view bytes) {
    std::size_t length = 0;
    const char* const last = bytes.data() + bytes.size();
    const auto [end, problem] = std::from_chars(bytes.data(), last, length);
    if (problem != std::errc{} || end == last || *end != '\n') return std::nullopt;
    const std::size_t start = static_cast<std::size_t>(end - bytes.data()) + 1;
    if (bytes.size() - start < length) return std::nullopt;
    return Change{std::string(bytes.substr(start, length)), std::string(bytes.substr(start + length))};
}

/// Nothing when no change lies beside the file, or is no longer there a moment later.
std::optional<Change> KeptChange(const std::string& path) {
    try {
        return FileExists(ChangeName(path)) ? Unpacked(ReadAll(ChangeName(path))) : std::nullopt;
    } catch (const FileError&) {
        return std::nullopt;
    }
}

/// Whether the change was interrupted: new bytes in front and old ones behind. Anything else was written by
/// somebody else in the meantime and is left alone.
bool IsHalfMade(const Change& change, std::string_view bytes) {
    if (bytes == change.before || bytes == change.after) return false;
    const auto differs = std::mismatch(bytes.begin(), bytes.end(), change.after.begin(), change.after.end());
    const auto made = static_cast<std::size_t>(differs.first - bytes.begin());
    const std::string_view rest =
        std::string_view(change.before).substr(std::min(made, change.before.size()));
    return bytes.substr(made) == rest;
}

/// False when nothing can be made in the folder.
bool CanBeMade(const std::string& path) {
    errno = 0;
    const std::ofstream made(ToPath(path), std::ios::binary | std::ios::app);
    return made.is_open() || (errno != EACCES && errno != EPERM && errno != EROFS);
}

/// The copy can be read by those who can read the file. There is none where the folder cannot be written, nor
/// where an old one, left by another user, cannot be replaced.
void KeepChange(const std::string& path, std::string_view bytes) {
    const std::string unfinished = UnfinishedName(ChangeName(path));
    if (!TryDelete(ChangeName(path)) || !CanBeMade(unfinished)) return;
    std::error_code ignored;
    const fs::perms mode = fs::status(ToPath(path), ignored).permissions();
    fs::permissions(ToPath(unfinished), mode | fs::perms::owner_read | fs::perms::owner_write, ignored);
    WriteWhole(ChangeName(path), bytes);
}

std::fstream OpenToWrite(const std::string& path) {
    errno = 0;
    std::fstream out(ToPath(path), std::ios::binary | std::ios::in | std::ios::out);
    if (!out) throw FileError("write", path, LastReason());
    return out;
}

void Overwrite(std::fstream out, const std::string& path, std::string_view bytes) {
    errno = 0;
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) throw FileError("write", path, LastReason());
    if (FileLength(path) == bytes.size()) return;
    std::error_code problem;
    fs::resize_file(ToPath(path), bytes.size(), problem);
    if (problem) throw FileError("write", path, Calls().ReasonOf(problem));
}

/// A file that nobody has yet, or to which only a link leads.
void Make(const std::string& path, std::string_view bytes) {
    std::error_code ignored;
    const fs::path target = fs::read_symlink(ToPath(path), ignored);
    if (target.empty()) return WriteWhole(path, bytes);
    std::ofstream(ToPath(path), std::ios::binary | std::ios::app).close();
    Overwrite(OpenToWrite(path), path, bytes);
}

}  // namespace

void Rewrite(const std::string& path, std::string_view bytes) {
    if (!FileExists(path)) return Make(path, bytes);
    const std::string before = ReadRewritten(path);
    std::fstream out = OpenToWrite(path);  // before a copy lies beside a file that cannot be written
    KeepChange(path, Packed(before, bytes));
    Overwrite(std::move(out), path, bytes);
    TryDelete(ChangeName(path));
}

std::string ReadRewritten(const std::string& path) {
    std::string bytes = ReadAll(path);
    const auto change = KeptChange(path);
    if (!change || !IsHalfMade(*change, bytes)) return bytes;
    try {
        Overwrite(OpenToWrite(path), path, change->after);
        TryDelete(ChangeName(path));
    } catch (const FileError&) {  // somebody else finishes it; here it counts as finished
    }
    return change->after;
}

std::string ChangeName(const std::string& path) { return path + ".change"; }

}  // namespace lumarin::files
