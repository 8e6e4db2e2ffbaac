#pragma once

#include "automation/library/Module.h"
#include "automation/ports/HostCommon.h"
#include "automation/ports/ToolbarTool.h"
#include "entry/job/clsLumarin.h"

#include <QorLumarin.h>

#include <atomic>
#include <memory>

namespace lumarin::automation {

/// The class `clsLumarin` as hosts see it: early callers come through the interface, late ones by name.
/// Nothing that is thrown leaves it: a failure is the call's status, with its source and description for
/// whoever asks.
class LumarinClass final : public _clsLumarin, public ISupportErrorInfo {
public:
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID language, ITypeInfo** information) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* wrong) override;

    HRESULT STDMETHODCALLTYPE Start(::VelCommon** pVelCommon, LONG JobIndex, ::Tool** MenuButton) override;
    HRESULT STDMETHODCALLTYPE UnloadObj() override;

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override;

private:
    /// What a job has of its host and of the component.
    struct Job {
        std::shared_ptr<HostCommon> common;
        ToolbarTool tool;
        clsLumarin component;
    };

    void StartJob(IUnknown* common, LONG jobIndex, IUnknown* tool);
    void EndJob();
    void InvokeStart(DISPPARAMS& parameters);

    const module::Use use_;
    std::shared_ptr<Job> job_;
    std::atomic<ULONG> references_ = 0;
};

}  // namespace lumarin::automation
