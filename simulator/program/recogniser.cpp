#include "simulator/program/recogniser.h"

#include "simulator/program/instructionline.h"

#include <QCoreApplication>

namespace sim
{

Recogniser::Recogniser(const QList<pendix::RlInstruction>& instructions)
{
    for (const pendix::RlInstruction& instruction : instructions) {
        const QRegularExpression pattern(instruction.pattern);
        if (!pattern.isValid()) {
            m_faults.append(QCoreApplication::translate("sim::Recogniser", "%1: the pattern %2 can't be used: %3 at "
                                                                           "offset %4")
                                .arg(instruction.name, instruction.pattern, pattern.errorString(),
                                     QString::number(pattern.patternErrorOffset())));
        }
        // An empty pattern would be found in every line.
        m_rows.push_back({instruction, pattern, pattern.isValid() && !instruction.pattern.isEmpty()});
    }
}

const pendix::RlInstruction* Recogniser::find(const QString& line) const
{
    if (isBlank(line)) {
        return nullptr;
    }
    for (const Row& row : m_rows) {
        if (row.hasPattern && row.pattern.match(line).hasMatch()) {
            return &row.instruction;
        }
    }
    const QString name = instructionName(line);
    for (const Row& row : m_rows) {
        const bool byName = row.instruction.hasSpec && row.instruction.pattern.isEmpty();
        if (byName ? row.instruction.name == name : row.hasPattern && row.pattern.match(name).hasMatch()) {
            return &row.instruction;
        }
    }
    return nullptr;
}

bool Recogniser::accepts(const pendix::RlInstruction& instruction, const QString& line) const
{
    const pendix::RlInstruction* found = find(line);
    return found != nullptr && found->name == instruction.name;
}

bool Recogniser::isBlank(const QString& line)
{
    return splitLine(line).code.trimmed().isEmpty();
}

} // namespace sim
