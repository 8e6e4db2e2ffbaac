#pragma once

#include <map>
#include <memory>
#include <string>

#include "documents/builder/PdfLibrary.h"

namespace lumarin::qpdf {

class PdfDocument;

/// Adapter: the PDF library port over QPDF. Pictures go into the document as they lie in their PNG file; only
/// those of one bit per pixel are packed again, for fax, where that is smaller. What is added is kept in
/// memory until the document is closed, so a document holds about as much memory as its new pages have bytes.
///
/// The last closed document is remembered without its pictures, so that opening it again and adding a page
/// costs the same however many pages it has. Meanwhile a second file ".part" lies beside it, which goes with
/// the library or the next document.
class QpdfLibrary final : public PdfLibrary {
public:
    QpdfLibrary();
    ~QpdfLibrary() override;
    QpdfLibrary(const QpdfLibrary&) = delete;
    QpdfLibrary& operator=(const QpdfLibrary&) = delete;

    PdfStatus Load(const std::string& libraryPath) override;
    PdfHandle AdultPdfCreate(const std::string& path) override;
    PdfHandle AdultPdfOpen(const std::string& path) override;
    PdfStatus AdultPdfAddInfo(PdfHandle handle, const std::string& title, const std::string& subject,
                              const std::string& creator, const std::string& keywords,
                              const std::string& author) override;
    PdfStatus AdultPdfSetFunction(PdfHandle handle, PdfFunction function, std::int32_t first,
                                  std::int32_t second, const std::string& third,
                                  const std::string& fourth) override;
    PdfStatus AdultPdfAddImage(PdfHandle handle, const std::string& imagePath) override;
    PdfStatus AdultPdfClose(PdfHandle handle) override;
    std::string LastFailure() const override { return failure_; }

private:
    template <typename Step>
    PdfStatus Guarded(Step step);
    PdfHandle Begin(std::unique_ptr<PdfDocument> document);
    PdfDocument& DocumentOf(PdfHandle handle);
    void RefuseOpenPath(const std::string& path) const;

    std::map<PdfHandle, std::unique_ptr<PdfDocument>> documents_;
    std::unique_ptr<PdfDocument> closed_;  ///< the last one, which will likely be opened for the next page
    PdfHandle lastHandle_ = 0;
    std::string failure_;
};

}  // namespace lumarin::qpdf
