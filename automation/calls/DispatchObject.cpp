#include "automation/calls/DispatchObject.h"

#include "automation/calls/Failure.h"

#include <algorithm>
#include <cwchar>

namespace lumarin::automation {

const VARIANT& Arguments::operator[](std::size_t index) const {
    static const VARIANT none{};
    return index < Count() ? parameters_.rgvarg[Count() - 1 - index] : none;
}

void Arguments::PutText(std::size_t index, const std::string& text) const {
    const VARIANT& place = (*this)[index];
    if (place.vt == (VT_BYREF | VT_BSTR)) {
        SysFreeString(*place.pbstrVal);
        *place.pbstrVal = Bstr(text).Release();
    } else if (place.vt == (VT_BYREF | VT_VARIANT)) {
        VariantClear(place.pvarVal);
        *place.pvarVal = Variant(text).Release();
    }
}

HRESULT DispatchObject::QueryInterface(REFIID iid, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IDispatch) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
}

ULONG DispatchObject::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

HRESULT DispatchObject::GetTypeInfoCount(UINT* count) {
    if (count == nullptr) return E_POINTER;
    *count = 0;
    return S_OK;
}

HRESULT DispatchObject::GetTypeInfo(UINT, LCID, ITypeInfo** information) {
    if (information != nullptr) *information = nullptr;
    return DISP_E_BADINDEX;
}

HRESULT DispatchObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
    std::fill(ids, ids + count, DISPID_UNKNOWN);
    const auto found = std::find_if(members_.begin(), members_.end(), [&](const Entry& entry) {
        return _wcsicmp(entry.name.c_str(), names[0]) == 0;
    });
    if (found == members_.end()) return DISP_E_UNKNOWNNAME;
    ids[0] = static_cast<DISPID>(found - members_.begin() + 1);
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;  // arguments have no names
}

HRESULT DispatchObject::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                               EXCEPINFO* exception, UINT*) {
    const std::size_t place = id == DISPID_VALUE ? default_ : static_cast<std::size_t>(id);
    if (place == 0 || place > members_.size()) return DISP_E_MEMBERNOTFOUND;
    const bool puts = (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    const Microsoft::WRL::ComPtr<IDispatch> self(this);  // the call may drop the last other reference
    const Function& function = puts ? members_[place - 1].put : members_[place - 1].get;
    if (!function) return DISP_E_MEMBERNOTFOUND;
    try {
        const DISPPARAMS none{};
        Variant value = function(Arguments(parameters != nullptr ? *parameters : none));
        if (result != nullptr) *result = value.Release();
        return S_OK;
    } catch (...) {
        return Report(CurrentFailure(), exception);
    }
}

}  // namespace lumarin::automation
