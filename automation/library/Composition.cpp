#include "automation/library/Composition.h"

#include <optional>

#include "automation/library/Module.h"
#include "automation/library/Toolkit.h"
#include "platform/qt/QtDesktop.h"
#include "platform/vips/VipsImaging.h"
#include "platform/windows/ClipboardBitmap.h"
#include "platform/windows/CompiledHelp.h"
#include "platform/windows/PictureCodec.h"
#include "platform/windows/ProfileSettings.h"
#include "platform/windows/ProgramVersion.h"
#include "platform/windows/WindowsFiles.h"
#include "platform/windows/pdf/DllPdfLibrary.h"
#include "platform/windows/twain/TwainScanner.h"
#include "platform/zip/LibzipArchiver.h"

namespace lumarin::automation {

struct Composition::Adapters {
    windows::WindowsFiles files;
    vips::VipsImaging imaging{windows::DecodeHeic};
    zip::LibzipArchiver archiver;
    SystemClock clock;
    windows::ProgramVersion engine;
    windows::DllPdfLibrary pdf;
    windows::ProfileSettings settings;
    windows::CompiledHelp help;
    twain::TwainScanner scanner;
    qt::QtDesktop desktop{qt::WindowSizes::WithinScreen, {&help, windows::ClipboardBitmap}};
};

Composition::Composition(std::unique_ptr<Adapters> adapters)
    : adapters_(std::move(adapters)), ports_{adapters_->desktop,  adapters_->imaging,  adapters_->archiver,
                                             adapters_->clock,    adapters_->engine,   adapters_->pdf,
                                             &adapters_->scanner, &adapters_->settings} {
    files::Use(&adapters_->files);
    adapters_->desktop.UseHostWindow([this] { return HostWindowNow(); });
}

Composition& Composition::Get() {
    EnsureToolkit();
    module::Stay();
    static auto* composition = new Composition(std::make_unique<Adapters>());
    return *composition;
}

std::shared_ptr<HostCommon> Composition::HostOf(IDispatch* common) {
    if (host_ == nullptr || !host_->Is(common))
        host_ = std::make_shared<HostCommon>(Object(common, "VelCommon"));
    return host_;
}

std::uintptr_t Composition::HostWindowNow() const {
    try {
        if (host_ != nullptr) return host_->MainWindow().SystemWindow();
    } catch (const Error&) {  // a window without an owner is better than none
    }
    return 0;
}

}  // namespace lumarin::automation
