#include "automation/library/Toolkit.h"

#include <QApplication>
#include <QFileInfo>
#include <QThread>

#include "automation/library/Module.h"
#include "base/Error.h"
#include "platform/qt/QtDesktop.h"

namespace lumarin::automation {

namespace {

constexpr HRESULT WrongThread = RPC_E_WRONG_THREAD;

/// The toolkit itself would show a box and end the host.
void CheckPlugin(const QString& folder) {
    const QString platform = qEnvironmentVariable("QT_QPA_PLATFORM", "windows").section(':', 0, 0);
    const QString plugin = folder + "/platforms/q" + platform + ".dll";
    if (!QFileInfo::exists(plugin))
        throw Error(E_FAIL, "QorLumarin", "A part of the component is missing: " + plugin.toStdString());
}

void MakeApplication() {
    // Nothing of the process changes: not how it scales, nor when it ends. Plugins lie beside the library.
    QCoreApplication::setAttribute(Qt::AA_PluginApplication);
    const QString folder = QFileInfo(QString::fromStdWString(module::Path())).absolutePath();
    CheckPlugin(folder);
    QCoreApplication::setLibraryPaths({folder});
    static char name[] = "QorLumarin";
    static char* arguments[] = {name, nullptr};
    static int count = 1;
    auto* application = new QApplication(count, arguments);  // left to the end of the process
    QApplication::setQuitOnLastWindowClosed(false);
    qt::SetUpApplication(*application);
}

}  // namespace

void EnsureToolkit() {
    if (QCoreApplication::instance() == nullptr) return MakeApplication();
    if (qobject_cast<QApplication*>(QCoreApplication::instance()) == nullptr)
        throw Error(E_FAIL, "QorLumarin", "The program has a toolkit that shows no windows");
    if (QCoreApplication::instance()->thread() != QThread::currentThread())
        throw Error(WrongThread, "QorLumarin",
                    "The component works on one thread of a program, which is another one");
    qt::SetUpWindows();
}

}  // namespace lumarin::automation
