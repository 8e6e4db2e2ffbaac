#include "host/demo/HelpFile.h"

#include "base/Files.h"

#include <QFile>

// Outside of any namespace, as the toolkit wants it.
static void UseHelpResource() { Q_INIT_RESOURCE(lumarin_help); }

namespace host {

namespace files = lumarin::files;

std::string HelpText() {
    UseHelpResource();
    QFile text(":/help/help.html");
    text.open(QIODevice::ReadOnly);
    return text.readAll().toStdString();
}

void InstallHelpFile(const std::string& path) {
    const std::string help = HelpText();
    if (!files::FileExists(path) || files::ReadAll(path) != help) files::WriteWhole(path, help);
}

}  // namespace host
