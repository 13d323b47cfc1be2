#include "simulator/options.h"

#include "simulator/pluginloader.h"
#include "simulator/simulatedcontroller.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>

namespace sim
{

namespace
{

QString tr(const char* text)
{
    return QCoreApplication::translate("sim::Options", text);
}

struct OptionSet {
    QCommandLineOption cell{QStringLiteral("cell"),
                            tr("Starting content of the cell (default: cell.json beside the program)."),
                            QStringLiteral("FILE")};
    QCommandLineOption state{QStringLiteral("state"),
                             tr("Keep the configuration nodes and the points in FILE from run to run."),
                             QStringLiteral("FILE")};
    QCommandLineOption plugin{
        QStringLiteral("plugin"),
        tr("Load this plug-in; may be given several times (default: Corvane.so beside the program)."),
        QStringLiteral("FILE")};
    QCommandLineOption check{QStringLiteral("check"), tr("Only say whether this plug-in loads, and why not."),
                             QStringLiteral("FILE")};
    QCommandLineOption tour{QStringLiteral("tour"),
                            tr("Work through a scripted session without a display and write its pictures to DIR."),
                            QStringLiteral("DIR")};
    QCommandLineOption level{QStringLiteral("level"), tr("Operator level at the start, 0 to 5 (default 5)."),
                             QStringLiteral("N")};
    QCommandLineOption powered{QStringLiteral("powered"), tr("Start with the robot powered.")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")}, tr("Print this help.")};

    QList<QCommandLineOption> all() const { return {cell, state, plugin, check, tour, level, powered, help}; }
};

QString helpText(const QCommandLineParser& parser)
{
    return parser.helpText() +
           tr("\nExit codes: 0 all went well, 1 a step of the tour failed, 2 bad options or a refused cell or\n"
              "state file. With --check:\n") +
           loadFaultTable() +
           tr("\nWithout a display that can be reached the program runs the tour into ./pendant-tour. The tour\n"
              "starts from the cell, sets level and power itself, and leaves a state file alone; its clock\n"
              "stands still.\n"
              "QT_QPA_PLATFORM and the other variables of Qt choose another kind of display.\n");
}

/// The first thing wrong with a command line that the parser could read; empty when it is in order.
QString complaint(const QCommandLineParser& parser, const OptionSet& set)
{
    if (!parser.positionalArguments().isEmpty()) {
        return tr("unexpected argument \"%1\"").arg(parser.positionalArguments().first());
    }
    for (const QCommandLineOption& option : {set.cell, set.state, set.plugin, set.check, set.tour}) {
        if (parser.isSet(option) && parser.values(option).contains(QString())) {
            return tr("--%1 needs a name").arg(option.names().first());
        }
    }
    for (const QCommandLineOption& option : {set.cell, set.state, set.check, set.tour, set.level}) {
        if (parser.values(option).size() > 1) {
            return tr("--%1 is given more than once").arg(option.names().first());
        }
    }
    if (parser.isSet(set.check) && parser.isSet(set.tour)) {
        return tr("--check and --tour don't go together");
    }
    bool isNumber = true;
    const int level = parser.isSet(set.level) ? parser.value(set.level).toInt(&isNumber) : 0;
    if (!isNumber || level < 0 || level > SimulatedController::kHighestLevel) {
        return tr("--level needs a whole number from 0 to %1, not \"%2\"")
            .arg(QString::number(SimulatedController::kHighestLevel), parser.value(set.level));
    }
    return {};
}

} // namespace

ParsedOptions parseOptions(const QStringList& arguments, const QString& programFolder)
{
    const OptionSet set;
    QCommandLineParser parser;
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    parser.setApplicationDescription(tr("A teach pendant on the desk: loads its plug-ins as a real one does, with a "
                                        "simulated controller behind them."));
    parser.addOptions(set.all());
    ParsedOptions result;
    if (!parser.parse(arguments)) {
        result.error = parser.errorText();
        return result;
    }
    if (parser.isSet(set.help)) {
        result.helpText = helpText(parser);
        return result;
    }
    result.error = complaint(parser, set);
    const QDir folder(programFolder);
    Options& options = result.options;
    options.cellFile = parser.isSet(set.cell) ? parser.value(set.cell) : folder.filePath(QStringLiteral("cell.json"));
    options.stateFile = parser.value(set.state);
    options.plugins = parser.isSet(set.plugin) ? parser.values(set.plugin)
                                               : QStringList{folder.filePath(QStringLiteral("Corvane.so"))};
    options.checkFile = parser.value(set.check);
    options.tourFolder = parser.value(set.tour);
    options.level = parser.isSet(set.level) ? parser.value(set.level).toInt() : options.level;
    options.powered = parser.isSet(set.powered);
    return result;
}

} // namespace sim
