#include "platform/vips/Library.h"

#include <gmodule.h>

#include <string>

namespace lumarin::vips {

void LoadHeifReader() {
    static GModule* const module = [] {
        const std::string folder =
            "vips-modules-" + std::to_string(VIPS_MAJOR_VERSION) + "." + std::to_string(VIPS_MINOR_VERSION);
        const std::string path =
            std::string(LUMARIN_VIPS_LIBRARIES) + "/" + folder + "/vips-heif." G_MODULE_SUFFIX;
        GModule* loaded = g_module_open(path.c_str(), G_MODULE_BIND_LOCAL);
        if (loaded != nullptr) {
            g_module_make_resident(loaded);
            vips_operation_block_set(HeifReader, FALSE);
        }
        return loaded;
    }();
    static_cast<void>(module);
}

}  // namespace lumarin::vips
