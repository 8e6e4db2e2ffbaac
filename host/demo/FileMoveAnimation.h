#pragma once

#include "host/demo/AviWriter.h"

namespace host {

/// Sheets that fly from a folder to the server, drawn; the last frame leads over to the first.
Animation DrawFileMove();

}  // namespace host
