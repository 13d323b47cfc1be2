#include "simulator/program/instructionwriter.h"

#include "simulator/program/instructionline.h"

#include <QCoreApplication>

#include <exception>
#include <utility>

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

/// Runs a plug-in's code. Returns what it threw, empty when it threw nothing.
template <typename Call>
QString guarded(Call&& call)
{
    try {
        std::forward<Call>(call)();
        return {};
    } catch (const std::exception& exception) {
        return tr("the plug-in's editor failed: %1").arg(QString::fromLocal8Bit(exception.what()));
    } catch (...) {
        return tr("the plug-in's editor failed with an unknown exception");
    }
}

QString refusal(const QString& why)
{
    return tr("Refused: %1").arg(why);
}

/// Why a text is no line of the instruction; empty: it is one.
QString textFault(const QString& line, const pendix::RlInstruction& instruction, const Recogniser& recogniser)
{
    const QString fault = lineFault(line);
    if (!fault.isEmpty()) {
        return tr("what the editor of %1 wrote can't be a line: it %2").arg(instruction.name, fault);
    }
    if (!recogniser.accepts(instruction, line)) {
        return tr("the editor wrote  %1  which is no line of %2").arg(line, instruction.name);
    }
    return splitLine(line).comment.isEmpty() ? QString()
                                             : tr("the editor wrote  %1  of which the end is a comment").arg(line);
}

} // namespace

WrittenLine writeLine(const QPointer<pendix::RLContentBase>& editor, EditorRole role,
                      const pendix::RlInstruction& instruction, const Recogniser& recogniser, int operatorLevel)
{
    const bool isInsert = role == EditorRole::Insert;
    bool agrees = false;
    QString line;
    const QString thrown = guarded([&] {
        agrees = editor != nullptr && (isInsert ? editor->CheckInsert() : editor->CheckReplace());
        if (agrees && editor != nullptr) {
            line = editor->ToString();
        }
    });
    if (!thrown.isEmpty()) {
        return {{}, refusal(thrown)};
    }
    if (editor == nullptr) {
        return {{}, refusal(tr("the plug-in has taken its editor of %1 away").arg(instruction.name))};
    }
    if (!agrees) {
        // It does not say why: for the level, or for a text that would make another line of it.
        const QString words = isInsert ? tr("at operator level %1 the editor of %2 does not let this be inserted.")
                                       : tr("at operator level %1 the editor of %2 does not let this be replaced.");
        return {{}, refusal(words.arg(QString::number(operatorLevel), instruction.name))};
    }
    const QString fault = textFault(line, instruction, recogniser);
    return fault.isEmpty() ? WrittenLine{line, {}} : WrittenLine{{}, refusal(fault)};
}

QString fillEditor(pendix::RLContentBase& editor, const QString& code)
{
    return guarded([&] { editor.FillWith(code); });
}

RoundTrip tryRoundTrip(const pendix::RlInstruction& instruction, const QString& line)
{
    RoundTrip trip;
    trip.before = splitLine(line).code.trimmed();
    const QPointer<pendix::RLContentBase> editor = createEditor(instruction, EditorRole::Change, &trip.fault).release();
    if (editor == nullptr) {
        return trip;
    }
    trip.fault = fillEditor(*editor, trip.before);
    if (trip.fault.isEmpty() && editor != nullptr) {
        trip.fault = guarded([&] { trip.after = editor->ToString(); });
    }
    delete editor;
    return trip;
}

std::optional<QString> withCode(const QString& line, const QString& code)
{
    const InstructionLine parts = splitLine(line);
    QString changed = indentation(parts.code) + code + parts.comment;
    return splitLine(changed).comment == parts.comment ? std::optional(changed) : std::nullopt;
}

} // namespace sim
