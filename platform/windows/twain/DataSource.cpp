#include "platform/windows/twain/DataSource.h"

#include <cstring>

#include "base/PutBack.h"
#include "platform/dib/DibReader.h"
#include "platform/windows/twain/ConditionCodes.h"
#include "platform/windows/twain/Containers.h"

namespace lumarin::twain {

namespace {

constexpr double AllPages = -1;

}  // namespace

DataSource::DataSource(SourceManager& manager, const TW_IDENTITY& identity)
    : manager_(manager), identity_(identity) {
    if (manager_.Call(nullptr, DG_CONTROL, DAT_IDENTITY, MSG_OPENDS, &identity_) == TWRC_SUCCESS) {
        state_ = State::Open;
        return;
    }
    const TW_UINT16 code = manager_.Condition(nullptr);
    if (code != TWCC_BUMMER && code != TWCC_OPERATIONERROR) throw ScannerError(ConditionText(code));
    throw ScannerError("\"" + TextOf(identity.ProductName) +
                       "\" cannot be opened. Connect the device, switch it on and try again.");
}

void DataSource::Fail() { throw ScannerError(ConditionText(manager_.Condition(&identity_))); }

void DataSource::Configure(const ScanOrder& order) {
    Set(ICAP_XFERMECH, TWTY_UINT16, TWSX_NATIVE);
    Set(CAP_XFERCOUNT, TWTY_INT16, order.several ? AllPages : 1);
    ChooseFeeder(order.several);
    Set(ICAP_PIXELTYPE, TWTY_UINT16, TWPT_RGB);
    Set(ICAP_UNITS, TWTY_UINT16, TWUN_INCHES);
    SetNearest(ICAP_XRESOLUTION, TWTY_FIX32, order.resolution);
    SetNearest(ICAP_YRESOLUTION, TWTY_FIX32, order.resolution);
}

void DataSource::ChooseFeeder(bool several) {
    Set(CAP_FEEDERENABLED, TWTY_BOOL, several ? 1 : 0);
    usesFeeder_ = IsOn(CAP_FEEDERENABLED);  // some devices have nothing else
    if (!usesFeeder_) return;
    Set(CAP_AUTOFEED, TWTY_BOOL, 1);
    Set(CAP_DUPLEXENABLED, TWTY_BOOL, 0);
    if (IsOn(CAP_PAPERDETECTABLE) && !IsOn(CAP_FEEDERLOADED)) throw ScannerError(ConditionText(TWCC_NOMEDIA));
}

void DataSource::Enable(HWND window) {
    window_ = {1, 0, window};
    wantsToClose_ = false;
    const TW_UINT16 answer = Call(DG_CONTROL, DAT_USERINTERFACE, MSG_ENABLEDS, &window_);
    if (answer == TWRC_CANCEL) {
        wantsToClose_ = true;
        return;
    }
    if (answer != TWRC_SUCCESS && answer != TWRC_CHECKSTATUS) Fail();
    state_ = State::Enabled;
}

bool DataSource::TakeMessage(MSG& message) {
    TW_EVENT event{&message, 0};
    const TW_UINT16 answer = Call(DG_CONTROL, DAT_EVENT, MSG_PROCESSEVENT, &event);
    if (event.TWMessage == MSG_XFERREADY && state_ < State::Ready) state_ = State::Ready;
    if (event.TWMessage == MSG_CLOSEDSREQ || event.TWMessage == MSG_CLOSEDSOK) wantsToClose_ = true;
    return answer == TWRC_DSEVENT;
}

std::optional<Picture> DataSource::Transfer() {
    TW_HANDLE memory = nullptr;
    const TW_UINT16 answer = Call(DG_IMAGE, DAT_IMAGENATIVEXFER, MSG_GET, &memory);
    const AtEnd freed([&] { manager_.Free(memory); });
    if (answer == TWRC_CANCEL) {
        state_ = State::Transferring;
        StepDown(State::Open);
        wantsToClose_ = true;
        return std::nullopt;
    }
    if (answer != TWRC_XFERDONE) {
        const TW_UINT16 code = manager_.Condition(&identity_);
        if (code != TWCC_NOMEDIA || transferred_ == 0) throw ScannerError(ConditionText(code));
        StepDown(State::Open);
        return std::nullopt;
    }
    state_ = State::Transferring;
    Picture picture = Read(memory);
    ++transferred_;
    EndTransfer();
    return picture;
}

Picture DataSource::Read(TW_HANDLE memory) const {
    const std::span<const std::byte> bytes = manager_.Lock(memory);
    const AtEnd unlocked([&] { manager_.Unlock(memory); });
    try {
        return dib::ReadDib(bytes);
    } catch (const dib::CutShortError&) {
        throw ScannerError("The scanner ended the picture too early.");
    } catch (const ImagingError& error) {
        throw ScannerError("The scanner sent a picture that cannot be used. " + error.Description());
    }
}

void DataSource::EndTransfer() {
    TW_PENDINGXFERS pending{};
    Call(DG_CONTROL, DAT_PENDINGXFERS, MSG_ENDXFER, &pending);
    state_ = pending.Count != 0 ? State::Ready : State::Enabled;
}

void DataSource::StepDown(State target) {
    if (state_ == State::Transferring && target < state_) EndTransfer();
    if (state_ == State::Ready && target < state_) {
        TW_PENDINGXFERS pending{};
        Call(DG_CONTROL, DAT_PENDINGXFERS, MSG_RESET, &pending);
        state_ = State::Enabled;
    }
    if (state_ == State::Enabled && target < state_) {
        Call(DG_CONTROL, DAT_USERINTERFACE, MSG_DISABLEDS, &window_);
        state_ = State::Open;
    }
    if (state_ == State::Open && target < state_) {
        manager_.Call(nullptr, DG_CONTROL, DAT_IDENTITY, MSG_CLOSEDS, &identity_);
        state_ = State::Closed;
    }
}

bool DataSource::Set(TW_UINT16 capability, TW_UINT16 type, double value) {
    const TW_ONEVALUE container = MakeOneValue(type, value);
    TW_CAPABILITY order{capability, TWON_ONEVALUE, manager_.Allocate(sizeof container)};
    const AtEnd freed([&] { manager_.Free(order.hContainer); });
    const std::span<std::byte> bytes = manager_.Lock(order.hContainer);
    if (bytes.size() < sizeof container) return false;
    std::memcpy(bytes.data(), &container, sizeof container);
    manager_.Unlock(order.hContainer);
    const TW_UINT16 answer = Call(DG_CONTROL, DAT_CAPABILITY, MSG_SET, &order);
    return answer == TWRC_SUCCESS || answer == TWRC_CHECKSTATUS;
}

void DataSource::SetNearest(TW_UINT16 capability, TW_UINT16 type, double value) {
    if (Set(capability, type, value)) return;
    std::optional<double> nearest;
    Ask(capability, MSG_GET, [&](const Container& allowed) { nearest = NearestValue(allowed, value); });
    if (nearest) Set(capability, type, *nearest);
}

bool DataSource::IsOn(TW_UINT16 capability) {
    std::optional<double> value;
    Ask(capability, MSG_GETCURRENT, [&](const Container& current) { value = CurrentValue(current); });
    return value.value_or(0) != 0;
}

template <class Take>
void DataSource::Ask(TW_UINT16 capability, TW_UINT16 message, Take take) {
    constexpr TW_UINT16 AnyContainer = 0xFFFF;
    TW_CAPABILITY question{capability, AnyContainer, nullptr};
    const TW_UINT16 answer = Call(DG_CONTROL, DAT_CAPABILITY, message, &question);
    const AtEnd freed([&] { manager_.Free(question.hContainer); });
    if (answer != TWRC_SUCCESS) return;
    take(Container{question.ConType, manager_.Lock(question.hContainer)});
    manager_.Unlock(question.hContainer);
}

}  // namespace lumarin::twain
