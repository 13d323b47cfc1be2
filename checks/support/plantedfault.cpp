#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>

#include <spawn.h>
#include <sys/wait.h>

// Commits the fault that is asked for, so that the run under the sanitizers can tell whether each still reports:
//     plantedfault FAULT         in this process
//     plantedfault FAULT child   in a child whose exit code nobody looks at; this process ends with 0

extern char** environ; // NOLINT(readability-redundant-declaration): not declared everywhere

namespace
{

// Volatile, or else the compilers would see the faults coming.
volatile int number = std::numeric_limits<int>::max();
volatile double real = std::numeric_limits<double>::max();
int* volatile pointer = nullptr;

void address()
{
    {
        const auto owner = std::make_unique<int>(1);
        pointer = owner.get();
    }
    number = *pointer;
}

void leak()
{
    pointer = std::make_unique<int>(1).release();
    pointer = nullptr;
}

void undefined()
{
    number = number + 1;
}

void floatCast()
{
    number = static_cast<int>(real);
}

constexpr struct {
    const char* name;
    void (*commit)();
} kFaults[] = {{"address", address}, {"leak", leak}, {"undefined", undefined}, {"float-cast-overflow", floatCast}};

int runChild(char* program, char* fault)
{
    char* arguments[] = {program, fault, nullptr};
    pid_t child = 0;
    int status = 0;
    const bool ran = posix_spawn(&child, "/proc/self/exe", nullptr, nullptr, arguments, environ) == 0 &&
                     waitpid(child, &status, 0) == child;
    return ran ? 0 : 2;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc == 3 && std::strcmp(argv[2], "child") == 0) {
        return runChild(argv[0], argv[1]);
    }
    for (const auto& fault : kFaults) {
        if (argc == 2 && std::strcmp(argv[1], fault.name) == 0) {
            fault.commit();
            return 0;
        }
    }
    std::fputs("plantedfault: FAULT [child], FAULT one of address leak undefined float-cast-overflow\n", stderr);
    return 2;
}
