#ifndef SIMULATOR_EXITCODES_H
#define SIMULATOR_EXITCODES_H

namespace sim
{

/// Exit codes of the program apart from those of --check, which belong to the load faults (pluginloader.h).
enum ExitCode {
    ExitOk = 0,
    ExitTourFailed = 1,  ///< a step of the tour did not go as it should
    ExitShotsFailed = 1, ///< a page or an editor has a layout fault, or a plug-in did not load
    ExitBadInput = 2     ///< bad options, or a cell or state file that was refused
};

} // namespace sim

#endif
