#pragma once

#include <string>

namespace lumarin {

/// Reads the selection of the previewing file dialog, which is one text: a folder and, after it, the names
/// of the chosen files with blanks between them.
class clsLTDlg {
public:
    /// A selection of several files as the folder and the file names, separated by the NUL character; the
    /// folder ends in a separator only when it is a root. A selection of one file comes back unchanged, as
    /// does one that holds NUL characters already.
    ///
    /// Folder and names may hold blanks. What the folder really holds decides where a name ends, and names
    /// are given as the file system writes them. Where it knows none of them, a name ends after a picture's
    /// extension followed by a blank, and is given as it stands. Never throws for a text, however odd.
    std::string NormalizeSelection(const std::string& selection) const;
};

}  // namespace lumarin
