// The same search in the front end, on the toolkit's offscreen platform.
//   bench_shown_search first DATA_FOLDER ROWS    until the first rows are painted
//   bench_shown_search all DATA_FOLDER ROWS      until all rows are in the list, and it is painted; fails
//                                                unless there are ROWS
// Prints the longest turn of the event loop while the rows came, in milliseconds of work: what other programs
// of the machine took meanwhile is left out.

#include <QApplication>
#include <QTimer>
#include <QTreeView>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <utility>

#include "bench/host/SearchJob.h"
#include "platform/qt/QtDesktop.h"

int main(int count, char** arguments) {
    if (count != 4) return 2;
    const bool toTheEnd = std::string(arguments[1]) == "all";
    const int wanted = std::stoi(arguments[3]);
    QApplication application(count, arguments);
    lumarin::qt::SetUpApplication(application);
    lumarin::qt::QtDesktop desktop;
    SearchJob job(desktop, arguments[2]);
    std::clock_t turnStart = 0, longestTurn = 0;
    const auto turnEnds = [&] {
        const std::clock_t now = std::clock();
        longestTurn = std::max(longestTurn, now - std::exchange(turnStart, now));
    };
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        turnEnds();
        if (toTheEnd && job.window.tmrRows.Enabled()) return;
        auto* window = static_cast<QWidget*>(job.window.NativeWindow());
        window->repaint();
        turnEnds();
        const int shown = window->findChild<QTreeView*>("List")->model()->rowCount();
        std::printf("%ld\n", longestTurn / (CLOCKS_PER_SEC / 1000));
        std::fflush(stdout);
        // Taking the window down again is not part of a search.
        std::_Exit((toTheEnd ? shown == wanted : shown > 0 && shown < wanted) ? 0 : 1);
    });
    QTimer::singleShot(0, [&] {
        job.window.cmdShowMatches.Press();
        turnStart = std::clock();
        poll.start(1);
    });
    job.Open();
    return 1;
}
