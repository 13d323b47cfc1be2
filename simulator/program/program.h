#ifndef SIMULATOR_PROGRAM_PROGRAM_H
#define SIMULATOR_PROGRAM_PROGRAM_H

#include "simulator/program/recogniser.h"

#include <QAbstractTableModel>
#include <QStringList>
#include <QUndoStack>

#include <optional>

namespace sim
{

/// The lines of a robot program, with the instruction that each of them is. Every edit can be undone; what an editor
/// has stored in the controller meanwhile stays there.
class Program : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Text, Instruction, Columns };

    explicit Program(QObject* parent = nullptr);

    /// What the lines are recognised with from now on.
    void setInstructions(const QList<pendix::RlInstruction>& instructions);
    const Recogniser& recogniser() const { return m_recogniser; }

    const QStringList& lines() const { return m_lines; }
    /// An empty text for a row that does not exist.
    QString line(int row) const { return m_lines.value(row); }

    /// A program from elsewhere, unmodified; there is nothing to undo.
    void load(const QStringList& lines);

    /// Puts a line before a row, or behind the last one. name: what is inserted, for the undo list.
    void insertLine(int row, const QString& line, const QString& name);
    void replaceLine(int row, const QString& line, const QString& name);
    void removeLine(int row);

    /// Its clean state is the program as it was loaded or saved.
    QUndoStack* undoStack() { return &m_undo; }
    /// While the lines and their views change. Nothing that may let the event loop run, such as building an editor, is
    /// to be done then: the next undo would meet a history in the middle of the last one.
    bool isBeingEdited() const { return m_editedRow.has_value(); }
    bool isModified() const { return !m_undo.isClean(); }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

signals:
    /// A row that has come or changed, or that follows a removed one. The edit is over.
    void edited(int row);

private:
    class Splice;
    void splice(int row, int removed, const QStringList& inserted);
    QString instructionText(const QString& line) const;
    bool isUnrecognised(const QString& line) const;

    Recogniser m_recogniser;
    QStringList m_lines;
    QUndoStack m_undo;
    std::optional<int> m_editedRow;
};

} // namespace sim

#endif
