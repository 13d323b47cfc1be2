#ifndef SIMULATOR_PROGRAM_PROGRAMEDITOR_H
#define SIMULATOR_PROGRAM_PROGRAMEDITOR_H

#include "simulator/program/insertpane.h"
#include "simulator/program/program.h"

#include <QWidget>

#include <functional>

class QAction;
class QHBoxLayout;
class QLabel;
class QTableView;
class QTabWidget;

namespace sim
{

class ChangePane;
class SimulatedController;

enum class FileUse { Open, Save };

/// Asks the user for a file; current: the one in use, may be empty. Empty: the user has changed their mind.
using ChooseFile = std::function<QString(FileUse use, const QString& current)>;

/// The pendant's program editor: the lines of one program, the panes to insert and to change instructions through
/// the editors that the plug-ins have registered, and the program's file.
class ProgramEditor : public QWidget
{
    Q_OBJECT

public:
    explicit ProgramEditor(const SimulatedController* controller, QWidget* parent = nullptr);
    ~ProgramEditor() override;

    /// The style sheet around the editors of these instructions from now on.
    void setEditorSheet(const QStringList& instructions, const QString& sheet);

    /// Takes over the instructions that the plug-ins have registered so far.
    void readRegistry();

    /// How files are chosen from now on; at first with the file dialogs of the desktop.
    void setFileChooser(const ChooseFile& choose) { m_choose = choose; }

    Program* program() { return m_program; }
    InsertPane* insertPane() { return m_insert; }
    int selectedRow() const;
    void selectRow(int row);

    /// Does it at once if nothing would be lost; else asks what to do with the changes first, and does it unless
    /// the user takes it back.
    void afterSaving(const std::function<void()>& act);

    /// False: the file was refused (a notice says why), and the program is the one from before.
    bool open(const QString& file);
    bool save(const QString& file);

public slots:
    void newProgram();
    void openProgram();
    /// Asks for a file unless the program has one. False: it was not saved.
    bool saveProgram();
    bool saveProgramAs();
    void removeSelected();

signals:
    /// Something went wrong with a file or a plug-in's registration.
    void notice(const QString& text);
    /// An editor's line was not taken.
    void refused(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

private:
    void createFileBar(QHBoxLayout* bar);
    QAction* addButton(QHBoxLayout* bar, const char* name, const QString& text, const QString& shortcut,
                       const std::function<void()>& act);
    void addActionButton(QHBoxLayout* bar, const char* name, QAction* action, const QString& shortcut);
    void insert(const QString& line, const QString& instruction, InsertPane::Place place);
    void followEdit(int row);
    void showSelected();
    void showFile();

    Program* m_program;
    InsertPane* m_insert;
    ChangePane* m_change;
    QTableView* m_table;
    QTabWidget* m_panes;
    QLabel* m_fileLabel;
    QAction* m_delete = nullptr;
    QHash<QString, QString> m_sheets; ///< of editors, by instruction
    QStringList m_reportedFaults;     ///< of instructions' patterns
    QString m_file;
    ChooseFile m_choose;
};

} // namespace sim

#endif
