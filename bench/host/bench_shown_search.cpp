// The same search in the front end, on the toolkit's offscreen platform.
//   bench_shown_search first DATA_FOLDER     until the first rows are painted
//   bench_shown_search all DATA_FOLDER       until all rows are in the list, and it is painted

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <string>

#include "bench/host/SearchJob.h"
#include "platform/qt/QtDesktop.h"

int main(int count, char** arguments) {
    if (count != 3) return 2;
    QApplication application(count, arguments);
    lumarin::qt::SetUpApplication(application);
    lumarin::qt::QtDesktop desktop;
    SearchJob job(desktop, arguments[2]);
    const bool toTheEnd = std::string(arguments[1]) == "all";
    int rows = 0;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (toTheEnd && job.window.tmrRows.Enabled()) return;
        static_cast<QWidget*>(job.window.NativeWindow())->repaint();
        rows = job.window.List.Count();
        job.window.cmdCancel.Press();
    });
    QTimer::singleShot(0, [&] {
        job.window.cmdShowMatches.Press();
        poll.start(1);
    });
    job.Open();
    std::printf("%d\n", rows);
    return rows == 0;
}
