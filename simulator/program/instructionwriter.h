#ifndef SIMULATOR_PROGRAM_INSTRUCTIONWRITER_H
#define SIMULATOR_PROGRAM_INSTRUCTIONWRITER_H

#include "simulator/program/instructioneditor.h"
#include "simulator/program/recogniser.h"

namespace sim
{

/// What came of asking an editor for its line: one of the two is empty.
struct WrittenLine {
    QString text;
    QString refusal; ///< for the user: who refused what, and why
};

/// Asks as a pendant does: the check of this role, and only if the editor agrees its line, once. A text that the
/// instruction's own pattern does not recognise, or that can't be a line at all, is refused.
/// operatorLevel: named when the editor does not agree.
WrittenLine writeLine(pendix::RLContentBase& editor, EditorRole role, const pendix::RlInstruction& instruction,
                      const Recogniser& recogniser, int operatorLevel);

/// A program line, and what becomes of it when its editor reads it and writes it again.
struct RoundTrip {
    QString before; ///< the line without indentation and comment
    QString after;  ///< the same after reading and writing
    QString fault;  ///< why there is no editor to ask; empty: there is one

    bool isFaithful() const { return fault.isEmpty() && before == after; }
};

/// Fills a new editor, which is gone afterwards, and reads it back.
RoundTrip tryRoundTrip(const pendix::RlInstruction& instruction, const QString& line);

/// A line with other code: its indentation and its comment stay.
QString withCode(const QString& line, const QString& code);

} // namespace sim

#endif
