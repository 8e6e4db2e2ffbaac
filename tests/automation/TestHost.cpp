#include "automation/TestHost.h"

#include <QorLumarin.h>

#include <algorithm>
#include <chrono>

#include "host/automation/VelCommonObject.h"

namespace lumarin::automation {

namespace {

std::map<UINT_PTR, std::wstring> awaited;

void CALLBACK CloseAwaited(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND seen = FindWindowW(nullptr, awaited[timer].c_str());
    if (seen == nullptr || !IsWindowVisible(seen)) return;
    KillTimer(nullptr, timer);
    PostMessageW(seen, WM_CLOSE, 0, 0);
}

}  // namespace

HRESULT Faulty::GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID language, DISPID* ids) {
    const auto fault = faults.find(names[0]);
    if (fault != faults.end() && fault->second == Fault::IsMissing) return DISP_E_UNKNOWNNAME;
    const HRESULT found = inner_->GetIDsOfNames(iid, names, count, language, ids);
    if (SUCCEEDED(found)) names_[ids[0]] = names[0];
    return found;
}

HRESULT Faulty::Invoke(DISPID id, REFIID iid, LCID language, WORD kind, DISPPARAMS* parameters,
                       VARIANT* result, EXCEPINFO* exception, UINT* wrong) {
    const auto fault = faults.find(names_[id]);
    if (fault == faults.end())
        return inner_->Invoke(id, iid, language, kind, parameters, result, exception, wrong);
    if (fault->second == Fault::GivesNothing) return S_OK;
    *exception = {};
    exception->scode = Status;
    exception->bstrSource = Bstr("host").Release();
    exception->bstrDescription = Bstr("out of order").Release();
    return DISP_E_EXCEPTION;
}

TestHost::TestHost() {
    OleInitialize(nullptr);
    window = CreateWindowW(L"STATIC", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 40, 40, 400, 200, nullptr,
                           nullptr, GetModuleHandleW(nullptr), nullptr);
    MakeObjects();
}

void TestHost::MakeObjects() {
    const auto handle = [this] { return reinterpret_cast<std::intptr_t>(window); };
    VelCommon& services = host;
    mainForm = MakeObject<Faulty>(MakeObject<::host::MainFormObject>(services.MainForm(), handle));
    common = MakeObject<Faulty>(MakeObject<::host::VelCommonObject>(services, handle));
    tool = MakeObject<Faulty>(MakeObject<::host::ToolObject>(
        [this] { return toolEnabled; }, [this](bool enabled) { toolEnabled = enabled; }));
}

TestHost::~TestHost() {
    for (const UINT_PTR timer : timers_) KillTimer(nullptr, timer);
    DestroyWindow(window);
    OleUninitialize();
}

const ::host::ComponentLibrary& TestHost::Library() {
    static const ::host::ComponentLibrary library;
    return library;
}

Microsoft::WRL::ComPtr<_clsLumarin> TestHost::NewClass() const {
    Microsoft::WRL::ComPtr<_clsLumarin> job;
    Library().NewClass().Pointer()->QueryInterface(IID_PPV_ARGS(job.GetAddressOf()));
    return job;
}

HRESULT TestHost::Start(_clsLumarin& job, int index) const {
    auto* services = static_cast<IDispatch*>(common.Get());
    auto* button = static_cast<IDispatch*>(tool.Get());
    return job.Start(reinterpret_cast<::VelCommon**>(&services), index, reinterpret_cast<::Tool**>(&button));
}

HRESULT TestHost::CallByName(IDispatch& job, const wchar_t* name, std::vector<VARIANT> arguments,
                             std::string* description) {
    auto* asked = const_cast<wchar_t*>(name);
    DISPID id = 0;
    const HRESULT found = job.GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id);
    if (FAILED(found)) return found;
    std::reverse(arguments.begin(), arguments.end());
    DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
    EXCEPINFO exception{};
    const HRESULT status = job.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                      nullptr, &exception, nullptr);
    Bstr source, text;
    *source.Address() = exception.bstrSource;
    *text.Address() = exception.bstrDescription;
    if (description != nullptr) *description = text.Text();
    return status == DISP_E_EXCEPTION ? exception.scode : status;
}

bool TestHost::Until(const std::function<bool()>& holds) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end) return false;
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
    return true;
}

HWND TestHost::Seen(const wchar_t* title) {
    const HWND found = FindWindowW(nullptr, title);
    return found != nullptr && IsWindowVisible(found) ? found : nullptr;
}

void TestHost::CloseWhenSeen(const wchar_t* title) {
    const UINT_PTR timer = SetTimer(nullptr, 0, 20, &CloseAwaited);
    awaited[timer] = title;
    timers_.push_back(timer);
}

}  // namespace lumarin::automation
