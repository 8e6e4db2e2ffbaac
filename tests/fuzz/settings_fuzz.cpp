#include <string>

#include "entry/SettingsText.h"
#include "fuzz/Promise.h"

/// Whatever the file holds, a value that is written is read back, and another value stays what it was.
FUZZ(const std::string& bytes) {
    namespace settings = lumarin::settings;
    const auto before = settings::FindValue(bytes, "Photos", "Default Import Dir");
    const std::string written = settings::WithValue(bytes, "Lumarin", "FilePreview", "True");
    PROMISE(settings::FindValue(written, "Lumarin", "FilePreview") == "True");
    PROMISE(settings::FindValue(written, "Photos", "Default Import Dir") == before);
    PROMISE(settings::WithValue(written, "Lumarin", "FilePreview", "True") == written);
}
