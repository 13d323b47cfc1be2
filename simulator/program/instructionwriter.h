#ifndef SIMULATOR_PROGRAM_INSTRUCTIONWRITER_H
#define SIMULATOR_PROGRAM_INSTRUCTIONWRITER_H

#include "simulator/program/instructioneditor.h"
#include "simulator/program/recogniser.h"

#include <QPointer>

#include <optional>

namespace sim
{

/// What came of asking an editor for its line: one of the two is empty.
struct WrittenLine {
    QString text;
    QString refusal; ///< for the user: who refused what, and why
};

/// Asks as a pendant does: the check of this role, and only if the editor agrees its line, once. A text that the
/// instruction's own pattern does not recognise, or that can't be a line at all, is refused, and so is one with a
/// comment in it, which would be a part of the instruction that no controller reads. An editor that throws, or is gone
/// before or after it was asked, is a refusal too. It may let the event loop run meanwhile.
/// operatorLevel: named when the editor does not agree.
WrittenLine writeLine(const QPointer<pendix::RLContentBase>& editor, EditorRole role,
                      const pendix::RlInstruction& instruction, const Recogniser& recogniser, int operatorLevel);

/// Fills an editor with a line's code. Returns why that failed, empty when it did not.
QString fillEditor(pendix::RLContentBase& editor, const QString& code);

/// A program line, and what becomes of it when its editor reads it and writes it again.
struct RoundTrip {
    QString before; ///< the line without indentation and comment
    QString after;  ///< the same after reading and writing
    QString fault;  ///< why no editor could be asked; empty: one was

    bool isFaithful() const { return fault.isEmpty() && before == after; }
};

/// Fills a new editor, which is gone afterwards, and reads it back.
RoundTrip tryRoundTrip(const pendix::RlInstruction& instruction, const QString& line);

/// A line with other code: its indentation and its comment stay. Nothing when they would not, as behind a quote that
/// is not closed.
std::optional<QString> withCode(const QString& line, const QString& code);

} // namespace sim

#endif
