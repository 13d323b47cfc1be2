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
    int level = 5;       ///< operator level at the start, 0..5
    bool powered = false;
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
