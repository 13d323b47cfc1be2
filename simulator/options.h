#ifndef SIMULATOR_OPTIONS_H
#define SIMULATOR_OPTIONS_H

#include <QString>
#include <QStringList>

namespace sim
{

/// What the command line asks for.
struct Options {
    QString cellFile;
    QString stateFile;   ///< empty: nothing is kept
    QStringList plugins; ///< at least one
    QString checkFile;   ///< not empty: only say whether this plug-in loads
    QString tourFolder;  ///< not empty: run the tour and write its pictures there
    QString shotsFolder; ///< not empty: write a picture of every page and editor there
    QString language;    ///< of the plug-ins: "en" or "zh"
    int dpi = 0;         ///< density of the screen, 48..288; 0: the screen's own
    double zoom = 0;     ///< the host's font zoom, 0.75..3; 0: as the cell has it
    int level = 5;       ///< operator level at the start, 0..5
    bool powered = false;
    bool tracking = true;     ///< whether the seam-tracking plug-in is there
    double trackingDelay = 0; ///< seconds until it is loaded, 0..3600
};

struct ParsedOptions {
    Options options;
    QString error;    ///< what is wrong with the command line; empty: nothing
    QString helpText; ///< not empty: help was asked for
};

/// Needs a QCoreApplication. programFolder is where the default plug-in and cell lie.
ParsedOptions parseOptions(const QStringList& arguments, const QString& programFolder);

} // namespace sim

#endif
