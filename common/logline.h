#ifndef COMMON_LOGLINE_H
#define COMMON_LOGLINE_H

#include "pendix/log.h"

#include <memory>

/// Diagnostic log lines for developers, in the one idiom of the package: colour and tag by level, the
/// tag with the local time, the items, the plug-in's log file. One statement is one line:
///
///     logLine(LogLevel::Error) << "Save failed." << command;
///
/// Source and order of the items are the caller's; the stream puts one blank after each.
enum class LogLevel {
    Information, ///< lifecycle steps
    Warning,     ///< parse problems, retries
    Error,       ///< failed saves, missing answers
    Trace,       ///< lines that begin with their source position
    Debug        ///< console only
};

/// A statement of the given level, finished when the returned object is destroyed.
class LogLine
{
public:
    explicit LogLine(LogLevel level);

    template <typename T>
    LogLine& operator<<(const T& item)
    {
        *m_log << item;
        return *this;
    }

private:
    std::unique_ptr<pendix::QLog> m_log;
};

inline LogLine logLine(LogLevel level)
{
    return LogLine(level);
}

#endif
