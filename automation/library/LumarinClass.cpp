#include "automation/library/LumarinClass.h"

#include "automation/calls/Failure.h"
#include "automation/library/Composition.h"
#include "automation/library/TypeInformation.h"

namespace lumarin::automation {

namespace {

constexpr std::int32_t InvalidCall = 5, ObjectNotSet = 91;
constexpr DISPID StartId = 1, UnloadObjId = 2;
constexpr UINT StartArguments = 3;

/// An argument that a late caller gave cannot be taken.
struct BadArgument {
    HRESULT status;
    UINT place;  ///< among those that were passed
};

Microsoft::WRL::ComPtr<IDispatch> Named(IUnknown* object, const char* what) {
    Microsoft::WRL::ComPtr<IDispatch> dispatch;
    if (object == nullptr) throw Error(ObjectNotSet, "clsLumarin", std::string("Start was given no ") + what);
    if (FAILED(object->QueryInterface(IID_PPV_ARGS(dispatch.GetAddressOf()))))
        throw Error(DISP_E_TYPEMISMATCH, "clsLumarin",
                    std::string("Start was given a ") + what + " whose members cannot be called by name");
    return dispatch;
}

/// Runs a call of the host's, who may drop the instance meanwhile.
template <class Work>
HRESULT Guarded(IUnknown* instance, Work work) noexcept {
    const Microsoft::WRL::ComPtr<IUnknown> held(instance);
    SetErrorInfo(0, nullptr);
    try {
        work();
        return S_OK;
    } catch (...) {
        return Report(CurrentFailure());
    }
}

}  // namespace

HRESULT LumarinClass::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid == IID_IUnknown || iid == IID_IDispatch || iid == __uuidof(_clsLumarin))
        *object = static_cast<_clsLumarin*>(this);
    else if (iid == IID_ISupportErrorInfo)
        *object = static_cast<ISupportErrorInfo*>(this);
    else
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

ULONG LumarinClass::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT LumarinClass::InterfaceSupportsErrorInfo(REFIID iid) {
    return iid == __uuidof(_clsLumarin) || iid == IID_IDispatch ? S_OK : S_FALSE;
}

HRESULT LumarinClass::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT LumarinClass::GetTypeInfo(UINT index, LCID, ITypeInfo** information) {
    if (information == nullptr) return E_POINTER;
    *information = nullptr;
    return index == 0 ? LoadInterface(__uuidof(_clsLumarin), information) : DISP_E_BADINDEX;
}

HRESULT LumarinClass::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (names == nullptr || ids == nullptr) return E_POINTER;
    Microsoft::WRL::ComPtr<ITypeInfo> information;
    const HRESULT loaded = LoadInterface(__uuidof(_clsLumarin), information.GetAddressOf());
    return FAILED(loaded) ? loaded : DispGetIDsOfNames(information.Get(), names, count, ids);
}

/// The arguments may be objects that answer IDispatch alone, by value or by reference, which the type
/// library's own way of calling would refuse.
void LumarinClass::InvokeStart(DISPPARAMS& parameters) {
    constexpr VARTYPE Types[StartArguments] = {VT_DISPATCH, VT_I4, VT_DISPATCH};
    Variant values[StartArguments];
    for (UINT place = 0; place < StartArguments; ++place) {
        UINT which = 0;
        const HRESULT taken = DispGetParam(&parameters, place, Types[place], values[place].Address(), &which);
        if (FAILED(taken)) throw BadArgument{taken, which};
    }
    StartJob(values[0].Get().pdispVal, values[1].Get().lVal, values[2].Get().pdispVal);
}

HRESULT LumarinClass::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                             EXCEPINFO* exception, UINT* wrong) {
    if ((id != StartId && id != UnloadObjId) || (kind & DISPATCH_METHOD) == 0) return DISP_E_MEMBERNOTFOUND;
    if (parameters == nullptr) return E_POINTER;
    if (parameters->cArgs != (id == StartId ? StartArguments : 0)) return DISP_E_BADPARAMCOUNT;
    if (result != nullptr) VariantInit(result);
    const Microsoft::WRL::ComPtr<IDispatch> held(this);
    try {
        if (id == StartId)
            InvokeStart(*parameters);
        else
            EndJob();
        return S_OK;
    } catch (const BadArgument& bad) {
        if (wrong != nullptr) *wrong = bad.place;
        return bad.status;
    } catch (...) {
        return Report(CurrentFailure(), exception);
    }
}

HRESULT LumarinClass::Start(::VelCommon** pVelCommon, LONG JobIndex, ::Tool** MenuButton) {
    return Guarded(static_cast<_clsLumarin*>(this), [&] {
        StartJob(pVelCommon != nullptr ? *pVelCommon : nullptr, JobIndex,
                 MenuButton != nullptr ? *MenuButton : nullptr);
    });
}

HRESULT LumarinClass::UnloadObj() {
    return Guarded(static_cast<_clsLumarin*>(this), [&] { EndJob(); });
}

void LumarinClass::StartJob(IUnknown* common, LONG jobIndex, IUnknown* tool) {
    const auto services = Named(common, "VelCommon");
    const auto button = Named(tool, "MenuButton");
    if (job_ != nullptr)
        throw Error(InvalidCall, "clsLumarin", "Start was called before; an instance is one job");
    Composition& composition = Composition::Get();
    job_.reset(new Job{composition.HostOf(services.Get()), ToolbarTool(Object(button, "MenuButton")),
                       clsLumarin(composition.Ports())});
    const std::shared_ptr<Job> job = job_;
    job->component.Start(*job->common, jobIndex, job->tool);
}

void LumarinClass::EndJob() {
    const std::shared_ptr<Job> job = job_;
    if (job == nullptr) throw Error(ObjectNotSet, "clsLumarin", "No job was started");
    job->component.UnloadObj();
}

}  // namespace lumarin::automation
