#pragma once

#include <functional>
#include <string>

#include "forms/Desktop.h"
#include "imaging/Scanner.h"

namespace lumarin {

/// Acquires pictures with the progress window above `window`, which takes no input meanwhile. Throws what
/// the scanner and `pageArrived` throw.
ScanOutcome AcquirePictures(Desktop& desktop, Form& window, Scanner& scanner, const ScanOrder& order,
                            const std::function<AfterPage(const ScannedPage&)>& pageArrived);

/// Asks whether there is another original to be put on the glass.
AfterPage AskForNextPicture(Desktop& desktop, const Form& window);

/// Lets the user choose the source to acquire from; `current` when the user cancelled, or there is none.
std::string ChooseSource(Desktop& desktop, const Form& window, Scanner& scanner, const std::string& current);

}  // namespace lumarin
