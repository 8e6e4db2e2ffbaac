#include "platform/qpdf/FilePipeline.h"

#include <qpdf/QUtil.hh>

#include <cerrno>
#include <cstring>
#include <utility>

#include "base/Error.h"
#include "base/FileSystem.h"
#include "base/Files.h"

namespace lumarin::qpdf {

FilePipeline::FilePipeline(const std::string& path, Start start) : Pipeline("file", nullptr), path_(path) {
    try {
        file_ = QUtil::safe_fopen(files::LibraryPath(path).c_str(), start == Start::Anew ? "wb" : "ab");
    } catch (const std::exception&) {
        Fail();
    }
}

FilePipeline::~FilePipeline() {
    if (file_ != nullptr) std::fclose(file_);
}

void FilePipeline::write(const unsigned char* data, std::size_t size) {
    if (std::fwrite(data, 1, size, file_) != size) Fail();
}

void FilePipeline::Close() {
    // Not every C library's fclose tells that the last bytes could not be written.
    if (std::fflush(file_) != 0) Fail();
    if (std::fclose(std::exchange(file_, nullptr)) != 0) Fail();
}

void FilePipeline::Fail() const { throw FileError("write", path_, std::strerror(errno)); }

void TryWriting(const std::string& path) {
    FilePipeline(path).Close();
    files::TryDelete(path);
}

}  // namespace lumarin::qpdf
