// Start-up time and memory of QX beside the bare window floor. Each program is launched many
// times, alternating, with QX_QUIT_WHEN_SHOWN set: as soon as its main window is shown it prints
// "shown <steady clock in ns>" and leaves. Start-up is from fork to that moment (the program's
// tear-down is not part of it); memory is the child's peak resident set.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Run {
    double seconds;
    long maxRssKiB;
};

Run launch(const char *program)
{
    int out[2];
    if (pipe(out) != 0) {
        std::perror("pipe");
        std::exit(1);
    }
    const auto start = std::chrono::steady_clock::now();
    const pid_t pid = fork();
    if (pid == 0) {
        dup2(out[1], STDOUT_FILENO);
        close(out[0]);
        close(out[1]);
        // The platform's start-up chatter would only clutter the figures.
        if (const int quiet = open("/dev/null", O_WRONLY); quiet >= 0)
            dup2(quiet, STDERR_FILENO);
        setenv("QX_QUIT_WHEN_SHOWN", "1", 1);
        execl(program, program, static_cast<char *>(nullptr));
        _exit(127);
    }
    close(out[1]);
    std::string printed;
    char buffer[256];
    for (ssize_t n; (n = read(out[0], buffer, sizeof buffer)) > 0;)
        printed.append(buffer, size_t(n));
    close(out[0]);
    int status = 0;
    rusage usage{};
    wait4(pid, &status, 0, &usage);
    const size_t at = printed.find("shown ");
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0 || at == std::string::npos) {
        std::fprintf(stderr, "%s did not end cleanly or never said it was shown\n", program);
        std::exit(1);
    }
    const long long shownNs = std::atoll(printed.c_str() + at + 6);
    const long long startNs =
        std::chrono::duration_cast<std::chrono::nanoseconds>(start.time_since_epoch()).count();
    return {double(shownNs - startNs) / 1e9, usage.ru_maxrss};
}

template <typename T>
T median(std::vector<T> v)
{
    std::sort(v.begin(), v.end());
    return v[v.size() / 2];
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s BARE_WINDOW QX [RUNS]\n", argv[0]);
        return 2;
    }
    const int runs = argc > 3 ? std::atoi(argv[3]) : 15;
    std::vector<double> bareTime, qxTime;
    std::vector<long> bareRss, qxRss;
    launch(argv[1]); // warm the file cache for both
    launch(argv[2]);
    for (int i = 0; i < runs; ++i) {
        const Run bare = launch(argv[1]);
        const Run qx = launch(argv[2]);
        bareTime.push_back(bare.seconds);
        bareRss.push_back(bare.maxRssKiB);
        qxTime.push_back(qx.seconds);
        qxRss.push_back(qx.maxRssKiB);
    }
    const double bt = median(bareTime), qt = median(qxTime);
    const long bm = median(bareRss), qm = median(qxRss);
    std::printf("runs: %d each (medians)\n", runs);
    std::printf("start-up  bare window %7.1f ms   QX %7.1f ms   ratio %.2f\n", bt * 1e3, qt * 1e3, qt / bt);
    std::printf("peak RSS  bare window %7.1f MiB  QX %7.1f MiB  ratio %.2f\n", bm / 1024.0, qm / 1024.0,
                double(qm) / double(bm));
    return 0;
}
