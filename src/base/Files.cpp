#include "base/Files.h"

#include <algorithm>
#include <fstream>
#include <type_traits>

#include "base/Error.h"
#include "base/FileSystem.h"

namespace lumarin::files {

namespace fs = std::filesystem;

namespace {

/// The file name of a path that a listing gave, without taking the whole path apart where it is UTF-8.
template <class Path>
auto LastPart(const Path& path) {
    if constexpr (std::is_same_v<typename Path::value_type, char>) {
        const std::string_view whole = path.native();
        return whole.substr(whole.rfind(static_cast<char>(Path::preferred_separator)) + 1);
    } else {
        return ToUtf8(path.filename());
    }
}

void Check(const std::error_code& problem, const char* operation, const std::string& path) {
    if (problem) throw FileError(operation, path, problem.message());
}

/// An operation with two files: the first one is named with it, the second one is the error's path.
std::string Between(const std::string& operation, const std::string& from) {
    return operation + " \"" + from + "\" to";
}

/// Removes the unfinished copy unless the work beside the file came to its end.
class UnfinishedFile {
public:
    explicit UnfinishedFile(const std::string& path) : path_(UnfinishedName(path)) {}
    ~UnfinishedFile() {
        if (!kept_) TryDelete(path_);
    }
    UnfinishedFile(const UnfinishedFile&) = delete;
    UnfinishedFile& operator=(const UnfinishedFile&) = delete;

    const std::string& Path() const { return path_; }
    void MoveTo(const std::string& target) {
        Rename(path_, target);
        kept_ = true;
    }

private:
    std::string path_;
    bool kept_ = false;
};

}  // namespace

const std::string Separator(1, static_cast<char>(fs::path::preferred_separator));

std::string FixedPath(std::string_view text) {
    std::string path(text);
    std::replace(path.begin(), path.end(), '\\', Separator.front());
    return path;
}

bool FileExists(const std::string& path) {
    std::error_code ignored;
    return fs::is_regular_file(ToPath(path), ignored);
}

bool FolderExists(const std::string& path) {
    std::error_code ignored;
    return fs::is_directory(ToPath(path), ignored);
}

void EnsureFolder(const std::string& path) {
    std::error_code problem;
    fs::create_directories(ToPath(path), problem);
    if (!FolderExists(path))
        throw FileError("create the folder", path, problem ? problem.message() : "a file has that name");
}

std::uint64_t FileLength(const std::string& path) {
    std::error_code problem;
    const std::uint64_t length = fs::file_size(ToPath(path), problem);
    Check(problem, "read the length of", path);
    return length;
}

void Copy(const std::string& from, const std::string& to) {
    UnfinishedFile unfinished(to);
    std::error_code problem;
    fs::copy_file(ToPath(from), ToPath(unfinished.Path()), fs::copy_options::overwrite_existing, problem);
    if (problem) throw FileError(Between("copy", from), to, problem.message());
    unfinished.MoveTo(to);
}

void Rename(const std::string& from, const std::string& to) {
    std::error_code problem;
    fs::rename(ToPath(from), ToPath(to), problem);
    if (problem) throw FileError(Between("rename", from), to, problem.message());
}

void Delete(const std::string& path) {
    std::error_code problem;
    const bool deleted = fs::remove(ToPath(path), problem);
    Check(problem, "delete", path);
    if (!deleted) throw FileError("delete", path, "no such file");
}

bool TryDelete(const std::string& path) noexcept {
    try {
        std::error_code problem;
        fs::remove(ToPath(path), problem);
        return !problem;
    } catch (...) {
        return false;
    }
}

std::vector<std::string> List(const std::string& folder,
                              const std::function<bool(const std::string&)>& wanted) {
    std::vector<std::string> names;
    std::error_code problem;
    if (!FolderExists(folder)) return names;
    for (fs::directory_iterator entry(ToPath(folder), problem), end; !problem && entry != end;
         entry.increment(problem)) {
        std::error_code ignored;
        if (!entry->is_regular_file(ignored)) continue;
        std::string name = ToUtf8(entry->path().filename());
        if (wanted(name)) names.push_back(std::move(name));
    }
    Check(problem, "list", folder);
    std::sort(names.begin(), names.end());
    return names;
}

void ForEachEntry(const std::string& folder,
                  const std::function<void(std::string_view name, EntryKind kind)>& visit) {
    std::error_code problem;
    if (!FolderExists(folder)) return;
    for (fs::directory_iterator entry(ToPath(folder), problem), end; !problem && entry != end;
         entry.increment(problem)) {
        // The kind comes with the listing: asking the file itself would cost more than all the rest.
        std::error_code ignored;
        const EntryKind kind = entry->is_symlink(ignored)     ? EntryKind::Link
                               : entry->is_directory(ignored) ? EntryKind::Folder
                                                              : EntryKind::File;
        visit(LastPart(entry->path()), kind);
    }
    Check(problem, "list", folder);
}

bool HasEntries(const std::string& folder) {
    std::error_code problem;
    const fs::directory_iterator first(ToPath(folder), problem);
    return !problem && first != fs::directory_iterator();
}

std::string ReadAll(const std::string& path) {
    errno = 0;
    std::ifstream in(ToPath(path), std::ios::binary);
    if (!in) throw FileError("open", path, LastReason());
    std::string bytes;
    char block[65536];
    while (in.read(block, sizeof block) || in.gcount() > 0)
        bytes.append(block, static_cast<std::size_t>(in.gcount()));
    if (in.bad()) throw FileError("read", path, LastReason());
    return bytes;
}

Reader::Reader(const std::string& path) : path_(path), length_(FileLength(path)) {
    errno = 0;
    in_ = std::make_unique<std::ifstream>(ToPath(path), std::ios::binary);
    if (!*in_) throw FileError("open", path, LastReason());
}

Reader::~Reader() = default;

std::string Reader::Read(std::size_t count) {
    std::string bytes(count, '\0');
    errno = 0;
    in_->read(bytes.data(), static_cast<std::streamsize>(count));
    if (in_->bad()) throw FileError("read", path_, LastReason());
    bytes.resize(static_cast<std::size_t>(in_->gcount()));
    return bytes;
}

void WriteWhole(const std::string& path, std::string_view bytes) {
    UnfinishedFile unfinished(path);
    errno = 0;
    std::ofstream out(ToPath(unfinished.Path()), std::ios::binary | std::ios::trunc);
    if (!out) throw FileError("write", path, LastReason());
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    if (!out) throw FileError("write", path, LastReason());
    unfinished.MoveTo(path);
}

std::string UnfinishedName(const std::string& path) { return path + ".part"; }

}  // namespace lumarin::files
