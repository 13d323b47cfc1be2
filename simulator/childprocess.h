#ifndef SIMULATOR_CHILDPROCESS_H
#define SIMULATOR_CHILDPROCESS_H

#include <functional>

namespace sim
{

/// How a piece of the program ended that was run in a process of its own.
struct ChildEnd {
    int exitCode = 0; ///< what the work returned; meaningless after a signal
    int signal = 0;   ///< the signal that ended it, 0 for none
};

/// Runs work in a child process, so that a crash in it is an answer and not the end. To be called before there
/// is an application object. quiet: what the work writes to stderr is dropped.
ChildEnd runInChild(const std::function<int()>& work, bool quiet);

} // namespace sim

#endif
