#include <QByteArray>
#include <QMimeData>

#include <string>
#include <vector>

#include "fuzz/Promise.h"
#include "photo_window/ImportSelection.h"
#include "platform/qt/Conversions.h"

/// Whatever another program offers under the names that file managers use, every file that is read from it
/// is a path, and reaches the import as it was read.
FUZZ(const std::string& input) {
    const auto bytes = QByteArray::fromStdString(input);
    for (const bool isText : {false, true}) {
        QMimeData dropped;
        dropped.setData("text/uri-list", bytes);
        dropped.setData("x-special/gnome-copied-files", bytes);
        dropped.setData("application/x-kde-cutselection", bytes);
        if (isText) dropped.setText(QString::fromUtf8(bytes));

        const std::vector<std::string> files = lumarin::qt::FilesOf(dropped);
        for (const std::string& path : files) PROMISE(!path.empty() && path.find('\0') == std::string::npos);
        PROMISE(lumarin::SelectedPaths(lumarin::AsSelection(files)) == files);
    }
}
