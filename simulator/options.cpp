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

const QStringList kLanguages{QStringLiteral("en"), QStringLiteral("zh")};

QString tr(const char* text)
{
    return QCoreApplication::translate("sim::Options", text);
}

struct OptionSet {
    QCommandLineOption cell{QStringLiteral("cell"),
                            tr("Starting content of the cell (default: cell.json beside the program)."),
                            QStringLiteral("FILE")};
    QCommandLineOption state{QStringLiteral("state"),
                             tr("Keep the configuration nodes, the points and the registers in FILE from run to run."),
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
    QCommandLineOption shots{QStringLiteral("shots"),
                             tr("Write a picture of every page and editor to DIR, check their layout, and end."),
                             QStringLiteral("DIR")};
    QCommandLineOption language{QStringLiteral("language"),
                                tr("Language of the plug-ins, en or zh (default en), until the program ends."),
                                QStringLiteral("LANGUAGE")};
    QCommandLineOption dpi{QStringLiteral("dpi"),
                           tr("Density of the pendant's screen, 48 to 288 dots per inch (default: this screen's)."),
                           QStringLiteral("N")};
    QCommandLineOption zoom{QStringLiteral("zoom"),
                            tr("The pendant's font zoom at the start, 0.75 to 3 (default: as the cell has it)."),
                            QStringLiteral("Z")};
    QCommandLineOption level{QStringLiteral("level"), tr("Operator level at the start, 0 to 5 (default 5)."),
                             QStringLiteral("N")};
    QCommandLineOption powered{QStringLiteral("powered"), tr("Start with the robot powered.")};
    QCommandLineOption trackingDelay{QStringLiteral("tracking-delay"),
                                     tr("Load the seam-tracking plug-in only after so many seconds, up to 3600."),
                                     QStringLiteral("SECONDS")};
    QCommandLineOption noTracking{QStringLiteral("no-tracking"), tr("Leave the seam-tracking plug-in out.")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")}, tr("Print this help.")};

    QList<QCommandLineOption> all() const
    {
        return {cell, state, plugin, check,   tour,          shots,      language,
                dpi,  zoom,  level,  powered, trackingDelay, noTracking, help};
    }
};

QString helpText(const QCommandLineParser& parser)
{
    return parser.helpText() +
           tr("\nExit codes: 0 all went well, 1 a step of the tour or the check of a layout failed, 2 bad\n"
              "options or a refused cell or state file. With --check:\n") +
           loadFaultTable() +
           tr("\nWithout a display that can be reached the program runs the tour into ./pendant-tour. The tour\n"
              "starts from the cell, sets level and power itself, leaves a state file alone and speaks\n"
              "English; its clock stands still. As on a pendant, another language needs a restart.\n"
              "QT_QPA_PLATFORM and the other variables of Qt choose another kind of display.\n");
}

struct NumberRow {
    QCommandLineOption option;
    double lowest;
    double highest;
    bool isWhole;
};

QList<NumberRow> numbers(const OptionSet& set)
{
    return {
        {set.level, 0, SimulatedController::kHighestLevel, true},
        {set.dpi, 48, 288, true},
        {set.zoom, 0.75, 3, false},
        {set.trackingDelay, 0, 3600, false},
    };
}

/// What is wrong with an option whose value is a number; empty when it is in order or not given.
QString numberComplaint(const QCommandLineParser& parser, const NumberRow& row)
{
    if (!parser.isSet(row.option)) {
        return {};
    }
    bool isNumber = false;
    const QString text = parser.value(row.option);
    const double number = row.isWhole ? text.toInt(&isNumber) : text.toDouble(&isNumber);
    // Written so that "nan" is refused too.
    if (isNumber && number >= row.lowest && number <= row.highest) {
        return {};
    }
    const QString words = row.isWhole ? tr("--%1 needs a whole number from %2 to %3, not \"%4\"")
                                      : tr("--%1 needs a number from %2 to %3, not \"%4\"");
    return words.arg(row.option.names().first(), QString::number(row.lowest), QString::number(row.highest), text);
}

/// The first thing wrong with a command line that the parser could read; empty when it is in order.
QString complaint(const QCommandLineParser& parser, const OptionSet& set)
{
    if (!parser.positionalArguments().isEmpty()) {
        return tr("unexpected argument \"%1\"").arg(parser.positionalArguments().first());
    }
    for (const QCommandLineOption& option : {set.cell, set.state, set.plugin, set.check, set.tour, set.shots}) {
        if (parser.isSet(option) && parser.values(option).contains(QString())) {
            return tr("--%1 needs a name").arg(option.names().first());
        }
    }
    for (const QCommandLineOption& option : {set.cell, set.state, set.check, set.tour, set.shots, set.language, set.dpi,
                                             set.zoom, set.level, set.trackingDelay}) {
        if (parser.values(option).size() > 1) {
            return tr("--%1 is given more than once").arg(option.names().first());
        }
    }
    if (parser.isSet(set.check) + parser.isSet(set.tour) + parser.isSet(set.shots) > 1) {
        return tr("--check, --tour and --shots don't go together");
    }
    if (parser.isSet(set.tour) && parser.isSet(set.language) && parser.value(set.language) != kLanguages.first()) {
        return tr("--tour looks for English texts: it goes with --language en only");
    }
    if (parser.isSet(set.trackingDelay) && parser.isSet(set.noTracking)) {
        return tr("--tracking-delay and --no-tracking don't go together");
    }
    if (parser.isSet(set.language) && !kLanguages.contains(parser.value(set.language))) {
        return tr("--language needs one of %1, not \"%2\"")
            .arg(kLanguages.join(QLatin1String(", ")), parser.value(set.language));
    }
    for (const NumberRow& row : numbers(set)) {
        QString words = numberComplaint(parser, row);
        if (!words.isEmpty()) {
            return words;
        }
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
    options.shotsFolder = parser.value(set.shots);
    options.language = parser.isSet(set.language) ? parser.value(set.language) : kLanguages.first();
    options.dpi = parser.value(set.dpi).toInt();
    options.zoom = parser.value(set.zoom).toDouble();
    options.tracking = !parser.isSet(set.noTracking);
    options.trackingDelay = parser.value(set.trackingDelay).toDouble();
    options.level = parser.isSet(set.level) ? parser.value(set.level).toInt() : options.level;
    options.powered = parser.isSet(set.powered);
    return result;
}

} // namespace sim
