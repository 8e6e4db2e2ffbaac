#include <string>

#include "base/Files.h"
#include "fuzz/Promise.h"
#include "support/TemporaryFolder.h"
#include "util/DocumentFolder.h"

/// A file passes for a PDF exactly when it goes on behind the header.
FUZZ(const std::string& bytes) {
    static const lumarin::testing::TemporaryFolder folder;
    lumarin::files::WriteWhole(folder.Path() + "a.pdf", bytes);
    PROMISE(lumarin::IsPdfFile(folder.Path() + "a.pdf") == (bytes.size() > 5 && bytes.starts_with("%PDF-")));
}
