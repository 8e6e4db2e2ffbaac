#include "fuzz/Promise.h"
#include "host/server/PackageReader.h"
#include "host/server/Refusal.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

void ReadAsPackage(std::string_view bytes) {
    const host::PackageReader package = host::PackageReader::FromBytes(bytes);
    for (const host::Manifest& manifest : package.Manifests())
        for (std::size_t photo = 0; photo < manifest.photos.size(); ++photo)
            if (manifest.photos[photo].published == host::ManifestPhoto::NoneYet)
                package.ReadPhoto(manifest.listing, photo);
}

}  // namespace

/// The same bytes as a package and as a manifest: an archive's check sums let few changed manifests through.
FUZZ(std::string_view bytes) {
    try {
        ReadAsPackage(bytes);
    } catch (const host::Refusal&) {
        // A refusal is the right answer to nearly everything; nothing else may be thrown.
    }
    try {
        host::ReadManifest(bytes);
    } catch (const host::Refusal&) {
    }
}
