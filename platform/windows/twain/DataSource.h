#pragma once

#include <optional>

#include "forms/Picture.h"
#include "imaging/Scanner.h"
#include "platform/windows/twain/SourceManager.h"

namespace lumarin::twain {

/// One opened source. It goes up and down through the interface's states and is closed at the end, from
/// whichever it is in. All calls on the manager's thread. Failures throw ScannerError.
class DataSource {
public:
    /// The numbers are the interface's.
    enum class State { Closed = 3, Open = 4, Enabled = 5, Ready = 6, Transferring = 7 };

    DataSource(SourceManager& manager, const TW_IDENTITY& identity);
    ~DataSource() { StepDown(State::Closed); }
    DataSource(const DataSource&) = delete;
    DataSource& operator=(const DataSource&) = delete;

    /// Colour, and the order's resolution; the feeder for several pages and the glass for one, as far as the
    /// source has these. Open only.
    void Configure(const ScanOrder& order);
    bool UsesFeeder() const { return usesFeeder_; }

    /// Shows the source's own window, above `window`.
    void Enable(HWND window);
    /// Gives the source a message of its thread; true when it was the source's. Enabled or above.
    bool TakeMessage(MSG& message);
    bool WantsToClose() const { return wantsToClose_; }
    State CurrentState() const { return state_; }

    /// The picture that is ready. Nothing when the user cancelled it in the source's window, or when the
    /// feeder holds no more. Afterwards Ready when another one waits, otherwise Enabled.
    std::optional<Picture> Transfer();

    /// Ends what runs, pictures that wait included, until the state is reached.
    void StepDown(State target);

private:
    TW_UINT16 Call(TW_UINT32 group, TW_UINT16 type, TW_UINT16 message, TW_MEMREF data) {
        return manager_.Call(&identity_, group, type, message, data);
    }
    [[noreturn]] void Fail();
    void ChooseFeeder(bool several);
    Picture Read(TW_HANDLE memory) const;
    void EndTransfer();

    bool Set(TW_UINT16 capability, TW_UINT16 type, double value);
    /// The nearest value that the source can do.
    void SetNearest(TW_UINT16 capability, TW_UINT16 type, double value);
    bool IsOn(TW_UINT16 capability);
    /// The capability's container goes to `take`, if the source has it.
    template <class Take>
    void Ask(TW_UINT16 capability, TW_UINT16 message, Take take);

    SourceManager& manager_;
    TW_IDENTITY identity_;
    State state_ = State::Closed;
    bool usesFeeder_ = false;
    bool wantsToClose_ = false;
    int transferred_ = 0;
    TW_USERINTERFACE window_{};
};

}  // namespace lumarin::twain
