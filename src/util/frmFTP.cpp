#include "util/frmFTP.h"

#include "base/Files.h"
#include "base/PutBack.h"
#include "base/Text.h"
#include "util/ElapsedTime.h"
#include "util/FtpJob.h"

namespace lumarin {

namespace {
constexpr int HelpPage = 12;
constexpr int TickInterval = 50;     // milliseconds: the transfer is looked at with each tick
constexpr int RequestTimeout = 120;  // seconds
constexpr const char* ErrorSource = "frmFTP-Send";
}  // namespace

frmFTP::frmFTP(Desktop& desktop, const Clock& clock, HostLink& host, FtpTransfer& transfer)
    : Form(desktop, "frmFTP"), Inet(transfer), clock_(clock), host_(host) {
    SetCaption("Send File");
    SetHelpContext(HelpPage);
    lblTime.SetCaption(ElapsedText(0));
    cmdCancel.Click = [this] { Cancel(); };
    Timer.SetInterval(TickInterval);
    Timer.Elapsed = [this] {
        ShowElapsedTime();
        Inet.Poll();
    };
    Inet.SetRequestTimeout(RequestTimeout);
}

void frmFTP::SendFiles(const Order& order, FtpResult& result, const OwnerWindow* owner) {
    result = {};
    Guarded("Send", [&] {
        try {
            if (result_ != nullptr) throw ApplicationError(ErrorSource, "Files are being sent already.");
            Prepare(order);
            const AtEnd stopped([this] {
                Timer.SetEnabled(false);
                Inet.Cancel();  // lets go of the connection
                Inet.StateChanged = nullptr;
                result_ = nullptr;
            });
            Start(result);
            // Whatever the pointer was before, the desktop shows the usual one in a modal window, so that
            // Cancel looks as if it could be pressed, and puts the other back afterwards.
            ShowModal(owner);
            Unload();
        } catch (const std::exception& error) {
            result.outcome = FtpOutcome::Failed;
            result.problem = error.what();
            throw;
        }
    });
}

void frmFTP::Prepare(const Order& order) {
    FtpServer server = ftp::ParseServer(order.server);
    server.security = order.security;
    files_ = ftp::SplitFileList(order.files);
    remoteFolder_ = order.remoteFolder;
    for (const std::string& path : files_) {
        ftp::RemoteName(remoteFolder_, path);
        if (!files::FileExists(path)) throw FileError("send", path, "there is no such file");
        const files::Reader readable(path);
    }
    Inet.SetServer(server);
}

void frmFTP::Start(FtpResult& result) {
    Animation.SetAutoPlay(true);
    Animation.Open(host_.Common().ProgramFolder() + "FileMove.avi");
    result_ = &result;
    result.outcome = FtpOutcome::Cancelled;  // should the program end before the files are sent
    state_ = State::Sending;
    index_ = 0;
    Inet.StateChanged = [this](FtpState state) { TransferChanged(state); };
    started_ = WallClockMilliseconds(clock_.Now());
    ShowElapsedTime();
    Timer.SetEnabled(true);
    SendFile();
}

void frmFTP::SendFile() {
    const std::string& path = files_.at(static_cast<std::size_t>(index_));
    lblFile.SetCaption(text::AfterLastSeparator(path) + " (" + std::to_string(index_ + 1) + " of " +
                       std::to_string(files_.size()) + ")");
    Inet.Execute(ftp::SendCommand(path, ftp::RemoteName(remoteFolder_, path)));
}

void frmFTP::TransferChanged(FtpState state) {
    if (state_ == State::Cancelled) return;
    if (state == FtpState::Error) return FileFailed(Inet.Failure());
    result_->sent = ++index_;
    if (static_cast<std::size_t>(index_) < files_.size())
        SendFile();
    else
        Finish(FtpOutcome::Sent);
}

void frmFTP::FileFailed(const FtpFailure& failure) {
    std::string text = failure.text + "\n\nThe file \"" +
                       text::AfterLastSeparator(files_.at(static_cast<std::size_t>(index_))) +
                       "\" was not sent.";
    if (files_.size() > 1)
        text += " " + std::to_string(index_) + " of " + std::to_string(files_.size()) + " files were sent.";
    result_->problem = text;
    const Answer answer =
        desktop().ShowMessage({.text = text,
                               .title = ErrorSource,
                               .buttons = failure.canBeRetried ? Buttons::RetryCancel : Buttons::Ok,
                               .icon = Icon::Critical,
                               .modality = Modality::System},
                              this);
    if (!IsShown()) return;  // the program has ended the window meanwhile
    if (answer != Answer::Retry) return Finish(FtpOutcome::Failed);
    result_->problem.clear();
    SendFile();
}

void frmFTP::Finish(FtpOutcome outcome) {
    result_->outcome = outcome;
    Hide();
}

void frmFTP::Cancel() {
    if (!IsShown()) return;
    state_ = State::Cancelled;
    Inet.Cancel();
    Finish(FtpOutcome::Cancelled);
}

bool frmFTP::OnQueryClose(CloseReason reason) {
    if (reason != CloseReason::Frame) return true;
    cmdCancel.Press();
    return false;
}

void frmFTP::ShowElapsedTime() {
    lblTime.SetCaption(ElapsedText(WallClockMilliseconds(clock_.Now()) - started_));
}

}  // namespace lumarin
