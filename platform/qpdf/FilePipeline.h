#pragma once

#include <qpdf/Pipeline.hh>

#include <cstdio>
#include <string>

namespace lumarin::qpdf {

/// The end of a pipeline: a new file, or more of one. Every byte that could not be written is an error; the
/// library's own writing to files does not notice when the last ones fail.
class FilePipeline final : public Pipeline {
public:
    enum class Start { Anew, AtEnd };

    /// Throws FileError, as the other functions.
    explicit FilePipeline(const std::string& path, Start start = Start::Anew);
    ~FilePipeline() override;
    FilePipeline(const FilePipeline&) = delete;
    FilePipeline& operator=(const FilePipeline&) = delete;

    void write(const unsigned char* data, std::size_t size) override;
    void finish() override {}
    void Close();

private:
    [[noreturn]] void Fail() const;

    std::string path_;
    std::FILE* file_ = nullptr;
};

/// Throws FileError when no such file could be written; leaves nothing behind.
void TryWriting(const std::string& path);

}  // namespace lumarin::qpdf
