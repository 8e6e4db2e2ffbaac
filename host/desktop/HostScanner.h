#pragma once

#include <memory>
#include <string>

#include "imaging/Scanner.h"

namespace host {

enum class ScannerUse {
    Usual,
    Demo,  ///< nothing but a device that draws its pictures itself, if there is one
};

/// The scanners that this platform's library reaches; null where the program was built without one. Its own
/// files, if any, lie in the data folder's sub-folder "scanner".
std::unique_ptr<lumarin::Scanner> MakeScanner(const std::string& dataFolder, ScannerUse use);

}  // namespace host
