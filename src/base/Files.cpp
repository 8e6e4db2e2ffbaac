#include "base/Files.h"

#include <algorithm>
#include <cerrno>
#include <fstream>

#include "base/Error.h"
#include "base/FileCalls.h"
#include "base/FileSystem.h"

namespace lumarin::files {

namespace fs = std::filesystem;

namespace {

void Check(const std::error_code& problem, const std::string& operation, const std::string& path) {
    if (problem) throw FileError(operation, path, Calls().ReasonOf(problem));
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

bool FileExists(const std::string& path) { return Calls().KindOf(ToPath(path)) == FileCalls::Kind::File; }

bool FolderExists(const std::string& path) { return Calls().KindOf(ToPath(path)) == FileCalls::Kind::Folder; }

void EnsureFolder(const std::string& path) {
    const std::error_code problem = Calls().MakeFolder(ToPath(path));
    if (!FolderExists(path))
        throw FileError("create the folder", path,
                        problem ? Calls().ReasonOf(problem) : "a file has that name");
}

std::uint64_t FileLength(const std::string& path) {
    std::error_code problem;
    const std::uint64_t length = Calls().Length(ToPath(path), problem);
    Check(problem, "read the length of", path);
    return length;
}

void Copy(const std::string& from, const std::string& to) {
    UnfinishedFile unfinished(to);
    Check(Calls().Copy(ToPath(from), ToPath(unfinished.Path())), Between("copy", from), to);
    unfinished.MoveTo(to);
}

void Rename(const std::string& from, const std::string& to) {
    Check(Calls().Replace(ToPath(from), ToPath(to)), Between("rename", from), to);
}

void Delete(const std::string& path) { Check(Calls().Remove(ToPath(path)), "delete", path); }

bool TryDelete(const std::string& path) noexcept {
    try {
        const std::error_code problem = Calls().Remove(ToPath(path));
        return !problem || problem == std::errc::no_such_file_or_directory;
    } catch (...) {
        return false;
    }
}

std::vector<std::string> List(const std::string& folder,
                              const std::function<bool(const std::string&)>& wanted) {
    std::vector<std::string> names;
    if (!FolderExists(folder)) return names;
    const std::error_code problem =
        Calls().ForEachEntry(ToPath(folder), [&](std::string_view name, EntryKind kind) {
            if (kind == EntryKind::Folder || !wanted(std::string(name))) return true;
            if (FileExists(folder + Separator + std::string(name))) names.emplace_back(name);
            return true;
        });
    Check(problem, "list", folder);
    std::sort(names.begin(), names.end());
    return names;
}

void ForEachEntry(const std::string& folder,
                  const std::function<void(std::string_view name, EntryKind kind)>& visit) {
    if (!FolderExists(folder)) return;
    const std::error_code problem =
        Calls().ForEachEntry(ToPath(folder), [&](std::string_view name, EntryKind kind) {
            visit(name, kind);
            return true;
        });
    Check(problem, "list", folder);
}

bool HasEntries(const std::string& folder) {
    bool has = false;
    const std::error_code problem =
        Calls().ForEachEntry(ToPath(folder), [&](std::string_view, EntryKind) { return !(has = true); });
    return has && !problem;
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
