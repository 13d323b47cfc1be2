#ifndef RL_FILLGUARD_H
#define RL_FILLGUARD_H

#include "common/logline.h"

#include <exception>
#include <utility>

/// Runs the body of an editor's FillWith. An exception ends it with a warning in the log, as no exception may
/// reach the host; the editor keeps what was set before. unknown: the words for one that is no std::exception.
template <typename Body>
void guardFill(const char* unknown, Body&& body)
{
    try {
        std::forward<Body>(body)();
    } catch (const std::exception& fault) {
        logLine(LogLevel::Warning) << "LASER::"
                                   << "FillWith"
                                   << " std::exception:" << fault.what();
    } catch (...) {
        logLine(LogLevel::Warning) << unknown;
    }
}

#endif
