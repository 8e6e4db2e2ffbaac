#include "automation/library/ClassFactory.h"

#include "automation/library/LumarinClass.h"

#include <new>

namespace lumarin::automation {

namespace {

class ClassFactory final : public IClassFactory {
public:
    // There is one, for as long as the library is loaded.
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        const bool known = iid == IID_IUnknown || iid == IID_IClassFactory;
        *object = known ? static_cast<IClassFactory*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }

    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        auto* made = new (std::nothrow) LumarinClass;
        if (made == nullptr) return E_OUTOFMEMORY;
        const Microsoft::WRL::ComPtr<_clsLumarin> instance(made);
        return made->QueryInterface(iid, object);
    }

    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        module::Lock(lock != FALSE);
        return S_OK;
    }
};

}  // namespace

HRESULT GetFactory(REFCLSID wanted, REFIID iid, void** factory) {
    static auto* const one = new ClassFactory;
    if (factory == nullptr) return E_POINTER;
    *factory = nullptr;
    return wanted == __uuidof(::clsLumarin) ? one->QueryInterface(iid, factory) : CLASS_E_CLASSNOTAVAILABLE;
}

}  // namespace lumarin::automation
