#pragma once

namespace lumarin::automation {

/// Makes sure that the process has the toolkit's application, of which there is one: the host's own, or one
/// of ours, which leaves the process as it is and runs in the host's message loop. Throws Error when that
/// cannot be, or on another thread than the application's.
void EnsureToolkit();

}  // namespace lumarin::automation
