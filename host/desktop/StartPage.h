#pragma once

#include <QWidget>

#include <cstdint>
#include <functional>

#include "host/desktop/Overview.h"

class QLabel;
class QTableWidget;

namespace host {

/// The main window's content: who is signed in, where the data lie, and the user's listings with the
/// number of their published photos.
class StartPage : public QWidget {
public:
    explicit StartPage(HostOptions user);

    void ShowOverview(const Overview& overview);
    /// 0 for none.
    std::int32_t SelectedListing() const;

    /// A listing was double-clicked, or Enter was pressed on it. Set before the window is shown.
    std::function<void(std::int32_t)> opened;

private:
    QWidget* MakeHeader();
    QTableWidget* MakeTable();

    HostOptions user_;
    QLabel* lblWelcome_ = nullptr;
    QLabel* lblUser_ = nullptr;
    QLabel* lblListings_ = nullptr;
    QTableWidget* listings_ = nullptr;
};

}  // namespace host
