#ifndef SIMULATOR_PROGRAM_INSTRUCTIONLINE_H
#define SIMULATOR_PROGRAM_INSTRUCTIONLINE_H

#include <QString>

namespace sim
{

/// A program line in its two parts: code + comment is the line again.
struct InstructionLine {
    QString code;
    QString comment; ///< from "//" on, with the white space before it; empty: the line has none
};

/// Takes a line apart. A "//" between double quotes belongs to the code; a quote that is never closed reaches to the
/// end of the line.
InstructionLine splitLine(const QString& line);

/// What stands before the first parenthesis of a line's code, without the white space around it; all of the code
/// when it has no parenthesis. Empty for a line without code.
QString instructionName(const QString& line);

/// A line of a program has at most so many characters; what shows lines need not be ready for more.
constexpr int kLongestLine = 4096;

/// Why a text can't be a line of a program: it is too long, or has a line break, another control character than a tab,
/// or half a surrogate pair. Empty for a text that can.
QString lineFault(const QString& line);

} // namespace sim

#endif
