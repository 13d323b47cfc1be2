#ifndef SIMULATOR_PROGRAM_INSERTPANE_H
#define SIMULATOR_PROGRAM_INSERTPANE_H

#include "simulator/program/program.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QScrollArea;
class QTreeWidget;

namespace sim
{

class EditorFrame;
class SimulatedController;

/// The instructions of all plug-ins by group; the one that is picked shows its description and its insert editor,
/// built anew for each picking.
class InsertPane : public QWidget
{
    Q_OBJECT

public:
    enum class Place { Above, Below };

    InsertPane(const Program* program, const SimulatedController* controller, QWidget* parent = nullptr);

    /// The style sheets of editors by their instruction.
    void setSheets(const QHash<QString, QString>& sheets) { m_sheets = sheets; }

    /// Lists what the host's registry holds now.
    void listInstructions();

    /// Picks an instruction by its name, as a click on it does. False: it is not listed.
    bool pick(const QString& name);

signals:
    /// A new line, to stand above or below the selected one.
    void lineWritten(const QString& line, const QString& instruction, sim::InsertPane::Place place);
    void refused(const QString& words);

protected:
    void changeEvent(QEvent* event) override;

private:
    void fitWords();
    void showPicked();
    void buildPicked();
    void setInsertable(bool insertable);
    void insert(Place place);

    const Program* m_program;
    const SimulatedController* m_controller;
    QTreeWidget* m_tree;
    QScrollArea* m_words;
    QLabel* m_description;
    EditorFrame* m_frame;
    QPushButton* m_above;
    QPushButton* m_below;
    QHash<QString, QString> m_sheets;
    pendix::RlInstruction m_picked;
    bool m_isAsking = false;   ///< an editor is being asked, which may let the event loop run
    bool m_isOutdated = false; ///< something else was picked meanwhile
    QString m_obstacle;        ///< why a point was not stored meanwhile
};

} // namespace sim

#endif
