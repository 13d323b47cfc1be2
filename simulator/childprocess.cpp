#include "simulator/childprocess.h"

#include <cerrno>
#include <cstdio>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace sim
{

namespace
{

[[noreturn]] void runAsChild(const std::function<int()>& work, bool quiet)
{
    if (quiet && std::freopen("/dev/null", "w", stderr) == nullptr) {
        std::fclose(stderr);
    }
    // The parent reports a crash; a core file would only lie about.
    const rlimit noCore{0, 0};
    setrlimit(RLIMIT_CORE, &noCore);
    const int code = work();
    std::fflush(nullptr);
    _exit(code);
}

} // namespace

ChildEnd runInChild(const std::function<int()>& work, bool quiet)
{
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child < 0) {
        // No process to be had: without the safety net then.
        return {work(), 0};
    }
    if (child == 0) {
        runAsChild(work, quiet);
    }
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    ChildEnd end;
    if (WIFSIGNALED(status)) {
        end.signal = WTERMSIG(status);
    } else {
        end.exitCode = WEXITSTATUS(status);
    }
    return end;
}

} // namespace sim
