#pragma once

#include "automation/calls/Bstr.h"
#include "base/Error.h"

#include <windows.h>

#include <exception>
#include <string>

namespace lumarin::automation {

/// A failure as it crosses the border: the status, where it arose and what it was.
struct Failure {
    HRESULT status = E_FAIL;
    std::string source;
    std::string description;
};

/// For a `catch (...)` block: what is being thrown. An error's own number is the status; a number that is not
/// one is put among the platform's errors of controls (91 becomes 0x800A005B).
Failure CurrentFailure() noexcept;

/// Hands a failure to whoever called, as the last thing that is done; gives its status.
HRESULT Report(const Failure& failure) noexcept;
HRESULT Report(const Failure& failure, EXCEPINFO* exception) noexcept;

/// The error that a call which ended so stands for. `what` names the call in the description, should there be
/// none. `exception` is emptied.
Error ErrorOf(HRESULT status, EXCEPINFO& exception, const std::string& what);

}  // namespace lumarin::automation
