#pragma once

#include <QStringList>

#include <string>
#include <vector>

#include "forms/Desktop.h"

class QWidget;

namespace lumarin::qt {

/// Name filters of the toolkit from pairs of a caption and patterns. "*.*" means every file; patterns
/// match names in lower and upper case.
QStringList NameFilters(const std::string& pairs);

/// The full paths of the chosen files; none when cancelled. `owner` may be null.
std::vector<std::string> RunFileDialog(const FileDialog& dialog, QWidget* owner);

/// The chosen file's path, with the filter's first ending where the user gave none; "" when cancelled.
std::string RunSaveDialog(const SaveDialog& dialog, QWidget* owner);

}  // namespace lumarin::qt
