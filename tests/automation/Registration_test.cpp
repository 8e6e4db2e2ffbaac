#include <windows.h>

#include <initguid.h>
// After it: here the identifiers of the type libraries are defined.
#include <QorLumarin.h>

#include <atomic>
#include <thread>

#include "automation/TestHost.h"

namespace lumarin::automation {

namespace {

HRESULT Install(bool install, const wchar_t* command) {
    const auto call = reinterpret_cast<HRESULT(STDAPICALLTYPE*)(BOOL, LPCWSTR)>(
        reinterpret_cast<void*>(GetProcAddress(LoadLibraryW(L"QorLumarin.dll"), "DllInstall")));
    return call(install, command);
}

}  // namespace

/// What the other apartment's calls of a class give their caller.
struct Answers {
    HRESULT started = E_FAIL, ended = E_FAIL, endedAgain = E_FAIL;
};

class RegistrationTest : public TestHost {
protected:
    /// The system carries each call to this thread, and its objects to the other one.
    Answers UseFromAnotherApartment(_clsLumarin& job) {
        Microsoft::WRL::ComPtr<IStream> carried[3];
        CoMarshalInterThreadInterfaceInStream(__uuidof(_clsLumarin), &job, carried[0].GetAddressOf());
        CoMarshalInterThreadInterfaceInStream(IID_IDispatch, common.Get(), carried[1].GetAddressOf());
        CoMarshalInterThreadInterfaceInStream(IID_IDispatch, tool.Get(), carried[2].GetAddressOf());
        Answers answers;
        std::atomic<bool> done = false;
        std::thread caller([&] {
            CoInitializeEx(nullptr, COINIT_MULTITHREADED);
            {
                Microsoft::WRL::ComPtr<_clsLumarin> there;
                Microsoft::WRL::ComPtr<IDispatch> services, button;
                CoUnmarshalInterface(carried[0].Get(), IID_PPV_ARGS(there.GetAddressOf()));
                CoUnmarshalInterface(carried[1].Get(), IID_PPV_ARGS(services.GetAddressOf()));
                CoUnmarshalInterface(carried[2].Get(), IID_PPV_ARGS(button.GetAddressOf()));
                const Variant given[] = {Variant(services.Get()), Variant(std::int32_t{7}),
                                         Variant(button.Get())};
                answers.started =
                    CallByName(*there.Get(), L"Start", {given[0].Get(), given[1].Get(), given[2].Get()});
                answers.ended = there->UnloadObj();
                answers.endedAgain = there->UnloadObj();
            }
            CoUninitialize();
            done = true;
        });
        EXPECT_TRUE(Until([&] { return done.load(); }));
        caller.join();
        return answers;
    }
};

TEST_F(RegistrationTest, Registered_MakesTheClassForHostsAndForOtherApartments) {
    ASSERT_EQ(Install(true, L""), S_OK);
    CLSID id;
    ASSERT_EQ(CLSIDFromProgID(L"QorLumarin.clsLumarin", &id), S_OK);
    Microsoft::WRL::ComPtr<_clsLumarin> job, other;
    ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(job.GetAddressOf())), S_OK);
    EXPECT_EQ(Start(*job.Get()), S_OK);
    EXPECT_EQ(job->UnloadObj(), S_OK);
    Microsoft::WRL::ComPtr<ITypeLib> types;
    EXPECT_EQ(LoadRegTypeLib(LIBID_QorVelCommon, 1, 0, 0, types.GetAddressOf()), S_OK);

    ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(other.GetAddressOf())), S_OK);
    const Answers answers = UseFromAnotherApartment(*other.Get());
    EXPECT_EQ(answers.started, S_OK);
    EXPECT_EQ(answers.ended, S_OK);
    EXPECT_EQ(answers.endedAgain, static_cast<HRESULT>(0x800A005B));

    EXPECT_EQ(Install(false, L""), S_OK);
    EXPECT_NE(CLSIDFromProgID(L"QorLumarin.clsLumarin", &id), S_OK);
    EXPECT_EQ(Install(true, L"everybody"), E_INVALIDARG);
}

TEST_F(TestHost, Start_OnAnotherThread_Fails) {
    const auto first = NewClass(), second = NewClass();
    ASSERT_EQ(Start(*first.Get()), S_OK);
    HRESULT started = S_OK;
    std::thread([&] { started = Start(*second.Get()); }).join();
    EXPECT_EQ(started, RPC_E_WRONG_THREAD);
    EXPECT_EQ(first->UnloadObj(), S_OK);
}

}  // namespace lumarin::automation
