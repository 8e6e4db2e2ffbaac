#pragma once

#include <windows.h>

namespace lumarin::automation {

/// For whom the class is registered.
enum class Scope { Machine, User };

/// Writes, or removes, what the system must know about the class and the type libraries. Registering again
/// repairs; removing leaves what others keep under the same keys. Gives the status of the first step that
/// failed.
HRESULT Register(Scope scope);
HRESULT Unregister(Scope scope);

}  // namespace lumarin::automation
