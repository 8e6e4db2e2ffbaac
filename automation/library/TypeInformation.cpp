#include "automation/library/TypeInformation.h"

#include "automation/library/Module.h"

#include <wrl/client.h>

namespace lumarin::automation {

HRESULT LoadInterface(REFIID iid, ITypeInfo** information) {
    Microsoft::WRL::ComPtr<ITypeLib> library;
    const HRESULT loaded = LoadTypeLibEx(module::Path().c_str(), REGKIND_NONE, library.GetAddressOf());
    return FAILED(loaded) ? loaded : library->GetTypeInfoOfGuid(iid, information);
}

}  // namespace lumarin::automation
