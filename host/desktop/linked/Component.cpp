#include "host/desktop/Component.h"

#include <QAction>
#include <QPointer>

#include "base/Clock.h"
#include "entry/job/clsLumarin.h"
#include "host/desktop/SystemPorts.h"
#include "platform/qpdf/QpdfLibrary.h"
#include "platform/vips/VipsImaging.h"
#include "platform/zip/LibzipArchiver.h"

namespace host {

namespace {

class Tool final : public lumarin::HostTool {
public:
    explicit Tool(QAction& action) : action_(&action) {}
    void SetEnabled(bool enabled) override {
        if (action_) action_->setEnabled(enabled);
    }

private:
    QPointer<QAction> action_;
};

class LinkedJob final : public ComponentJob {
public:
    LinkedJob(const lumarin::ComponentPorts& ports, lumarin::VelCommon& common, QAction& tool)
        : common_(common), tool_(tool), component_(ports) {}
    void Start(std::int32_t jobIndex) override { component_.Start(common_, jobIndex, tool_); }
    void UnloadObj() override { component_.UnloadObj(); }

private:
    lumarin::VelCommon& common_;
    Tool tool_;
    lumarin::clsLumarin component_;
};

class LinkedComponent final : public Component {
public:
    LinkedComponent(const std::string& dataFolder, ScannerUse use, lumarin::qt::WindowSizes sizes)
        : scanner_(MakeScanner(dataFolder, use)), desktop_(sizes, system_.desktop) {}

    std::unique_ptr<ComponentJob> NewJob(lumarin::VelCommon& common, QAction& tool) override {
        const lumarin::ComponentPorts ports{desktop_,       imaging_, archiver_,      clock_,
                                            system_.engine, pdf_,     scanner_.get(), system_.settings};
        return std::make_unique<LinkedJob>(ports, common, tool);
    }
    lumarin::Desktop& Desktop() override { return desktop_; }
    lumarin::Scanner* Scanner() override { return scanner_.get(); }

private:
    const SystemPorts system_ = PortsOfThisSystem();
    lumarin::vips::VipsImaging imaging_{system_.decodeHeic};
    lumarin::zip::LibzipArchiver archiver_;
    lumarin::SystemClock clock_;
    lumarin::qpdf::QpdfLibrary pdf_;
    std::unique_ptr<lumarin::Scanner> scanner_;
    // Destroys windows that were given up late, and these use what stands above.
    lumarin::qt::QtDesktop desktop_;
};

}  // namespace

std::unique_ptr<Component> MakeComponent(const std::string& dataFolder, ScannerUse use,
                                         lumarin::qt::WindowSizes sizes) {
    return std::make_unique<LinkedComponent>(dataFolder, use, sizes);
}

}  // namespace host
