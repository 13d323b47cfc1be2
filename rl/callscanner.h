#ifndef RL_CALLSCANNER_H
#define RL_CALLSCANNER_H

#include <QString>
#include <QStringList>

#include <optional>

/// A call-shaped text such as `LsMoveL(Offs(p1,0,0,5), v100, z10, tool0);` in its two halves, both trimmed.
struct CallText {
    QStringRef name;      ///< letters, digits and underscores of ASCII
    QStringRef arguments; ///< all that stands between the outer parentheses
};

/// The halves of a text of the shape
///
///     ^\s*(\w+)\s*\((.*?)\);?\s*$
///
/// exactly as a regular expression without options reads it: `\w` and `\s` know ASCII only, the arguments hold no
/// line feed, and a text that is no valid UTF-16 matches nothing. Written by hand because every editor reads a
/// line each time one is selected. The halves point into the text, which must outlive them.
std::optional<CallText> scanCall(const QString& text);

/// The arguments at the commas that stand in no parentheses, each trimmed; empty ones are left out. A closing
/// parenthesis without an opening one counts for nothing; quotes and brackets are ordinary characters.
QStringList splitArguments(const QStringRef& arguments);

#endif
