#pragma once

#include <string>

namespace host {

/// Makes the demo data where it is missing: folders and settings, the listings of two boards and companies
/// with their published photos, the animation that plays during a send, and the help file. Quick when it is
/// there. Killed halfway it begins again at the next start. Call it before the data folder is used
/// otherwise; needs no application object. Throws lumarin::Error.
void SeedData(const std::string& dataFolder);

}  // namespace host
