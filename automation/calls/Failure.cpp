#include "automation/calls/Failure.h"

#include <windows.h>
#include <wrl/client.h>

#include <cstdio>

namespace lumarin::automation {

namespace {

HRESULT StatusOf(std::int32_t number) {
    if (number < 0) return number;
    if (number == 0 || number > 0xffff) return E_FAIL;
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, number);
}

std::string SystemText(HRESULT status) {
    wchar_t text[512];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  static_cast<DWORD>(status), 0, text, 512, nullptr);
    while (length > 0 && text[length - 1] <= L' ') --length;
    char code[16];
    std::snprintf(code, sizeof code, "0x%08lX", static_cast<unsigned long>(status));
    Bstr system;
    if (length > 0) *system.Address() = SysAllocStringLen(text, length);
    return length > 0 ? system.Text() + " (" + code + ")" : code;
}

}  // namespace

Failure CurrentFailure() noexcept try {
    try {
        throw;
    } catch (const Error& error) {
        return {StatusOf(error.Number()), error.Source(), error.Description()};
    } catch (const std::bad_alloc&) {
        return {E_OUTOFMEMORY, "QorLumarin", "There is not enough memory"};
    } catch (const std::exception& error) {
        return {E_FAIL, "QorLumarin", error.what()};
    } catch (...) {
        return {E_FAIL, "QorLumarin", "An unknown failure"};
    }
} catch (...) {
    return {E_OUTOFMEMORY, {}, {}};  // not even the text could be kept
}

HRESULT Report(const Failure& failure) noexcept try {
    Microsoft::WRL::ComPtr<ICreateErrorInfo> create;
    Microsoft::WRL::ComPtr<IErrorInfo> information;
    if (FAILED(CreateErrorInfo(create.GetAddressOf()))) return failure.status;
    create->SetSource(Bstr(failure.source).Get());
    create->SetDescription(Bstr(failure.description).Get());
    if (SUCCEEDED(create.As(&information))) SetErrorInfo(0, information.Get());
    return failure.status;
} catch (...) {
    return failure.status;
}

HRESULT Report(const Failure& failure, EXCEPINFO* exception) noexcept try {
    if (exception == nullptr) return failure.status;
    *exception = {};
    exception->scode = failure.status;
    exception->bstrSource = Bstr(failure.source).Release();
    exception->bstrDescription = Bstr(failure.description).Release();
    return DISP_E_EXCEPTION;
} catch (...) {
    return failure.status;
}

Error ErrorOf(HRESULT status, EXCEPINFO& exception, const std::string& what) {
    if (status == DISP_E_EXCEPTION && exception.pfnDeferredFillIn != nullptr)
        exception.pfnDeferredFillIn(&exception);
    Bstr source, description, help;
    *source.Address() = exception.bstrSource;
    *description.Address() = exception.bstrDescription;
    *help.Address() = exception.bstrHelpFile;
    if (status == DISP_E_EXCEPTION) {
        if (exception.scode != 0)
            status = exception.scode;
        else if (exception.wCode != 0)
            status = StatusOf(exception.wCode);
    }
    exception = {};
    const std::string reason = description.Text();
    return Error(status, source.Text().empty() ? "automation" : source.Text(),
                 reason.empty() ? what + " failed: " + SystemText(status) : reason);
}

}  // namespace lumarin::automation
