#include "simulator/program/program.h"

#include <QApplication>
#include <QColor>
#include <QStyle>
#include <QTextDocument>
#include <QUndoCommand>

#include <utility>

namespace sim
{

/// Puts lines in the place of others, and back.
class Program::Splice : public QUndoCommand
{
public:
    Splice(Program* program, int row, int removed, const QStringList& inserted, const QString& text)
        : QUndoCommand(text),
          m_program(program),
          m_row(row),
          m_removed(program->m_lines.mid(row, removed)),
          m_inserted(inserted)
    {
    }

    void redo() override { m_program->splice(m_row, m_removed.size(), m_inserted); }
    void undo() override { m_program->splice(m_row, m_inserted.size(), m_removed); }

private:
    Program* m_program;
    int m_row;
    QStringList m_removed;
    QStringList m_inserted;
};

Program::Program(QObject* parent) : QAbstractTableModel(parent), m_recogniser({})
{
    connect(&m_undo, &QUndoStack::indexChanged, this, [this] {
        if (m_editedRow) {
            emit edited(*std::exchange(m_editedRow, std::nullopt));
        }
    });
}

void Program::setInstructions(const QList<pendix::RlInstruction>& instructions)
{
    beginResetModel();
    m_recogniser = Recogniser(instructions);
    endResetModel();
}

void Program::load(const QStringList& lines)
{
    beginResetModel();
    m_lines = lines;
    endResetModel();
    m_undo.clear();
}

void Program::insertLine(int row, const QString& line, const QString& name)
{
    m_undo.push(new Splice(this, qBound(0, row, m_lines.size()), 0, {line}, tr("insert %1").arg(name)));
}

void Program::replaceLine(int row, const QString& line, const QString& name)
{
    if (row >= 0 && row < m_lines.size() && m_lines.at(row) != line) {
        m_undo.push(new Splice(this, row, 1, {line}, tr("change %1").arg(name)));
    }
}

void Program::removeLine(int row)
{
    if (row >= 0 && row < m_lines.size()) {
        m_undo.push(new Splice(this, row, 1, {}, tr("delete line %1").arg(QString::number(row + 1))));
    }
}

void Program::splice(int row, int removed, const QStringList& inserted)
{
    m_editedRow = row;
    const int changed = qMin(removed, inserted.size());
    for (int i = 0; i < changed; ++i) {
        m_lines.replace(row + i, inserted.at(i));
    }
    if (changed > 0) {
        emit dataChanged(index(row, 0), index(row + changed - 1, Columns - 1));
    }
    if (removed > changed) {
        beginRemoveRows({}, row + changed, row + removed - 1);
        m_lines.erase(m_lines.begin() + row + changed, m_lines.begin() + row + removed);
        endRemoveRows();
    }
    if (inserted.size() > changed) {
        beginInsertRows({}, row + changed, row + inserted.size() - 1);
        for (int i = changed; i < inserted.size(); ++i) {
            m_lines.insert(row + i, inserted.at(i));
        }
        endInsertRows();
    }
    m_editedRow = qMin(row, m_lines.size() - 1);
}

int Program::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_lines.size();
}

int Program::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : Columns;
}

bool Program::isUnrecognised(const QString& line) const
{
    return !Recogniser::isBlank(line) && m_recogniser.find(line) == nullptr;
}

QString Program::instructionText(const QString& line) const
{
    const pendix::RlInstruction* instruction = m_recogniser.find(line);
    if (instruction != nullptr) {
        return instruction->name;
    }
    return Recogniser::isBlank(line) ? QString() : tr("unrecognised");
}

QVariant Program::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_lines.size()) {
        return {};
    }
    const QString& line = m_lines.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return index.column() == Text ? line : instructionText(line);
    case Qt::ToolTipRole:
        return isUnrecognised(line) ? tr("No instruction of a loaded plug-in recognises this line. It stays as it is.")
                                    : Qt::convertFromPlainText(line);
    case Qt::ForegroundRole:
        return isUnrecognised(line) ? QVariant(QColor(190, 0, 20)) : QVariant();
    case Qt::DecorationRole:
        return index.column() == Instruction && isUnrecognised(line)
                   ? QVariant(QApplication::style()->standardIcon(QStyle::SP_MessageBoxWarning))
                   : QVariant();
    default:
        return {};
    }
}

QVariant Program::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole) {
        return QAbstractTableModel::headerData(section, orientation, role);
    }
    if (orientation == Qt::Vertical) {
        return section + 1;
    }
    return section == Text ? tr("Line") : tr("Instruction");
}

} // namespace sim
