#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>

#include "automation/calls/DispatchObject.h"
#include "automation/calls/Object.h"
#include "host/automation/ComponentLibrary.h"
#include "host/automation/MainFormObject.h"
#include "support/FakeHost.h"

struct _clsLumarin;

namespace lumarin::automation {

/// Another object, but for members that fail or that it does not have. Answers IDispatch alone, as a script's
/// does.
class Faulty final : public DispatchObject {
public:
    explicit Faulty(Microsoft::WRL::ComPtr<IDispatch> inner) : inner_(std::move(inner)) {}
    enum class Fault { Fails, IsMissing, GivesNothing };
    static constexpr HRESULT Status = static_cast<HRESULT>(0x80041234);
    std::map<std::wstring, Fault> faults;

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID language,
                                            DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID language, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* wrong) override;

private:
    Microsoft::WRL::ComPtr<IDispatch> inner_;
    std::map<DISPID, std::wstring> names_;
};

/// A program with a main window and a message loop, and no toolkit.
class TestHost : public ::testing::Test {
protected:
    TestHost();
    ~TestHost() override;

    /// New objects of the same host, without faults.
    void MakeObjects();
    /// A new instance, through the library's factory.
    Microsoft::WRL::ComPtr<_clsLumarin> NewClass() const;
    HRESULT Start(_clsLumarin& job, int index = 7) const;
    /// The status that a call by name gives its caller: that within the exception, if there was one.
    static HRESULT CallByName(IDispatch& job, const wchar_t* name, std::vector<VARIANT> arguments,
                              std::string* description = nullptr);

    /// Runs messages until something holds; false when it does not within ten seconds.
    static bool Until(const std::function<bool()>& holds);
    /// The component's window of this title that is on the screen; null when there is none.
    static HWND Seen(const wchar_t* title);
    /// Closes the window of this title by its frame as soon as it is seen.
    void CloseWhenSeen(const wchar_t* title);

    static constexpr const wchar_t* PhotoWindow = L"Listing Photos";
    static constexpr const wchar_t* DocumentManager = L"Document Manager";

    testing::FakeHost host;
    bool toolEnabled = true;
    HWND window = nullptr;
    Microsoft::WRL::ComPtr<Faulty> mainForm, common, tool;

private:
    static const ::host::ComponentLibrary& Library();
    std::vector<UINT_PTR> timers_;
};

}  // namespace lumarin::automation
