#pragma once

#include <QObject>

#include <string>

#include "base/Clock.h"
#include "entry/HostLink.h"
#include "host/desktop/MainWindow.h"
#include "util/frmFTP.h"

namespace host {

/// The main window's tool "Send File": asks for a server and files, and has the component send them. What
/// failed is asked for again, with everything that was entered.
class FtpTool : public QObject {
public:
    /// Adds itself to the main window's toolbar. `certificates` is a file of certificates to trust instead of
    /// the machine's; it counts when it exists. Everything outlives this.
    FtpTool(lumarin::Desktop& desktop, lumarin::VelCommon& common, MainWindow& mainWindow,
            std::string certificates);

private:
    void Open();
    lumarin::FtpOutcome Send(const lumarin::frmFTP::Order& order);

    lumarin::Desktop& desktop_;
    MainWindow& mainWindow_;
    std::string certificates_;
    lumarin::HostLink link_;
    lumarin::SystemClock clock_;
};

}  // namespace host
