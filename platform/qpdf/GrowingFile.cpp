#include "platform/qpdf/GrowingFile.h"

#include <algorithm>
#include <fstream>
#include <system_error>
#include <utility>

#include "base/Error.h"
#include "base/FileSystem.h"
#include "base/Files.h"
#include "platform/qpdf/PdfError.h"

namespace lumarin::qpdf {

namespace fs = std::filesystem;

namespace {

constexpr std::uint64_t BlockLength = 1 << 20;

bool IsFile(const std::string& path, std::uint64_t length, fs::file_time_type time) {
    std::error_code problem;
    return fs::file_size(files::ToPath(path), problem) == length && !problem &&
           fs::last_write_time(files::ToPath(path), problem) == time && !problem;
}

/// Adds a part of a file to another one.
void CopyPart(const std::string& from, std::uint64_t start, std::uint64_t end, const std::string& to) {
    std::ifstream source(files::ToPath(from), std::ios::binary);
    if (!source) throw FileError("open", from, "no such file");
    FilePipeline target(to, FilePipeline::Start::AtEnd);
    std::string block;
    source.seekg(static_cast<std::streamoff>(start));
    for (; start < end; start += block.size()) {
        block.resize(std::min(BlockLength, end - start));
        if (!source.read(block.data(), static_cast<std::streamsize>(block.size())))
            throw FileError("read", from, "it is shorter than it was");
        target.write(reinterpret_cast<const unsigned char*>(block.data()), block.size());
    }
    target.Close();
}

}  // namespace

GrowingFile::GrowingFile(std::string path)
    : path_(std::move(path)), unfinished_(files::UnfinishedName(path_)), replaced_(path_ + ".old") {}

GrowingFile::~GrowingFile() {
    if (replacedLength_ > 0) Forget();
}

void GrowingFile::Forget() noexcept {
    replacedLength_ = 0;
    files::TryDelete(unfinished_);
    files::TryDelete(replaced_);
}

void GrowingFile::Replace(std::uint64_t length, const std::function<void(FilePipeline&)>& append) {
    try {
        MakeStart(length);
        FilePipeline file(unfinished_, FilePipeline::Start::AtEnd);
        append(file);
        file.Close();
        TakePlace(length);
    } catch (...) {
        Forget();
        throw;
    }
}

void GrowingFile::MakeStart(std::uint64_t length) {
    if (length == 0) {
        FilePipeline(unfinished_).Close();
        return;
    }
    if (files::FileLength(path_) != length)
        throw PdfError("The file \"" + path_ + "\" was changed by another program.");
    if (replacedLength_ > 0 && replacedLength_ <= length &&
        IsFile(unfinished_, replacedLength_, replacedTime_)) {
        CopyPart(path_, replacedLength_, length, unfinished_);
        return;
    }
    std::error_code problem;
    fs::copy_file(files::ToPath(path_), files::ToPath(unfinished_), fs::copy_options::overwrite_existing,
                  problem);
    if (problem) throw FileError("copy", path_, problem.message());
}

// A second name keeps the replaced file; where there are no second names the next time costs a copy.
void GrowingFile::TakePlace(std::uint64_t length) {
    std::error_code problem;
    files::TryDelete(replaced_);
    if (length > 0) fs::create_hard_link(files::ToPath(path_), files::ToPath(replaced_), problem);
    const bool isKept = length > 0 && !problem;
    files::Rename(unfinished_, path_);
    replacedLength_ = 0;
    if (isKept) {
        fs::rename(files::ToPath(replaced_), files::ToPath(unfinished_), problem);
        replacedTime_ = fs::last_write_time(files::ToPath(unfinished_), problem);
        replacedLength_ = problem ? 0 : length;
    }
    writtenLength_ = files::FileLength(path_);
    writtenTime_ = fs::last_write_time(files::ToPath(path_), problem);
}

bool GrowingFile::IsAsLeft() const {
    return writtenLength_ > 0 && IsFile(path_, writtenLength_, writtenTime_);
}

}  // namespace lumarin::qpdf
