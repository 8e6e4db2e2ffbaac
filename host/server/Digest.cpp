#include "host/server/Digest.h"

#include <cstdint>
#include <fstream>

#include "base/FileSystem.h"

namespace host {

std::string DigestOf(const std::string& path) {
    constexpr std::uint64_t OffsetBasis = 14695981039346656037U;
    constexpr std::uint64_t Prime = 1099511628211U;
    std::uint64_t hash = OffsetBasis;
    std::uint64_t length = 0;
    std::ifstream in(lumarin::files::ToPath(path), std::ios::binary);
    char block[65536];
    while (in.read(block, sizeof block) || in.gcount() > 0) {
        for (std::streamsize i = 0; i < in.gcount(); ++i)
            hash = (hash ^ static_cast<unsigned char>(block[i])) * Prime;
        length += static_cast<std::uint64_t>(in.gcount());
    }
    return std::to_string(length) + "-" + std::to_string(hash);
}

}  // namespace host
