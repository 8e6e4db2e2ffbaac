#pragma once

#include <memory>
#include <string>

#include "documents/builder/PdfLibrary.h"

namespace lumarin::windows {

/// Adapter: the PDF library port over a host's `QorCreatePdf.dll`. The DLL has six functions in the
/// platform's standard calling convention, with numbers of 32 bits and texts in the process's code page, and
/// says about a failure only that there was one. Any positive status counts as done.
class DllPdfLibrary final : public PdfLibrary {
public:
    DllPdfLibrary();
    ~DllPdfLibrary() override;
    DllPdfLibrary(const DllPdfLibrary&) = delete;
    DllPdfLibrary& operator=(const DllPdfLibrary&) = delete;

    /// A library that is loaded already is kept. What it needs in turn lies beside it or beside the program.
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
    struct Dll;

    /// The library's answer, 0 when it failed; `what` completes "could not ...".
    template <typename Call>
    std::int32_t Ask(const std::string& what, Call call);
    template <typename Call>
    PdfStatus Do(const std::string& what, Call call);

    std::string path_;
    std::unique_ptr<const Dll> dll_;
    std::string failure_;
};

}  // namespace lumarin::windows
