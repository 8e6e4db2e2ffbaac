#include <QorLumarin.h>

#include "automation/TestHost.h"
#include "base/Files.h"

namespace lumarin::automation {

namespace {

constexpr HRESULT NotSet = static_cast<HRESULT>(0x800A005B), InvalidCall = static_cast<HRESULT>(0x800A0005);
using Fault = Faulty::Fault;

/// What a failed call has left for whoever asks.
std::string Reason() {
    Microsoft::WRL::ComPtr<IErrorInfo> information;
    Bstr text;
    if (GetErrorInfo(0, information.GetAddressOf()) == S_OK) information->GetDescription(text.Address());
    return text.Text();
}

/// How the host's window was while a modal one was shown, and what owned that.
struct Meanwhile {
    HWND host;
    bool enabled;
    HWND owner;
} meanwhile;

void CALLBACK LookAndClose(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND active = GetActiveWindow();
    if (active == nullptr || active == meanwhile.host) return;
    KillTimer(nullptr, timer);
    meanwhile.enabled = IsWindowEnabled(meanwhile.host) != FALSE;
    meanwhile.owner = GetWindow(active, GW_OWNER);
    PostMessageW(active, WM_CLOSE, 0, 0);
}

VARIANT ReferenceToObject(const Variant& holder) {
    VARIANT reference = holder.Get();
    reference.vt = VT_BYREF | VT_DISPATCH;
    reference.ppdispVal = const_cast<IDispatch**>(&holder.Get().pdispVal);
    return reference;
}

}  // namespace

TEST_F(TestHost, Start_AsTheMainFormSwitches_OpensAWindowAndEndsItForTheHostOrTheFrame) {
    for (const auto& [which, title] : {std::pair{0, PhotoWindow}, {2, PhotoWindow}, {1, DocumentManager}}) {
        for (const bool byFrame : {false, true}) {
            SCOPED_TRACE(which + 10 * byFrame);
            const auto job = NewClass();
            host.switchValue = which;
            host.endedJobs.clear();
            host.onEndJob = [&](int) { EXPECT_EQ(job->UnloadObj(), S_OK); };
            if (which == 1) CloseWhenSeen(L"Listing Number");
            ASSERT_EQ(Start(*job.Get(), 4711), S_OK) << Reason();
            EXPECT_FALSE(toolEnabled);
            ASSERT_TRUE(Until([&] { return Seen(title) != nullptr; }));
            EXPECT_EQ(GetWindow(Seen(title), GW_OWNER), window);
            SendMessageW(window, WM_SYSCOMMAND, SC_MINIMIZE, 0);
            EXPECT_TRUE(Until([&] { return Seen(title) == nullptr; }));
            SendMessageW(window, WM_SYSCOMMAND, SC_RESTORE, 0);
            EXPECT_TRUE(Until([&] { return Seen(title) != nullptr; }));
            if (byFrame)
                PostMessageW(Seen(title), WM_CLOSE, 0, 0);
            else
                EXPECT_EQ(job->UnloadObj(), S_OK);
            EXPECT_TRUE(Until([&] { return Seen(title) == nullptr && toolEnabled; }));
            EXPECT_EQ(host.endedJobs, byFrame ? std::vector<int>{4711} : std::vector<int>());
            EXPECT_EQ(job->UnloadObj(), NotSet);
        }
    }
}

TEST_F(TestHost, Start_ByNameWithArgumentsOfEveryForm_OpensTheWindow) {
    Variant services(common.Get()), button(tool.Get()), number(std::int32_t{9}), text("9");
    const std::vector<VARIANT> forms[] = {
        {services.Get(), number.Get(), button.Get()},
        {ReferenceToObject(services), text.Get(), ReferenceToObject(button)},
        {Variant::ReferenceToWhole(services).Get(), Variant::ReferenceToWhole(number).Get(),
         Variant::ReferenceToWhole(button).Get()},
    };
    for (const std::vector<VARIANT>& arguments : forms) {
        const auto job = NewClass();
        EXPECT_EQ(CallByName(*job.Get(), L"start", arguments), S_OK);
        EXPECT_NE(Seen(PhotoWindow), nullptr);
        EXPECT_EQ(CallByName(*job.Get(), L"UNLOADOBJ", {}), S_OK);
        EXPECT_TRUE(toolEnabled);
    }
}

TEST_F(TestHost, Start_WithWhatItCannotUse_FailsAndSaysWhy) {
    const Variant services(common.Get()), button(tool.Get()), nothing(static_cast<IDispatch*>(nullptr)),
        number(std::int32_t{3}), word("three");
    const struct {
        const char* name;
        const wchar_t* member;
        std::vector<VARIANT> arguments;
        HRESULT status;
        const char* reason;
    } cases[] = {
        {"no services", L"Start", {nothing.Get(), number.Get(), button.Get()}, NotSet, "no VelCommon"},
        {"no tool", L"Start", {services.Get(), number.Get(), nothing.Get()}, NotSet, "no MenuButton"},
        {"services are a number",
         L"Start",
         {number.Get(), number.Get(), button.Get()},
         DISP_E_TYPEMISMATCH,
         ""},
        {"tool is empty", L"Start", {services.Get(), number.Get(), VARIANT{}}, DISP_E_TYPEMISMATCH, ""},
        {"index is a word", L"Start", {services.Get(), word.Get(), button.Get()}, DISP_E_TYPEMISMATCH, ""},
        {"two arguments", L"Start", {services.Get(), number.Get()}, DISP_E_BADPARAMCOUNT, ""},
        {"not started", L"UnloadObj", {}, NotSet, "No job was started"},
        {"an argument too many", L"UnloadObj", {number.Get()}, DISP_E_BADPARAMCOUNT, ""},
        {"unknown member", L"Stop", {}, DISP_E_UNKNOWNNAME, ""},
    };
    for (const auto& [name, member, arguments, status, reason] : cases) {
        SCOPED_TRACE(name);
        const auto job = NewClass();
        std::string description;
        EXPECT_EQ(CallByName(*job.Get(), member, arguments, &description), status);
        EXPECT_NE(description.find(reason), std::string::npos) << description;
        EXPECT_TRUE(toolEnabled);
    }
    const auto job = NewClass();
    EXPECT_EQ(job->Start(nullptr, 1, nullptr), NotSet);
    EXPECT_NE(Reason().find("no VelCommon"), std::string::npos);
    EXPECT_EQ(Start(*job.Get()), S_OK);
    EXPECT_EQ(Start(*job.Get()), InvalidCall);
    EXPECT_EQ(job->UnloadObj(), S_OK);
    Microsoft::WRL::ComPtr<ISupportErrorInfo> support;
    ASSERT_EQ(job->QueryInterface(IID_PPV_ARGS(support.GetAddressOf())), S_OK);
    EXPECT_EQ(support->InterfaceSupportsErrorInfo(__uuidof(_clsLumarin)), S_OK);
}

TEST_F(TestHost, Start_MemberOfTheHostFails_GivesItsStatusAndKeepsTheStepsDone) {
    const struct {
        Microsoft::WRL::ComPtr<Faulty>& object;
        const wchar_t* member;
        Fault fault;
        HRESULT status;
        const char* reason;
        bool toolEnabled;
    } cases[] = {
        {tool, L"Enabled", Fault::Fails, Faulty::Status, "out of order", true},
        {tool, L"Enabled", Fault::IsMissing, DISP_E_UNKNOWNNAME, "\"Enabled\"", true},
        {common, L"HelpFilePath", Fault::Fails, Faulty::Status, "out of order", false},
        {common, L"HelpFilePath", Fault::IsMissing, DISP_E_UNKNOWNNAME, "\"HelpFilePath\"", false},
        {common, L"MainForm", Fault::Fails, Faulty::Status, "out of order", false},
        {common, L"MainForm", Fault::GivesNothing, E_POINTER, "MainForm", false},
    };
    for (const auto& [object, member, fault, status, reason, enabled] : cases) {
        SCOPED_TRACE(reason);
        MakeObjects();
        const auto job = NewClass();
        object->faults[member] = fault;
        EXPECT_EQ(Start(*job.Get()), status);
        EXPECT_NE(Reason().find(reason), std::string::npos);
        EXPECT_EQ(toolEnabled, enabled);
        EXPECT_EQ(Seen(PhotoWindow), nullptr);
        EXPECT_EQ(job->UnloadObj(), object.Get() == tool.Get() ? status : S_OK);
        EXPECT_TRUE(toolEnabled);
    }
}

TEST_F(TestHost, Start_HostFailsAtEveryOtherMember_NeitherCrashesNorStaysHalfOpen) {
    for (const wchar_t* member :
         {L"EndJob", L"ProgramFolder", L"CityFolder", L"UserFolder", L"ConnectionName", L"AgentId",
          L"OfficeId", L"IsOnline", L"ServiceBroker", L"IsOffline", L"UserLevel", L"UserBoardId",
          L"ManagedOffices", L"HasSeveralOffices", L"PhotoFolder", L"StreetDirectionCaption",
          L"ShowsStreetDirection", L"PhotoDescriptions", L"ListingStatuses"})
        for (const Fault fault : {Fault::Fails, Fault::IsMissing, Fault::GivesNothing}) {
            const auto job = NewClass();
            MakeObjects();
            common->faults = {{member, fault}};
            CloseWhenSeen(L"Lumarin");
            const HRESULT started = Start(*job.Get());
            EXPECT_TRUE(started == S_OK || !Reason().empty());
            EXPECT_EQ(job->UnloadObj(), S_OK);
            EXPECT_TRUE(toolEnabled);
            EXPECT_EQ(Seen(PhotoWindow), nullptr);
        }
}

TEST_F(TestHost, Start_TwoInstances_EndEachByItself) {
    const auto first = NewClass(), second = NewClass();
    ASSERT_EQ(Start(*first.Get(), 1), S_OK);
    const HWND firstWindow = Seen(PhotoWindow);
    host.switchValue = 1;
    CloseWhenSeen(L"Listing Number");
    ASSERT_EQ(Start(*second.Get(), 2), S_OK);
    ASSERT_NE(Seen(DocumentManager), nullptr);
    EXPECT_EQ(first->UnloadObj(), S_OK);
    EXPECT_TRUE(Until([&] { return !IsWindowVisible(firstWindow); }));
    host.onEndJob = [&](int) { second->UnloadObj(); };
    PostMessageW(Seen(DocumentManager), WM_CLOSE, 0, 0);
    EXPECT_TRUE(Until([&] { return !host.endedJobs.empty(); }));
    EXPECT_EQ(host.endedJobs, std::vector<int>{2});
}

TEST_F(TestHost, ModalWindow_WhileItIsShown_HostTakesNoInputAndGetsItsFocusBack) {
    const HWND edit = CreateWindowW(L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 100, 20, window, nullptr,
                                    GetModuleHandleW(nullptr), nullptr);
    SetForegroundWindow(window);
    SetFocus(edit);
    host.offline = true;  // so it says, before it is shown
    host.switchValue = 1;
    const auto job = NewClass();
    host.onEndJob = [&](int) { job->UnloadObj(); };
    meanwhile = {window, true, nullptr};
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, &LookAndClose);
    EXPECT_EQ(Start(*job.Get()), S_OK);
    KillTimer(nullptr, timer);
    EXPECT_FALSE(meanwhile.enabled);
    EXPECT_EQ(meanwhile.owner, window);
    EXPECT_TRUE(IsWindowEnabled(window));
    EXPECT_EQ(GetFocus(), edit);
    EXPECT_EQ(host.endedJobs, std::vector<int>{7});
}

}  // namespace lumarin::automation
