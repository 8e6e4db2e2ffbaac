#include "base/FileCalls.h"

#include <cerrno>
#include <cstring>
#include <type_traits>

#include "base/FileSystem.h"

namespace lumarin::files {

namespace fs = std::filesystem;

namespace {

const FileCalls Standard;
const FileCalls* used = &Standard;

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

}  // namespace

FileCalls::Kind FileCalls::KindOf(const Path& path) const {
    std::error_code ignored;
    switch (fs::status(path, ignored).type()) {
        case fs::file_type::regular:
            return Kind::File;
        case fs::file_type::directory:
            return Kind::Folder;
        case fs::file_type::none:
        case fs::file_type::not_found:
            return Kind::None;
        default:
            return Kind::Other;
    }
}

std::uint64_t FileCalls::Length(const Path& file, std::error_code& problem) const {
    return fs::file_size(file, problem);
}

std::error_code FileCalls::MakeFolder(const Path& folder) const {
    std::error_code problem;
    fs::create_directories(folder, problem);
    return problem;
}

std::error_code FileCalls::Copy(const Path& from, const Path& to) const {
    std::error_code problem;
    fs::copy_file(from, to, fs::copy_options::overwrite_existing, problem);
    return problem;
}

std::error_code FileCalls::Replace(const Path& from, const Path& to) const {
    std::error_code problem;
    fs::rename(from, to, problem);
    return problem;
}

std::error_code FileCalls::Remove(const Path& path) const {
    std::error_code problem;
    const bool removed = fs::remove(path, problem);
    return removed || problem ? problem : std::make_error_code(std::errc::no_such_file_or_directory);
}

std::error_code FileCalls::ForEachEntry(const Path& folder, const Visit& visit) const {
    std::error_code problem;
    for (fs::directory_iterator entry(folder, problem), end; !problem && entry != end;
         entry.increment(problem)) {
        // The kind comes with the listing: asking the file itself would cost more than all the rest.
        std::error_code ignored;
        const EntryKind kind = entry->is_symlink(ignored)     ? EntryKind::Link
                               : entry->is_directory(ignored) ? EntryKind::Folder
                                                              : EntryKind::File;
        if (!visit(LastPart(entry->path()), kind)) break;
    }
    return problem;
}

std::string FileCalls::ReasonOf(const std::error_code& problem) const { return problem.message(); }

std::string FileCalls::LastReason() const { return errno != 0 ? std::strerror(errno) : "input/output error"; }

void Use(const FileCalls* calls) { used = calls != nullptr ? calls : &Standard; }

const FileCalls& Calls() { return *used; }

}  // namespace lumarin::files
