#ifndef SIMULATOR_PROGRAM_CHANGEPANE_H
#define SIMULATOR_PROGRAM_CHANGEPANE_H

#include "simulator/program/instructionwriter.h"
#include "simulator/program/program.h"

#include <QWidget>

#include <optional>

class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace sim
{

class EditorFrame;
class SimulatedController;

/// The selected line: which instruction it is, its property editor filled with it, and what that editor can't
/// express, so that it is known before the line is replaced. The line's indentation and comment stay.
class ChangePane : public QWidget
{
    Q_OBJECT

public:
    ChangePane(const Program* program, const SimulatedController* controller, QWidget* parent = nullptr);

    /// The style sheets of editors by their instruction.
    void setSheets(const QHash<QString, QString>& sheets) { m_sheets = sheets; }

    /// Shows a row of the program in a new editor, unless it is shown already as it stands. A row that does not exist
    /// stands for no selection.
    void showRow(int row);

signals:
    void lineWritten(int row, const QString& line, const QString& instruction);
    void refused(const QString& words);

private:
    void buildRow(int row);
    void showNothing(const QString& why);
    void showRoundTrip(const RoundTrip& trip);
    void replace();
    QString refusalOf(const QString& line, const WrittenLine& written, QString* after) const;

    const Program* m_program;
    const SimulatedController* m_controller;
    QLabel* m_match;
    QPlainTextEdit* m_roundTrip;
    EditorFrame* m_frame;
    QPushButton* m_replace;
    int m_row = -1;
    QString m_line; ///< as it is shown
    QHash<QString, QString> m_sheets;
    pendix::RlInstruction m_instruction;
    bool m_isAsking = false;      ///< an editor is being built or asked, which may let the event loop run
    std::optional<int> m_nextRow; ///< was selected meanwhile
};

} // namespace sim

#endif
