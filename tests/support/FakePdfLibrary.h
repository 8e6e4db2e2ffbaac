#pragma once

#include <string>
#include <vector>

#include "base/Files.h"
#include "base/Text.h"
#include "documents/builder/PdfLibrary.h"

namespace lumarin::testing {

/// A PDF library that keeps every call as a line and, on closing, a file as long as its pages' pictures
/// and `overhead`, which begins with the length of each picture: "%PDF- 100 200".
class FakePdfLibrary final : public PdfLibrary {
public:
    std::vector<std::string> calls;
    std::size_t overhead = 0, pageOverhead = 0;  ///< bytes of a document and a page besides the pictures
    bool failsToClose = false;

    PdfStatus Load(const std::string& path) override { return Called("load " + path); }
    PdfHandle AdultPdfCreate(const std::string& path) override { return Begin("create", path, 0); }
    PdfHandle AdultPdfOpen(const std::string& path) override {
        return Begin("open", path, files::FileLength(path) - overhead);
    }
    PdfStatus AdultPdfAddInfo(PdfHandle, const std::string& title, const std::string& subject,
                              const std::string& creator, const std::string& keywords,
                              const std::string& author) override {
        return Called("info " + title + "," + subject + "," + creator + "," + keywords + "," + author);
    }
    PdfStatus AdultPdfSetFunction(PdfHandle, PdfFunction function, std::int32_t first, std::int32_t second,
                                  const std::string& third, const std::string& fourth) override {
        return Called(std::to_string(static_cast<int>(function)) + " " + std::to_string(first) + "," +
                      std::to_string(second) + "," + third + "," + fourth);
    }
    PdfStatus AdultPdfAddImage(PdfHandle, const std::string& imagePath) override {
        const auto bytes = files::FileLength(imagePath);
        length_ += bytes + pageOverhead;
        pages_ += " " + std::to_string(bytes);
        return Called("image");
    }
    PdfStatus AdultPdfClose(PdfHandle) override {
        pages_.resize(length_ + overhead, ' ');
        if (!failsToClose) files::WriteWhole(path_, pages_);
        return Called("close", failsToClose);
    }
    std::string LastFailure() const override { return "the library failed"; }

private:
    PdfStatus Called(const std::string& call, bool fails = false) {
        calls.push_back(call);
        return fails ? PdfStatus::Failed : PdfStatus::Done;
    }
    PdfHandle Begin(const std::string& call, const std::string& path, std::size_t length) {
        path_ = path;
        length_ = length;
        pages_ = length > 0 ? std::string(text::Trim(files::ReadAll(path))) : "%PDF-";
        Called(call);
        return 7;
    }

    std::string path_, pages_;
    std::size_t length_ = 0;
};

}  // namespace lumarin::testing
