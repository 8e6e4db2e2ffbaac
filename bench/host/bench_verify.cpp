// bench_verify DATA_FOLDER: verifies the host's photo store. Fails unless it is all as it should be.

#include <cstdio>

#include "bench/host/BenchHost.h"
#include "bench/host/NobodysDesktop.h"
#include "verify/frmVerifyPhotos.h"

int main(int count, char** arguments) {
    if (count != 2) return 2;
    NobodysDesktop desktop;
    BenchHost host(arguments[1]);
    lumarin::frmVerifyPhotos window(desktop, host.link);
    window.Load();
    window.cmdStart.Press();
    std::puts(window.lblStatus.Caption().c_str());
    const bool completed = window.lblStatus.Caption() == "Verify completed successfully";
    return completed && window.lblCount.Caption() == "0" ? 0 : 1;
}
