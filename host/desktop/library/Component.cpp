#include "host/desktop/Component.h"

#include <QAction>
#include <QCoreApplication>
#include <QPointer>
#include <QWidget>

#include <filesystem>

#include "base/FileSystem.h"
#include "host/automation/ComponentLibrary.h"
#include "host/automation/VelCommonObject.h"
#include "host/desktop/SystemPorts.h"

namespace host {

namespace {

using lumarin::automation::MakeObject;
using lumarin::automation::Variant;
using Microsoft::WRL::ComPtr;

class LibraryJob final : public ComponentJob {
public:
    LibraryJob(lumarin::automation::Object instance, ComPtr<IDispatch> common, QAction& tool)
        : instance_(std::move(instance)), common_(std::move(common)) {
        const QPointer<QAction> action(&tool);
        tool_ = MakeObject<ToolObject>([action] { return action && action->isEnabled(); },
                                       [action](bool enabled) {
                                           if (action) action->setEnabled(enabled);
                                       });
    }

    void Start(std::int32_t jobIndex) override {
        // The user may end the job from within, and this with it.
        const lumarin::automation::Object instance = instance_;
        instance.Call(L"Start", {Variant(common_.Get()), Variant(jobIndex), Variant(tool_.Get())});
    }
    void UnloadObj() override { instance_.Call(L"UnloadObj"); }

private:
    lumarin::automation::Object instance_;
    ComPtr<IDispatch> common_;
    ComPtr<IDispatch> tool_;
};

/// The component looks for the PDF library among the host's program files, and reports it when it is not
/// there.
void ProvidePdfLibrary(const std::string& dataFolder) {
    constexpr const char* Name = "QorCreatePdf.dll";
    const QString from = QCoreApplication::applicationDirPath() + '/' + Name;
    std::error_code ignored;
    std::filesystem::copy_file(from.toStdWString(), lumarin::files::ToPath(dataFolder + "program/" + Name),
                               std::filesystem::copy_options::update_existing, ignored);
}

/// The user interface's thread may make and take automation objects.
class AutomationThread {
public:
    AutomationThread() { initialised_ = SUCCEEDED(OleInitialize(nullptr)); }
    ~AutomationThread() {
        if (initialised_) OleUninitialize();
    }
    AutomationThread(const AutomationThread&) = delete;
    AutomationThread& operator=(const AutomationThread&) = delete;

private:
    bool initialised_;
};

class LibraryComponent final : public Component {
public:
    LibraryComponent(std::unique_ptr<lumarin::Scanner> testScanner, lumarin::qt::WindowSizes sizes)
        : testScanner_(std::move(testScanner)), desktop_(sizes, PortsOfThisSystem().desktop) {}

    std::unique_ptr<ComponentJob> NewJob(lumarin::VelCommon& common, QAction& tool) override {
        if (!common_) {
            auto* const window = static_cast<QWidget*>(common.MainForm().NativeWindow());
            common_ = MakeObject<VelCommonObject>(
                common, [window] { return static_cast<std::intptr_t>(window->winId()); });
        }
        return std::make_unique<LibraryJob>(library_.NewClass(), common_, tool);
    }
    lumarin::Desktop& Desktop() override { return desktop_; }
    lumarin::Scanner* Scanner() override { return testScanner_.get(); }

private:
    AutomationThread thread_;
    std::unique_ptr<lumarin::Scanner> testScanner_;
    ComponentLibrary library_;
    ComPtr<IDispatch> common_;
    lumarin::qt::QtDesktop desktop_;
};

}  // namespace

std::unique_ptr<Component> MakeComponent(const std::string& dataFolder, ScannerUse use,
                                         lumarin::qt::WindowSizes sizes) {
    ProvidePdfLibrary(dataFolder);
    // The component brings its own scanner; the demo asks this one whether there is a device for it.
    std::unique_ptr<lumarin::Scanner> testScanner;
    if (use == ScannerUse::Demo) testScanner = MakeScanner(dataFolder, use);
    return std::make_unique<LibraryComponent>(std::move(testScanner), sizes);
}

}  // namespace host
