#include "platform/zip/LibzipArchiver.h"

#include <zip.h>

#include "base/Error.h"
#include "base/FileSystem.h"
#include "base/Files.h"
#include "base/Text.h"

namespace lumarin::zip {

namespace {

constexpr zip_int64_t WholeFile = -1;

std::string ReasonOf(int code) {
    zip_error_t error;
    zip_error_init_with_code(&error, code);
    std::string reason = zip_error_strerror(&error);
    zip_error_fini(&error);
    return reason;
}

/// An archive under construction. Nothing is written before Close; without it nothing stays.
class Archive {
public:
    explicit Archive(const std::string& path) : path_(path) {
        int code = 0;
        archive_ = zip_open(files::LibraryPath(path).c_str(), ZIP_CREATE | ZIP_TRUNCATE, &code);
        if (archive_ == nullptr) throw FileError("create", path, ReasonOf(code));
    }
    ~Archive() {
        if (archive_ != nullptr) zip_discard(archive_);
    }
    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;

    void Add(const std::string& file) {
        if (!files::FileExists(file)) throw FileError("package", file, "no such file");
        zip_source_t* source = zip_source_file(archive_, files::LibraryPath(file).c_str(), 0, WholeFile);
        if (source == nullptr) throw FileError("package", file, zip_strerror(archive_));
        const std::string name = text::AfterLastSeparator(file);
        const zip_int64_t index = zip_file_add(archive_, name.c_str(), source, ZIP_FL_ENC_GUESS);
        if (index < 0) {
            zip_source_free(source);
            throw FileError("package", file, zip_strerror(archive_));
        }
        if (zip_set_file_compression(archive_, static_cast<zip_uint64_t>(index), ZIP_CM_STORE, 0) != 0)
            throw FileError("package", file, zip_strerror(archive_));
    }

    /// Reads all files and writes the archive.
    void Close() {
        if (zip_close(archive_) != 0) throw FileError("write", path_, zip_strerror(archive_));
        archive_ = nullptr;
    }

private:
    std::string path_;
    zip_t* archive_ = nullptr;
};

}  // namespace

void LibzipArchiver::Create(const std::string& archive, const std::vector<std::string>& files) {
    const std::string unfinished = files::UnfinishedName(archive);
    try {
        Archive target(unfinished);
        for (const std::string& file : files) target.Add(file);
        target.Close();
        files::Rename(unfinished, archive);
    } catch (...) {
        files::TryDelete(unfinished);
        files::TryDelete(archive);  // an older one must not pass for this one
        throw;
    }
}

}  // namespace lumarin::zip
