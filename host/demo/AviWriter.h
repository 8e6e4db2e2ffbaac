#pragma once

#include <string>
#include <vector>

namespace host {

/// An animation whose frames are JPEG pictures of one size.
struct Animation {
    int width = 0;
    int height = 0;
    int framesPerSecond = 0;
    std::vector<std::string> frames;
};

/// The bytes of an AVI file with one motion-JPEG video stream and an index.
std::string AviBytes(const Animation& animation);

}  // namespace host
