// A host of the component without any toolkit: a main window with a button for each of the two windows.
//   host FOLDER [photos|documents]
// FOLDER ends in "\". With a second argument that job is started at once, and the program ends with it. The
// library lies beside the program, which finds it by its manifest.
#include <windows.h>

#include <QorLumarin.h>

#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using Arguments = std::vector<VARIANT*>;  // in the order in which they are declared

VARIANT Nothing() { return {}; }
VARIANT Number(LONG number) {
    VARIANT value{};
    value.vt = VT_I4;
    value.lVal = number;
    return value;
}
VARIANT Truth(bool truth) {
    VARIANT value{};
    value.vt = VT_BOOL;
    value.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    return value;
}
VARIANT Text(const std::wstring& text) {
    VARIANT value{};
    value.vt = VT_BSTR;
    value.bstrVal = SysAllocString(text.c_str());
    return value;
}
VARIANT TextOrNull(const wchar_t* text) {
    VARIANT null{};
    null.vt = VT_NULL;
    return text != nullptr ? Text(text) : null;
}
/// The object is referred to once more.
VARIANT ObjectValue(IDispatch* object) {
    VARIANT value{};
    value.vt = VT_DISPATCH;
    value.pdispVal = object;
    object->AddRef();
    return value;
}
std::wstring TextOf(const VARIANT* value) {
    VARIANT text{};
    if (FAILED(VariantChangeType(&text, const_cast<VARIANT*>(value), 0, VT_BSTR))) return {};
    std::wstring result(text.bstrVal, SysStringLen(text.bstrVal));
    VariantClear(&text);
    return result;
}

/// An object whose members are called by name. The component asks for nothing more.
class Named : public IDispatch {
public:
    using Member = std::function<VARIANT(const Arguments&)>;
    explicit Named(std::vector<std::pair<const wchar_t*, Member>> members) : members_(std::move(members)) {}
    virtual ~Named() = default;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
        const bool known = iid == IID_IUnknown || iid == IID_IDispatch;
        *object = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }
    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return *count = 0, S_OK; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        for (std::size_t place = 0; place < members_.size(); ++place)
            if (_wcsicmp(names[0], members_[place].first) == 0)
                return *ids = static_cast<DISPID>(place), S_OK;
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO*,
                        UINT*) override {
        if (id < 0 || static_cast<std::size_t>(id) >= members_.size()) return DISP_E_MEMBERNOTFOUND;
        Arguments arguments;
        for (UINT last = parameters->cArgs; last > 0; --last)
            arguments.push_back(&parameters->rgvarg[last - 1]);
        VARIANT value = members_[static_cast<std::size_t>(id)].second(arguments);
        if (result != nullptr)
            *result = value;
        else
            VariantClear(&value);
        return S_OK;
    }

private:
    std::vector<std::pair<const wchar_t*, Member>> members_;
    ULONG references_ = 0;
};

/// One listing, or none. A field's value is that of the current row.
VARIANT Rows(bool found) {
    static const auto value = [](const std::wstring& column) {
        if (column == L"ListNum") return Number(1001);
        if (column == L"StreetName") return Text(L"Main St");
        return TextOrNull(column == L"ListAgentId" ? L"ME" : nullptr);
    };
    auto atEnd = std::make_shared<bool>(!found);
    const auto end = [atEnd](const Arguments&) { return *atEnd = true, Nothing(); };
    return ObjectValue(new Named({
        {L"EOF", [atEnd](const Arguments&) { return Truth(*atEnd); }},
        {L"BOF", [found](const Arguments&) { return Truth(!found); }},
        {L"State", [](const Arguments&) { return Number(1); }},
        {L"RecordCount", [found](const Arguments&) { return Number(found ? 1 : 0); }},
        {L"MoveFirst", [atEnd, found](const Arguments&) { return *atEnd = !found, Nothing(); }},
        {L"MoveNext", end},
        {L"Find", end},  // of published photos, which there are not
        {L"Close", [](const Arguments&) { return Nothing(); }},
        {L"Fields",
         [](const Arguments& arguments) {
             const std::wstring column = TextOf(arguments.at(0));
             return ObjectValue(
                 new Named({{L"Value", [column](const Arguments&) { return value(column); }}}));
         }},
    }));
}

/// A service for everything: it finds one listing, and takes every file and every command.
VARIANT Service(const Arguments&) {
    return ObjectValue(new Named({
        {L"Execute",
         [](const Arguments& arguments) {
             const std::wstring sql = TextOf(arguments.at(1));
             return Rows(sql.find(L"Listings.ListNum = 1001") != std::wstring::npos ||
                         sql.find(L"WHERE Listnum = 1001") != std::wstring::npos);
         }},
        {L"UploadPhotoFile", [](const Arguments&) { return Nothing(); }},
        {L"BatchUpdate", [](const Arguments&) { return Number(0); }},
        {L"Update", [](const Arguments&) { return Truth(false); }},
    }));
}

HWND mainWindow = nullptr;
LONG whichWindow = 0;
_clsLumarin* job = nullptr;
bool onlyJob = false;

void EndJob() {
    job->UnloadObj();
    job->Release();
    job = nullptr;
    if (onlyJob) PostQuitMessage(0);
}

Named* MakeTool() {
    return new Named({{L"Enabled", [](const Arguments& arguments) {
                           const bool enabled = !arguments.empty() && arguments[0]->boolVal != VARIANT_FALSE;
                           for (const int button : {1, 2})
                               EnableWindow(GetDlgItem(mainWindow, button), enabled);
                           std::printf("tool %s\n", enabled ? "on" : "off");
                           return Nothing();
                       }}});
}

Named* MakeCommon(const std::wstring& folder) {
    const auto text = [](const std::wstring& value) {
        return [value](const Arguments&) { return Text(value); };
    };
    auto* mainForm = new Named({
        {L"hWnd",
         [](const Arguments&) { return Number(static_cast<LONG>(reinterpret_cast<LONG_PTR>(mainWindow))); }},
        {L"Switch", [](const Arguments&) { return Number(whichWindow); }},
    });
    return new Named({
        {L"MainForm", [mainForm](const Arguments&) { return ObjectValue(mainForm); }},
        {L"EndJob",
         [](const Arguments& arguments) {
             std::printf("job %ls ended\n", TextOf(arguments.at(0)).c_str());
             return EndJob(), Nothing();
         }},
        {L"ProgramFolder", text(folder)},
        {L"CityFolder", text(folder)},
        {L"UserFolder", text(folder)},
        {L"ConnectionName", text(L"SMALL")},
        {L"AgentId", text(L"ME")},
        {L"OfficeId", text(L"OFFICE")},
        {L"HelpFilePath", text(folder + L"help.html")},
        {L"IsOnline", [](const Arguments&) { return Truth(true); }},
        {L"ServiceBroker",
         [](const Arguments&) {
             return ObjectValue(new Named({{L"GetClassInstance", Service}}));
         }},
    });
}

Named *common = nullptr, *tool = nullptr;

void StartJob(LONG which) {
    whichWindow = which;
    if (FAILED(CoCreateInstance(__uuidof(clsLumarin), nullptr, CLSCTX_INPROC_SERVER, __uuidof(_clsLumarin),
                                reinterpret_cast<void**>(&job))))
        return std::puts("the library cannot be loaded"), PostQuitMessage(1);
    // Objects that answer by name alone are taken where the interface asks for VelCommon and Tool.
    IDispatch *services = common, *button = tool;
    _clsLumarin* const started = job;
    started->AddRef();  // the user may end the job from within
    const HRESULT status =
        started->Start(reinterpret_cast<VelCommon**>(&services), 7, reinterpret_cast<Tool**>(&button));
    started->Release();
    if (SUCCEEDED(status)) return;
    IErrorInfo* information = nullptr;
    BSTR reason = nullptr;
    if (GetErrorInfo(0, &information) == S_OK) information->GetDescription(&reason);
    std::printf("not started: %ls (%08lx)\n", reason != nullptr ? reason : L"",
                static_cast<unsigned long>(status));
    PostQuitMessage(1);
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM word, LPARAM number) {
    if (message == WM_COMMAND && job == nullptr) StartJob(LOWORD(word) == 2 ? 1 : 0);
    if (message == WM_CLOSE && job != nullptr) EndJob();
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcW(window, message, word, number);
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 2) return std::puts("host FOLDER [photos|documents]"), 2;
    OleInitialize(nullptr);
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = OnMessage;
    windowClass.lpszClassName = L"Host";
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW);
    RegisterClassW(&windowClass);
    mainWindow = CreateWindowW(L"Host", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 60, 60, 320, 120, nullptr,
                               nullptr, nullptr, nullptr);
    for (const auto& [id, title] : {std::pair{1, L"&Photos"}, {2, L"&Documents"}})
        CreateWindowW(L"BUTTON", title, WS_CHILD | WS_VISIBLE | WS_TABSTOP, 20 + 140 * (id - 1), 20, 120, 30,
                      mainWindow, reinterpret_cast<HMENU>(static_cast<LONG_PTR>(id)), nullptr, nullptr);
    (common = MakeCommon(arguments[1]))->AddRef();
    (tool = MakeTool())->AddRef();
    onlyJob = count > 2;
    if (onlyJob) PostMessageW(mainWindow, WM_COMMAND, std::wstring(arguments[2]) == L"documents" ? 2 : 1, 0);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}
