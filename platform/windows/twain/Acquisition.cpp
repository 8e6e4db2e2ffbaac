#include "platform/windows/twain/Acquisition.h"

#include <utility>

namespace lumarin::twain {

using State = DataSource::State;

std::vector<TW_IDENTITY> SourcesNamed(SourceManager& manager, const std::string& name) {
    std::vector<TW_IDENTITY> sources = manager.Sources();
    std::erase_if(sources, [&](const TW_IDENTITY& source) {
        return !name.empty() && TextOf(source.ProductName) != name;
    });
    return sources;
}

void Acquisition::Open(const ScanOrder& order, const std::string& usualSource) {
    if (cancelled_) return;
    window_ = std::make_unique<EventWindow>(owner_);
    handle_ = window_->Handle();
    manager_ = std::make_unique<SourceManager>(window_->Handle());
    const auto sources = SourcesNamed(*manager_, order.source.empty() ? usualSource : order.source);
    if (sources.empty()) throw ScannerError(NoScannerSource);
    source_ = std::make_unique<DataSource>(*manager_, sources.front());
    several_ = order.several;
    source_->Configure(order);
    thread_.SetFilter([this](MSG& message) {
        if (source_->CurrentState() < State::Enabled) return false;
        if (message.hwnd == nullptr && message.message == WM_NULL) message.hwnd = window_->Handle();
        return source_->TakeMessage(message);
    });
}

std::optional<Acquisition::Page> Acquisition::NextPage() {
    if (cancelled_) return std::nullopt;
    if (source_->CurrentState() == State::Open) source_->Enable(window_->Handle());
    while (!cancelled_ && !IsReady()) {
        if (source_->WantsToClose()) return std::nullopt;
        thread_.RunMessages();
    }
    if (cancelled_) return std::nullopt;
    std::optional<Picture> picture = source_->Transfer();
    if (!picture) return std::nullopt;
    return Finish(std::move(*picture));
}

/// A source that is closed while pictures wait gives up all but the very first, which may have been what it
/// was closed for.
bool Acquisition::IsReady() {
    return source_->CurrentState() == State::Ready && (pages_ == 0 || !source_->WantsToClose());
}

Acquisition::Page Acquisition::Finish(Picture picture) {
    ++pages_;
    const bool isMore = source_->CurrentState() == State::Ready;
    const bool goesOn = isMore && several_ && !source_->WantsToClose();
    // What the source shows would be in the way of what the caller does with the page.
    if (!goesOn) source_->StepDown(State::Open);
    const bool fromFeeder = isMore || source_->UsesFeeder();
    return {std::move(picture), fromFeeder, fromFeeder && !goesOn};
}

void Acquisition::Close() {
    thread_.SetFilter({});
    source_.reset();
    manager_.reset();
    window_.reset();
}

void Acquisition::Cancel() {
    cancelled_ = true;
    // The owner may be closed before the source is, and must not take the source's window along.
    if (const HWND window = handle_) SetWindowLongPtrW(window, GWLP_HWNDPARENT, 0);
}

}  // namespace lumarin::twain
