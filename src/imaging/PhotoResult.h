#pragma once

namespace lumarin {

/// How the taking in of one photo ended, with the system's numbers. After `Skip` a caller with several
/// photos goes on with the next one, after `Cancel` it stops.
enum class PhotoResult {
    Unloaded = -1,  ///< the crop window was unloaded under the user
    Done = 0,
    Skip = 2,
    Cancel = 3
};

}  // namespace lumarin
