#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The component's whole use of the file system. Paths are UTF-8; folders that come from the host end
/// in a separator and paths are formed by concatenation. Every function that can fail throws FileError
/// with the operation, the path and the platform's reason, unless it says otherwise.
namespace lumarin::files {

/// The platform's path separator as a text of one character.
extern const std::string Separator;

/// A fixed text that is part of a path, with each "\" turned into the platform's separator. For the
/// system's own texts only: a name that a person chose may hold a "\" where the platform allows it.
std::string FixedPath(std::string_view text);

bool FileExists(const std::string& path);
bool FolderExists(const std::string& path);

/// Creates the folder and its missing parents; an existing folder is not an error.
void EnsureFolder(const std::string& path);

std::uint64_t FileLength(const std::string& path);

/// Overwrites the target. The target appears whole or not at all.
void Copy(const std::string& from, const std::string& to);

/// Replaces an existing target.
void Rename(const std::string& from, const std::string& to);

/// A missing file is an error.
void Delete(const std::string& path);

/// Deletes if it can; says whether the file is gone. Never throws.
bool TryDelete(const std::string& path) noexcept;

/// Names (not paths) of the plain files in a folder for which `wanted` is true, sorted. A missing
/// folder has none.
std::vector<std::string> List(const std::string& folder,
                              const std::function<bool(const std::string&)>& wanted);

enum class EntryKind { File, Folder, Link };

/// Calls `visit` with the name (not path) and kind of every entry of a folder, hidden ones too, in no
/// order, while the platform lists them. A link is a link wherever it leads. The name is valid during the
/// call only; entries must not be added or removed meanwhile; what `visit` throws ends the listing. A missing
/// folder has no entries.
void ForEachEntry(const std::string& folder,
                  const std::function<void(std::string_view name, EntryKind kind)>& visit);

/// Whether a folder exists and holds any entry at all.
bool HasEntries(const std::string& folder);

std::string ReadAll(const std::string& path);

/// A file read from its start in pieces. Throws FileError when it cannot be opened or read.
class Reader {
public:
    explicit Reader(const std::string& path);
    ~Reader();
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    std::uint64_t Length() const { return length_; }
    /// The next bytes, as many as asked for; fewer only at the file's end.
    std::string Read(std::size_t count);

private:
    std::string path_;
    std::uint64_t length_;
    std::unique_ptr<std::ifstream> in_;
};

/// Writes under another name and renames, so that the file holds the old or the new bytes, never a part.
/// After a failure nothing is left beside it.
void WriteWhole(const std::string& path, std::string_view bytes);

/// Name of the not yet finished copy that `WriteWhole` and `Copy` make beside a path.
std::string UnfinishedName(const std::string& path);

}  // namespace lumarin::files
