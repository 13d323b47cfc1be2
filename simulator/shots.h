#ifndef SIMULATOR_SHOTS_H
#define SIMULATOR_SHOTS_H

#include "simulator/pendantwindow.h"

#include <QCoreApplication>
#include <QDir>
#include <QTextStream>

namespace sim
{

class EditorFrame;

/// Takes a picture of every page and every tab on it, of every status item and instruction editor of the loaded
/// plug-ins, of the pendant buttons and the monitor, each at the size that it has beside or on a screen of 1280 pixels,
/// and checks their layout; the pages also while welding is enabled. Curves are as long as they may be, and drawn. A
/// denser screen has no more pixels: plug-ins have to damp their fonts. One process shows one language, density and
/// zoom: Qt reads a density once, and plug-ins read language and zoom when they are built. So each writes a list of
/// what its pictures show, for others to compare ("controls_zh_144dpi_z1.5.txt", a line "view: class name" for each
/// control).
class Shots
{
    Q_DECLARE_TR_FUNCTIONS(sim::Shots)

public:
    /// What the pictures show; stands in their names ("weld-setting-page_zh_144dpi_z1.5.png") and before each fault.
    struct Look {
        QString language;
        int dpi;
        double zoom;
    };

    /// folder must exist.
    Shots(PendantWindow* window, SimHost* host, SimulatedController* controller, const Look& look, const QDir& folder);

    /// Takes the pictures of these plug-ins, prints one line per fault and returns how many there are.
    int run(const QStringList& plugins);

private:
    struct Pane;
    static const Pane kPanes[];

    /// state: the end of the names of their pictures, for pages that are in another state than usual.
    void shootPages(const QStringList& plugins, const QString& state = {});
    void shootPage(QWidget* page, const QString& plugin, const QString& state);
    void shootTabs(QWidget* page, const QString& name, const QString& state);
    void computeLine(const QWidget* tab, const QString& name);
    /// Replaces members of a node, as something that happens at the machine.
    void publish(const char* name, const QJsonObject& members);
    void shootWhole(QWidget* page, const QString& name);
    void shootStatusItems();
    void shootButtons(); ///< and the monitor that one of them opens
    void shootEditors();
    EditorFrame* openEditor(const Pane& pane, const pendix::RlInstruction& instruction);
    void shoot(QWidget* widget, const QString& name);
    void listControls(const QWidget* widget, const QString& name);
    void writeControls();
    QString nameOfLook() const;
    void complain(const QString& name, const QString& words);

    PendantWindow* m_window;
    SimHost* m_host;
    SimulatedController* m_controller;
    Look m_look;
    QDir m_folder;
    QTextStream m_out;
    QStringList m_controls;
    int m_pictures = 0;
    int m_faults = 0;
};

} // namespace sim

#endif
