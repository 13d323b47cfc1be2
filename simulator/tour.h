#ifndef SIMULATOR_TOUR_H
#define SIMULATOR_TOUR_H

#include "simulator/pendantwindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

namespace sim
{

/// A scripted session at the pendant: works the plug-in's widgets with mouse and keys, prints for every step
/// what the controller got and what the operator was told, and takes a picture of the window.
class Tour
{
    Q_DECLARE_TR_FUNCTIONS(sim::Tour)

public:
    struct Step {
        const char* title;
        const char* picture; ///< file name of its picture, without number and suffix
        void (*act)(Tour& tour);
    };

    /// folder must exist.
    Tour(PendantWindow* window, SimulatedController* controller, const Journal* journal, const QDir& folder);

    /// Runs all steps and returns how many did not go as they should.
    int run();

    // For the steps:
    SimulatedController* controller() const { return m_controller; }
    PendantWindow* window() const { return m_window; }
    /// Clicks a visible widget of the page, by its object name; what prevents it fails the step.
    void click(const QString& objectName);
    void click(QWidget* widget);
    void type(const QString& objectName, const QString& text);
    /// Opens the tab with that text of the tab widget with that object name.
    void openTab(const char* tabs, const QString& text);
    /// A condition that must hold; otherwise the step fails with these words.
    void expect(bool holds, const QString& words);
    /// The controller got exactly these commands ("name argument" or only "name") in this step.
    void expectCommands(const QStringList& commands);
    /// The operator was told exactly these messages ("level: text") in this step.
    void expectMessages(const QStringList& messages);
    /// Every command of this step left the operator without a word.
    void expectUntold();
    bool isEnabled(const QString& objectName) const;
    /// Lines that are printed with the step.
    void say(const QStringList& lines) { m_said += lines; }
    /// A file in the folder of the pictures.
    QString file(const QString& name) const { return m_folder.filePath(name); }

private:
    void runStep(const Step& step);
    QList<const JournalEntry*> entries(EntryKind kind) const;
    void print(const QString& title, const QString& picture);
    QString takePicture(const char* name);

    PendantWindow* m_window;
    SimulatedController* m_controller;
    const Journal* m_journal;
    QDir m_folder;
    QTextStream m_out;
    int m_number = 0;
    int m_failed = 0;
    int m_mark = 0;           ///< length of the journal when the step began
    QStringList m_said;       ///< by the step itself
    QStringList m_complaints; ///< what did not hold in the step
};

} // namespace sim

#endif
