#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>

#include "platform/qpdf/FilePipeline.h"

namespace lumarin::qpdf {

/// A file that gets more bytes behind those that it has, and yet is replaced whole each time: it is written
/// next to the old one and renamed. So that this does not copy everything every time, the file that was
/// replaced is kept there until the next time, when it lacks only what was added since. The object takes it
/// away.
class GrowingFile {
public:
    explicit GrowingFile(std::string path);
    ~GrowingFile();
    GrowingFile(const GrowingFile&) = delete;
    GrowingFile& operator=(const GrowingFile&) = delete;

    const std::string& Path() const { return path_; }

    /// Replaces the file by its first `length` bytes and what `append` writes behind them. Throws what
    /// `append` throws, or FileError; the file is the old one then, and nothing lies beside it.
    void Replace(std::uint64_t length, const std::function<void(FilePipeline&)>& append);

    /// Whether nobody has changed the file since `Replace`.
    bool IsAsLeft() const;

private:
    void MakeStart(std::uint64_t length);
    void TakePlace(std::uint64_t length);
    void Forget() noexcept;

    std::string path_;
    std::string unfinished_;            ///< also the name of the replaced file
    std::string replaced_;              ///< its name for a moment
    std::uint64_t replacedLength_ = 0;  ///< 0 when there is none
    std::filesystem::file_time_type replacedTime_, writtenTime_;
    std::uint64_t writtenLength_ = 0;
};

}  // namespace lumarin::qpdf
