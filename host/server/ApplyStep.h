#pragma once

#include <functional>

namespace host {

/// What the server has just done: with a package, or with a document command. From `Committed` and
/// `DocumentCommitted` on, the change counts.
enum class ApplyStep {
    PackageChecked,
    PhotoWritten,
    RowsWritten,
    Committed,
    OldPhotosDeleted,
    DocumentWritten,
    DocumentRowWritten,
    DocumentCommitted,
    DocumentFileDeleted
};

/// Is told each step, so that a test can end the program right there; may be empty.
using ApplyWatcher = std::function<void(ApplyStep)>;

}  // namespace host
