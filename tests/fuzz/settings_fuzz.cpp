#include <string>

#include "entry/Settings.h"
#include "fuzz/Promise.h"

/// Whatever the file holds, a value that is written is read back, and another value stays what it was.
FUZZ(const std::string& bytes) {
    namespace settings = lumarin::settings;
    std::string before, after, value;
    const bool had = settings::FindValue(bytes, "Photos", "Default Import Dir", before);
    const std::string written = settings::WithValue(bytes, "Lumarin", "FilePreview", "True");
    PROMISE(settings::FindValue(written, "Lumarin", "FilePreview", value) && value == "True");
    PROMISE(settings::FindValue(written, "Photos", "Default Import Dir", after) == had);
    PROMISE(before == after);
    PROMISE(settings::WithValue(written, "Lumarin", "FilePreview", "True") == written);
}
