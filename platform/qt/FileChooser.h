#pragma once

#include <QStringList>

#include <string>

#include "forms/Desktop.h"

class QWidget;

namespace lumarin::qt {

/// Name filters of the toolkit from pairs of a caption and patterns. "*.*" means every file; patterns
/// match names in lower and upper case.
QStringList NameFilters(const std::string& pairs);

/// The answer to a file dialog: one full path, or the folder and the names, separated by the NUL
/// character; "" for no file. All files are of one folder.
std::string ChosenText(const QStringList& paths);

/// Runs the dialog. `owner` may be null.
std::string RunFileDialog(const FileDialog& dialog, QWidget* owner);

/// The chosen file's path, with the filter's first ending where the user gave none; "" when cancelled.
std::string RunSaveDialog(const SaveDialog& dialog, QWidget* owner);

}  // namespace lumarin::qt
