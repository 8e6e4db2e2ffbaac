// measure RUNS COMMAND [ARGUMENT...]: runs the command once to warm up and then RUNS times, one after the
// other, and prints "best-ms median-ms peak-kilobytes". The command's standard output is discarded. Fails
// when any run fails.

#include <sys/resource.h>
#include <sys/wait.h>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

struct Run {
    double milliseconds = 0;
    long peakKilobytes = 0;
};

bool RunOnce(char** command, Run& run) {
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        execvp(command[0], command);
        std::perror(command[0]);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child) return false;
    run.milliseconds =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    run.peakKilobytes = usage.ru_maxrss;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) {
        std::fprintf(stderr, "usage: measure RUNS COMMAND [ARGUMENT...]\n");
        return 2;
    }
    const int wanted = std::max(1, std::stoi(arguments[1]));
    Run warmUp;
    if (!RunOnce(arguments + 2, warmUp)) return 1;
    std::vector<Run> runs(static_cast<std::size_t>(wanted));
    for (Run& run : runs)
        if (!RunOnce(arguments + 2, run)) return 1;

    const auto byTime = [](const Run& left, const Run& right) {
        return left.milliseconds < right.milliseconds;
    };
    const auto byPeak = [](const Run& left, const Run& right) {
        return left.peakKilobytes < right.peakKilobytes;
    };
    std::sort(runs.begin(), runs.end(), byTime);
    std::printf("%.2f %.2f %ld\n", runs.front().milliseconds, runs[runs.size() / 2].milliseconds,
                std::max_element(runs.begin(), runs.end(), byPeak)->peakKilobytes);
    return 0;
}
