// A TWAIN source that plays a scanner. What it does stands in the environment variable LUMARIN_TEST_SCANNER,
// as numbers by name ("pages=3;jam=2"):
//   feeder   1: it has a feeder, and nothing else
//   pages    sheets in the feeder; 1 where not said
//   bits     24, 8 or 1 for each pixel; 24 where not said
//   delay    milliseconds that each picture takes
//   window   1: it shows a window with a button, "Scan"; otherwise it scans at once
//   jam, cancel, lie    the picture, from 1, at which the paper jams, the user cancels, or whose header says
//   more
//            rows than come
//   dead     1: it cannot be opened
// LUMARIN_TEST_SCANNER_STATE then says in which of the interface's states it is.

#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <map>
#include <string>

#include "platform/windows/twain/Twain.h"

using namespace lumarin::twain;

namespace {

constexpr const char* Names[] = {"Lumarin Test Scanner", "Lumarin Test Camera"};
constexpr TW_UINT32 Resolutions[] = {75, 150, 600};
constexpr TW_UINT32 Range[] = {50, 600, 50};  // smallest, largest, step
constexpr int Closed = 3, Open = 4, Enabled = 5, Ready = 6, Transferring = 7;

int Plan(const std::string& name, int otherwise = 0) {
    char text[256] = "";
    GetEnvironmentVariableA("LUMARIN_TEST_SCANNER", text, sizeof text);
    const std::string plan = std::string(";") + text;
    const std::size_t at = plan.find(';' + name + '=');
    return at == std::string::npos ? otherwise : std::atoi(plan.c_str() + at + name.size() + 2);
}

class Scanner {
public:
    TW_UINT16 Identify(TW_IDENTITY& identity);
    void Report(TW_UINT16 message);
    TW_UINT16 Do(TW_IDENTITY* program, TW_UINT16 type, TW_UINT16 message, TW_MEMREF data);

private:
    TW_UINT16 Fail(TW_UINT16 code) { return condition_ = code, TWRC_FAILURE; }
    TW_UINT16 Go(int from, int to);
    TW_UINT16 OpenUp(TW_IDENTITY& identity);
    TW_UINT16 Enable(TW_IDENTITY* program, HWND owner);
    TW_UINT16 Disable();
    TW_UINT16 Capability(TW_UINT16 message, TW_CAPABILITY& capability);
    TW_UINT16 Transfer(TW_HANDLE& memory);
    TW_UINT16 EndTransfer(TW_PENDINGXFERS& pending);
    TW_HANDLE Draw(bool lies) const;
    bool HasMore() const { return Plan("feeder") != 0 && values_.at(CAP_XFERCOUNT) != 1 && done_ < Pages(); }
    static int Pages() { return Plan("pages", 1); }

    std::size_t named_ = 0;
    int state_ = Closed;
    TW_UINT16 condition_ = TWCC_SUCCESS;
    TW_IDENTITY self_{}, program_{};
    HWND window_ = nullptr;
    int done_ = 0;
    std::map<TW_UINT16, double> values_;
};

Scanner scanner;

/// Called until it fails; each time the next name.
TW_UINT16 Scanner::Identify(TW_IDENTITY& identity) {
    if (named_ == std::size(Names)) return named_ = 0, TWRC_FAILURE;
    identity.SupportedGroups = DG_CONTROL | DG_IMAGE;
    std::strcpy(identity.Manufacturer, "Lumarin");
    std::strcpy(identity.ProductFamily, "test device");
    std::strcpy(identity.ProductName, Names[named_++]);
    return TWRC_SUCCESS;
}

/// Whatever comes out of turn is refused.
TW_UINT16 Scanner::Go(int from, int to) {
    constexpr TW_UINT16 SequenceError = 11;
    if (state_ != from) return Fail(SequenceError);
    state_ = to;
    SetEnvironmentVariableA("LUMARIN_TEST_SCANNER_STATE", std::to_string(state_).c_str());
    return TWRC_SUCCESS;
}

TW_UINT16 Scanner::OpenUp(TW_IDENTITY& identity) {
    if (Plan("dead") != 0) return Fail(TWCC_CHECKDEVICEONLINE);
    self_ = identity;
    done_ = 0;
    values_ = {{CAP_XFERCOUNT, -1},      {ICAP_XRESOLUTION, 75},
               {ICAP_YRESOLUTION, 75},   {CAP_FEEDERENABLED, Plan("feeder")},
               {CAP_PAPERDETECTABLE, 1}, {CAP_FEEDERLOADED, Pages() > 0}};
    return Go(Closed, Open);
}

void Scanner::Report(TW_UINT16 message) {
    using Manager =
        TW_UINT16(__stdcall*)(TW_IDENTITY*, TW_IDENTITY*, TW_UINT32, TW_UINT16, TW_UINT16, TW_MEMREF);
    HMODULE library = GetModuleHandleA("TWAINDSM.dll");
    if (library == nullptr) library = GetModuleHandleA("twain_32.dll");
    const auto manager =
        reinterpret_cast<Manager>(reinterpret_cast<void*>(GetProcAddress(library, "DSM_Entry")));
    if (message == MSG_XFERREADY && Go(Enabled, Ready) != TWRC_SUCCESS) return;
    manager(&self_, &program_, DG_CONTROL, DAT_NULL, message, nullptr);
}

LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_COMMAND || message == WM_CLOSE) {
        scanner.Report(message == WM_CLOSE || LOWORD(first) != IDOK ? MSG_CLOSEDSREQ : MSG_XFERREADY);
        return 0;
    }
    return DefWindowProcW(window, message, first, second);
}

TW_UINT16 Scanner::Enable(TW_IDENTITY* program, HWND owner) {
    program_ = *program;
    const TW_UINT16 answer = Go(Open, Enabled);
    if (Plan("window") == 0) return Report(MSG_XFERREADY), answer;
    WNDCLASSW description{};
    description.lpfnWndProc = OnMessage;
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    description.lpszClassName = L"LumarinTestScanner";
    RegisterClassW(&description);
    window_ = CreateWindowW(L"LumarinTestScanner", L"Lumarin Test Scanner",
                            WS_POPUPWINDOW | WS_CAPTION | WS_VISIBLE, 100, 100, 260, 120, owner, nullptr,
                            nullptr, nullptr);
    CreateWindowW(L"BUTTON", L"&Scan", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON, 80, 25, 100, 30,
                  window_, reinterpret_cast<HMENU>(IDOK), nullptr, nullptr);
    return answer;
}

TW_UINT16 Scanner::Disable() {
    DestroyWindow(window_);
    window_ = nullptr;
    return Go(Enabled, Open);
}

TW_UINT16 Scanner::Capability(TW_UINT16 message, TW_CAPABILITY& capability) {
    if (!values_.contains(capability.Cap)) return Fail(TWCC_CAPUNSUPPORTED);
    double& value = values_[capability.Cap];
    const bool isResolution = capability.Cap == ICAP_XRESOLUTION || capability.Cap == ICAP_YRESOLUTION;
    if (message == MSG_SET) {
        if (state_ != Open || capability.Cap == CAP_FEEDERENABLED) return Fail(TWCC_BADVALUE);
        const auto* wanted = static_cast<const TW_ONEVALUE*>(GlobalLock(capability.hContainer));
        const double number = static_cast<std::int16_t>(wanted->Item & 0xFFFF);
        GlobalUnlock(capability.hContainer);
        bool allowed = !isResolution;
        for (const TW_UINT32 resolution : Resolutions)
            allowed |= capability.Cap == ICAP_XRESOLUTION && number == resolution;
        for (TW_UINT32 step = Range[0]; step <= Range[1]; step += Range[2])
            allowed |= capability.Cap == ICAP_YRESOLUTION && number == step;
        if (!allowed) return Fail(TWCC_BADVALUE);
        value = number;
        return TWRC_SUCCESS;
    }
    // Across a list of fixed-point numbers, down a range of them, and one value for everything else.
    capability.hContainer = GlobalAlloc(GHND, 32);
    auto* bytes = static_cast<char*>(GlobalLock(capability.hContainer));
    const auto put = [&](std::size_t at, TW_UINT32 number) {
        std::memcpy(bytes + at, &number, sizeof number);
    };
    put(0, isResolution ? TWTY_FIX32 : TWTY_UINT16);
    put(2, isResolution ? std::size(Resolutions) : static_cast<TW_UINT32>(value));
    for (std::size_t i = 0; isResolution && i < std::size(Resolutions); ++i) put(14 + 4 * i, Resolutions[i]);
    capability.ConType = isResolution ? TWON_ENUMERATION : TWON_ONEVALUE;
    if (capability.Cap == ICAP_YRESOLUTION) {
        capability.ConType = TWON_RANGE;
        for (const std::size_t i : {0, 1, 2}) put(2 + 4 * i, Range[i]);
    }
    GlobalUnlock(capability.hContainer);
    return TWRC_SUCCESS;
}

TW_UINT16 Scanner::Transfer(TW_HANDLE& memory) {
    const int page = done_ + 1;
    if (state_ != Ready) return Go(Ready, Transferring);
    Sleep(static_cast<DWORD>(Plan("delay")));
    if (Plan("jam") == page) return Fail(TWCC_PAPERJAM);
    Go(Ready, Transferring);
    if (Plan("cancel") == page) return TWRC_CANCEL;
    memory = Draw(Plan("lie") == page);
    return TWRC_XFERDONE;
}

/// An inch wide and an inch high: a light line above a dark remainder, darker from page to page.
TW_HANDLE Scanner::Draw(bool lies) const {
    const int bits = Plan("bits", 24);
    const auto width = static_cast<LONG>(values_.at(ICAP_XRESOLUTION));
    const auto height = static_cast<LONG>(values_.at(ICAP_YRESOLUTION));
    const std::size_t row = static_cast<std::size_t>(width * bits + 31) / 32 * 4;
    const std::size_t colours = bits <= 8 ? std::size_t{1} << bits : 0;
    const std::size_t start = sizeof(BITMAPINFOHEADER) + colours * sizeof(RGBQUAD);
    const HGLOBAL memory = GlobalAlloc(GHND, start + row * static_cast<std::size_t>(height));
    auto* header = static_cast<BITMAPINFOHEADER*>(GlobalLock(memory));
    header->biSize = sizeof *header;
    header->biWidth = width;
    header->biHeight = lies ? height * 2 : height;
    header->biPlanes = 1;
    header->biBitCount = static_cast<WORD>(bits);
    auto* palette = reinterpret_cast<RGBQUAD*>(header + 1);
    for (std::size_t i = 0; i < colours; ++i) {
        const auto grey = static_cast<BYTE>(i * 255 / (colours - 1));
        palette[i] = {grey, grey, grey, 0};
    }
    auto* rows = reinterpret_cast<BYTE*>(header) + start;
    std::memset(rows, bits == 1 ? 0 : 100 - 10 * done_, row * static_cast<std::size_t>(height));
    std::memset(rows + row * static_cast<std::size_t>(height - 1), 255, row);
    GlobalUnlock(memory);
    return memory;
}

TW_UINT16 Scanner::EndTransfer(TW_PENDINGXFERS& pending) {
    ++done_;
    pending.Count = HasMore() ? 0xFFFF : 0;
    return Go(Transferring, pending.Count != 0 ? Ready : Enabled);
}

TW_UINT16 Scanner::Do(TW_IDENTITY* program, TW_UINT16 type, TW_UINT16 message, TW_MEMREF data) {
    switch (type) {
        case DAT_IDENTITY:
            if (message == MSG_GET) return Identify(*static_cast<TW_IDENTITY*>(data));
            return message == MSG_OPENDS ? OpenUp(*static_cast<TW_IDENTITY*>(data)) : Go(Open, Closed);
        case DAT_STATUS:
            *static_cast<TW_STATUS*>(data) = {condition_, 0};
            return TWRC_SUCCESS;
        case DAT_CAPABILITY:
            return Capability(message, *static_cast<TW_CAPABILITY*>(data));
        case DAT_USERINTERFACE:
            if (message == MSG_DISABLEDS) return Disable();
            return Enable(program, static_cast<HWND>(static_cast<TW_USERINTERFACE*>(data)->hParent));
        case DAT_EVENT: {
            auto* event = static_cast<MSG*>(static_cast<TW_EVENT*>(data)->pEvent);
            return window_ != nullptr && IsDialogMessageW(window_, event) ? TWRC_DSEVENT : TWRC_NOTDSEVENT;
        }
        case DAT_IMAGENATIVEXFER:
            return Transfer(*static_cast<TW_HANDLE*>(data));
        case DAT_PENDINGXFERS:
            if (message == MSG_RESET) return Go(Ready, Enabled);
            return EndTransfer(*static_cast<TW_PENDINGXFERS*>(data));
        default:
            return Fail(TWCC_BADPROTOCOL);
    }
}

}  // namespace

extern "C" __declspec(dllexport) TW_UINT16
    __stdcall DS_Entry(TW_IDENTITY* program, TW_UINT32, TW_UINT16 type, TW_UINT16 message, TW_MEMREF data) {
    return scanner.Do(program, type, message, data);
}
