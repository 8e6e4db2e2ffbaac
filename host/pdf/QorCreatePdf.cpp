#include <windows.h>

#include <cstdint>
#include <exception>
#include <string>

#include "platform/qpdf/QpdfLibrary.h"

// The reference host's PDF library as a DLL: six functions with texts in the process's code page, named in
// QorCreatePdf.def. What they do stands in documents/builder/PdfLibrary.h. They answer 0 for whatever fails.

namespace {

using lumarin::PdfFunction;
using lumarin::PdfHandle;

lumarin::qpdf::QpdfLibrary& Library() {
    static lumarin::qpdf::QpdfLibrary library;
    return library;
}

/// A text that is not there counts as empty.
std::string Utf8(const char* text) {
    if (text == nullptr) return {};
    std::wstring wide(MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0), L'\0');
    const int length = MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), static_cast<int>(wide.size()));
    std::string utf8(WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr),
                     '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(), static_cast<int>(utf8.size()), nullptr,
                        nullptr);
    if (!utf8.empty()) utf8.pop_back();  // the end mark, which was converted too
    return utf8;
}

/// Nothing thrown may reach a caller in another language.
template <typename Call>
std::int32_t Answer(Call call) noexcept {
    try {
        return static_cast<std::int32_t>(call());
    } catch (const std::exception&) {
        return 0;
    }
}

}  // namespace

extern "C" {

std::int32_t __stdcall AdultPdfCreate(const char* path) {
    return Answer([&] { return Library().AdultPdfCreate(Utf8(path)); });
}

std::int32_t __stdcall AdultPdfOpen(const char* path) {
    return Answer([&] { return Library().AdultPdfOpen(Utf8(path)); });
}

std::int32_t __stdcall AdultPdfAddInfo(PdfHandle handle, const char* title, const char* subject,
                                       const char* creator, const char* keywords, const char* author) {
    return Answer([&] {
        return Library().AdultPdfAddInfo(handle, Utf8(title), Utf8(subject), Utf8(creator), Utf8(keywords),
                                         Utf8(author));
    });
}

std::int32_t __stdcall AdultPdfSetFunction(PdfHandle handle, std::int32_t function, std::int32_t first,
                                           std::int32_t second, const char* third, const char* fourth) {
    return Answer([&] {
        return Library().AdultPdfSetFunction(handle, static_cast<PdfFunction>(function), first, second,
                                             Utf8(third), Utf8(fourth));
    });
}

std::int32_t __stdcall AdultPdfAddImage(PdfHandle handle, const char* imagePath) {
    return Answer([&] { return Library().AdultPdfAddImage(handle, Utf8(imagePath)); });
}

std::int32_t __stdcall AdultPdfClose(PdfHandle handle) {
    return Answer([&] { return Library().AdultPdfClose(handle); });
}

}  // extern "C"
