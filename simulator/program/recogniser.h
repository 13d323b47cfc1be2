#ifndef SIMULATOR_PROGRAM_RECOGNISER_H
#define SIMULATOR_PROGRAM_RECOGNISER_H

#include "pendixhost/host.h"

#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <vector>

namespace sim
{

/// Tells of which instruction a program line is. What it hands out belongs to it and stays until it is destroyed.
class Recogniser
{
public:
    explicit Recogniser(const QList<pendix::RlInstruction>& instructions);

    /// The instruction of a line; null: the line is blank, or no instruction's.
    /// The first instruction whose pattern is found in the whole line, comment included; failing that, the first
    /// whose pattern is found in the line's name alone, or that has a command record instead of a pattern and
    /// is called so.
    const pendix::RlInstruction* find(const QString& line) const;

    /// Whether a line, such as an editor's, is one of this very instruction.
    bool accepts(const pendix::RlInstruction& instruction, const QString& line) const;

    /// One text for each pattern that is no regular expression; such a pattern is never applied.
    const QStringList& faults() const { return m_faults; }

    /// Whether a line holds no code: it is no instruction, but nothing to complain of either.
    static bool isBlank(const QString& line);

private:
    struct Row {
        pendix::RlInstruction instruction;
        QRegularExpression pattern;
        bool hasPattern; ///< one that can be applied
    };

    std::vector<Row> m_rows;
    QStringList m_faults;
};

} // namespace sim

#endif
