#include "platform/windows/pdf/DllPdfLibrary.h"

#include <windows.h>

#include <filesystem>
#include <stdexcept>
#include <type_traits>

#include "base/FileSystem.h"
#include "base/Files.h"
#include "platform/windows/pdf/CodePageText.h"

namespace lumarin::windows {

namespace {

struct ModuleCloser {
    void operator()(HMODULE module) const { FreeLibrary(module); }
};
using Module = std::unique_ptr<std::remove_pointer_t<HMODULE>, ModuleCloser>;

std::string LoadingFailure(const std::string& path, DWORD code) {
    const std::string what = "The PDF library \"" + path + "\" ";
    if (!files::FileExists(path)) return what + "is missing.";
    if (code == ERROR_MOD_NOT_FOUND)
        return what + "cannot be loaded: another library that it needs is missing.";
    if (code == ERROR_BAD_EXE_FORMAT)
        return what + "cannot be loaded: it is damaged or made for another kind of program.";
    return what + "cannot be loaded (error " + std::to_string(code) + " of the system).";
}

Module LoadModule(const std::string& path) {
    const std::filesystem::path file = files::ToPath(files::Absolute(path));
    Module module(LoadLibraryExW(file.c_str(), nullptr,
                                 LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS));
    if (!module) throw std::runtime_error(LoadingFailure(path, GetLastError()));
    return module;
}

using Text = const char*;
using Number = std::int32_t;

}  // namespace

struct DllPdfLibrary::Dll {
    template <typename... Arguments>
    using Function = Number(__stdcall*)(Arguments...);

    explicit Dll(const std::string& path)
        : module(LoadModule(path)),
          create(Find<Function<Text>>(path, "AdultPdfCreate")),
          open(Find<Function<Text>>(path, "AdultPdfOpen")),
          addInfo(Find<Function<Number, Text, Text, Text, Text, Text>>(path, "AdultPdfAddInfo")),
          setFunction(
              Find<Function<Number, Number, Number, Number, Text, Text>>(path, "AdultPdfSetFunction")),
          addImage(Find<Function<Number, Text>>(path, "AdultPdfAddImage")),
          close(Find<Function<Number>>(path, "AdultPdfClose")) {}

    template <typename Type>
    Type Find(const std::string& path, const char* name) const {
        const FARPROC found = GetProcAddress(module.get(), name);
        if (found == nullptr)
            throw std::runtime_error("The PDF library \"" + path + "\" has no function \"" + name + "\".");
        return reinterpret_cast<Type>(reinterpret_cast<void*>(found));
    }

    Module module;
    Function<Text> create;
    Function<Text> open;
    Function<Number, Text, Text, Text, Text, Text> addInfo;
    Function<Number, Number, Number, Number, Text, Text> setFunction;
    Function<Number, Text> addImage;
    Function<Number> close;
};

DllPdfLibrary::DllPdfLibrary() = default;
DllPdfLibrary::~DllPdfLibrary() = default;

PdfStatus DllPdfLibrary::Load(const std::string& libraryPath) {
    failure_.clear();
    if (dll_ && path_ == libraryPath) return PdfStatus::Done;
    dll_.reset();
    try {
        dll_ = std::make_unique<const Dll>(libraryPath);
        path_ = libraryPath;
        return PdfStatus::Done;
    } catch (const std::exception& error) {
        failure_ = error.what();
        return PdfStatus::Failed;
    }
}

template <typename Call>
std::int32_t DllPdfLibrary::Ask(const std::string& what, Call call) {
    failure_.clear();
    try {
        if (!dll_) throw std::runtime_error("The PDF library is not loaded.");
        const std::int32_t answer = call(*dll_);
        if (answer > 0) return answer;
        failure_ = "The PDF library could not " + what + ".";
    } catch (const std::exception& error) {
        failure_ = error.what();
    }
    return 0;
}

template <typename Call>
PdfStatus DllPdfLibrary::Do(const std::string& what, Call call) {
    return Ask(what, call) > 0 ? PdfStatus::Done : PdfStatus::Failed;
}

PdfHandle DllPdfLibrary::AdultPdfCreate(const std::string& path) {
    return Ask("create the file \"" + path + "\"",
               [&](const Dll& dll) { return dll.create(ToProcessCodePagePath(path).c_str()); });
}

PdfHandle DllPdfLibrary::AdultPdfOpen(const std::string& path) {
    return Ask("open the file \"" + path + "\"",
               [&](const Dll& dll) { return dll.open(ToProcessCodePagePath(path).c_str()); });
}

PdfStatus DllPdfLibrary::AdultPdfAddInfo(PdfHandle handle, const std::string& title,
                                         const std::string& subject, const std::string& creator,
                                         const std::string& keywords, const std::string& author) {
    return Do("write the document's properties", [&](const Dll& dll) {
        return dll.addInfo(handle, ToProcessCodePage(title).c_str(), ToProcessCodePage(subject).c_str(),
                           ToProcessCodePage(creator).c_str(), ToProcessCodePage(keywords).c_str(),
                           ToProcessCodePage(author).c_str());
    });
}

PdfStatus DllPdfLibrary::AdultPdfSetFunction(PdfHandle handle, PdfFunction function, std::int32_t first,
                                             std::int32_t second, const std::string& third,
                                             const std::string& fourth) {
    const char* what = function == PdfFunction::PageSize && first == 0 ? "end the page"
                       : function == PdfFunction::PageSize             ? "begin a page"
                                                                       : "place the picture on its page";
    return Do(what, [&](const Dll& dll) {
        return dll.setFunction(handle, static_cast<std::int32_t>(function), first, second,
                               ToProcessCodePage(third).c_str(), ToProcessCodePage(fourth).c_str());
    });
}

PdfStatus DllPdfLibrary::AdultPdfAddImage(PdfHandle handle, const std::string& imagePath) {
    return Do("add the picture \"" + imagePath + "\"",
              [&](const Dll& dll) { return dll.addImage(handle, ToProcessCodePagePath(imagePath).c_str()); });
}

PdfStatus DllPdfLibrary::AdultPdfClose(PdfHandle handle) {
    return Do("write the document", [&](const Dll& dll) { return dll.close(handle); });
}

}  // namespace lumarin::windows
