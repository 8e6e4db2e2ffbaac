#include <cstdint>
#include <string>

#include "base/Files.h"
#include "documents/DocumentFolder.h"
#include "fuzz/Promise.h"
#include "support/TemporaryFolder.h"

/// A file passes for a PDF exactly when it goes on behind the header.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const lumarin::testing::TemporaryFolder folder;
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    lumarin::files::WriteWhole(folder.Path() + "a.pdf", bytes);
    PROMISE(lumarin::IsPdfFile(folder.Path() + "a.pdf") == (size > 5 && bytes.compare(0, 5, "%PDF-") == 0));
    return 0;
}
