#include "simulator/program/instructionwriter.h"

#include "simulator/program/instructionline.h"

#include <QCoreApplication>

namespace sim
{

namespace
{

QString tr(const char* text)
{
    return QCoreApplication::translate("sim::InstructionWriter", text);
}

QString indentation(const QString& code)
{
    const QString trimmed = code.trimmed();
    return trimmed.isEmpty() ? QString() : code.left(code.indexOf(trimmed));
}

} // namespace

WrittenLine writeLine(pendix::RLContentBase& editor, EditorRole role, const pendix::RlInstruction& instruction,
                      const Recogniser& recogniser, int operatorLevel)
{
    const bool isInsert = role == EditorRole::Insert;
    if (isInsert ? !editor.CheckInsert() : !editor.CheckReplace()) {
        const QString words = isInsert ? tr("Refused: at operator level %1 the editor of %2 lets nothing be inserted.")
                                       : tr("Refused: at operator level %1 the editor of %2 lets nothing be replaced.");
        return {{}, words.arg(QString::number(operatorLevel), instruction.name)};
    }
    const QString line = editor.ToString();
    const QString fault = lineFault(line);
    if (!fault.isEmpty()) {
        return {{}, tr("Refused: what the editor of %1 wrote can't be a line: %2").arg(instruction.name, fault)};
    }
    if (!recogniser.accepts(instruction, line)) {
        return {{}, tr("Refused: the editor wrote  %1  which is no line of %2.").arg(line, instruction.name)};
    }
    return {line, {}};
}

RoundTrip tryRoundTrip(const pendix::RlInstruction& instruction, const QString& line)
{
    RoundTrip trip;
    trip.before = splitLine(line).code.trimmed();
    if (const auto editor = createEditor(instruction, EditorRole::Change, &trip.fault)) {
        editor->FillWith(trip.before);
        trip.after = editor->ToString();
    }
    return trip;
}

QString withCode(const QString& line, const QString& code)
{
    const InstructionLine parts = splitLine(line);
    return indentation(parts.code) + code + parts.comment;
}

} // namespace sim
