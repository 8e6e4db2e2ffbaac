// A search for all listings in the property search window, on the toolkit's offscreen platform.
//   bench_search first DATA_FOLDER ROWS      until the first rows are painted
//   bench_search all DATA_FOLDER ROWS        until all rows are in the list, painted; fails unless there are ROWS
//   bench_search statement                   prints the statement that the search runs

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/host/BenchHost.h"
#include "host/database/SqlTranslator.h"
#include "lookup/clsAllowedStatuses.h"
#include "lookup/frmFindProperty.h"
#include "platform/qt/QtDesktop.h"

namespace {

using namespace lumarin;

const NoEngineVersion Engine;

std::string Statement() {
    const clsSQLQuote quote(Engine);
    const PropertyCriteria criteria{.listingOwner = show::AllListings};
    return host::TranslateSelect(PropertyQuery(ListingSearch(), quote)
                                     .Statement(criteria, {}, clsAllowedStatuses().SQLAllowedStatuses("")));
}

/// Returns the number of rows in the list when it has come as far as wanted.
int Search(bool toTheEnd, const std::string& dataFolder) {
    qt::QtDesktop desktop;
    BenchHost host(dataFolder);
    frmFindProperty window({desktop, host.link, Engine});
    int rows = 0;
    const auto leave = [&] {
        static_cast<QWidget*>(window.NativeWindow())->repaint();
        rows = window.List.Count();
        window.cmdCancel.Press();
    };
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        if (!window.tmrRows.Enabled()) leave();
    });
    QTimer::singleShot(0, [&] {
        window.cmdShowMatches.Press();
        if (toTheEnd) poll.start(1);
        else leave();
    });
    std::vector<std::string> selected;
    window.FindProperty(ListingSearch(), frmFindProperty::SetUpList, 0, 0, selected);
    return rows;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string job = count > 1 ? arguments[1] : "";
    if (job == "statement") return std::puts(Statement().c_str()) < 0;
    if (count != 4 || (job != "first" && job != "all")) return 2;
    QApplication application(count, arguments);
    qt::SetUpApplication(application);
    const int rows = Search(job == "all", arguments[2]);
    const bool complete = rows == std::atoi(arguments[3]);
    std::printf("%d\n", rows);
    return job == "all" ? !complete : rows == 0 || complete;
}
