// A search for all listings in the property search window, which nobody sees.
//   bench_search all DATA_FOLDER ROWS        until all rows are in the list; fails unless there are ROWS
//   bench_search statement                   prints the statement that the search runs

#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/host/NobodysDesktop.h"
#include "bench/host/SearchJob.h"
#include "host/database/SqlTranslator.h"
#include "lookup/clsAllowedStatuses.h"

namespace {

using namespace lumarin;

std::string Statement() {
    const NoEngineVersion engine;
    const clsSQLQuote quote(engine);
    const PropertyCriteria criteria{.listingOwner = show::AllListings};
    return host::TranslateSelect(PropertyQuery(ListingSearch(), quote)
                                     .Statement(criteria, {}, clsAllowedStatuses().SQLAllowedStatuses("")));
}

/// Ends the program with the outcome when the list has come as far as wanted: taking the window down again is
/// no part of a search.
[[noreturn]] void Leave(bool good, int rows) {
    std::printf("%d\n", rows);
    std::fflush(stdout);
    std::_Exit(good ? 0 : 1);
}

void Search(const std::string& dataFolder, int wanted) {
    NobodysDesktop desktop;
    SearchJob job(desktop, dataFolder);
    desktop.whileModal = [&] {
        job.window.cmdShowMatches.Press();
        while (job.window.tmrRows.Enabled()) job.window.tmrRows.Tick();
        const int rows = job.window.List.Count();
        Leave(rows == wanted, rows);
    };
    job.Open();
}

}  // namespace

int main(int count, char** arguments) {
    const std::string job = count > 1 ? arguments[1] : "";
    if (job == "statement") return std::puts(Statement().c_str()) < 0;
    if (count != 4 || job != "all") return 2;
    Search(arguments[2], std::stoi(arguments[3]));
    return 1;
}
