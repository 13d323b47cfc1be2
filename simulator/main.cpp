#include "simulator/cellfile.h"
#include "simulator/exitcodes.h"
#include "simulator/options.h"
#include "simulator/pendantwindow.h"
#include "simulator/statefile.h"
#include "simulator/tour.h"

#include <QApplication>
#include <QDir>

#include <cstdio>

using namespace sim;

namespace
{

void print(std::FILE* stream, const QString& text)
{
    std::fputs(qPrintable(text + QLatin1Char('\n')), stream);
}

ParsedOptions readOptions(int argc, char* argv[])
{
    // The options decide how the application is started, so they are read before there is one.
    const QCoreApplication reader(argc, argv);
    return parseOptions(QCoreApplication::arguments(), QCoreApplication::applicationDirPath());
}

/// With no display there is nobody to work the window: the tour does.
void chooseDisplay(Options* options)
{
    const bool hasDisplay = !qEnvironmentVariableIsEmpty("DISPLAY") ||
                            !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
                            !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if (!hasDisplay && options->checkFile.isEmpty() && options->tourFolder.isEmpty()) {
        options->tourFolder = QStringLiteral("./pendant-tour");
        print(stdout, QStringLiteral("pendant: no display; running the tour into %1").arg(options->tourFolder));
    }
    if (!options->tourFolder.isEmpty() || !options->checkFile.isEmpty()) {
        // 96: the density at which the pages are designed; this platform's own default is another.
        for (const auto& [name, value] : {std::pair("QT_QPA_PLATFORM", "offscreen"), std::pair("QT_FONT_DPI", "96")}) {
            if (qEnvironmentVariableIsEmpty(name)) {
                qputenv(name, value);
            }
        }
    }
}

/// Cell and kept state; nothing when one of them is refused.
std::optional<Cell> readCellAndState(const Options& options, QJsonObject* kept)
{
    FileFault fault;
    std::optional<Cell> cell = loadCell(options.cellFile, &fault);
    if (cell && !options.stateFile.isEmpty()) {
        const std::optional<QJsonObject> state = loadState(options.stateFile, &fault);
        if (!state) {
            cell.reset();
        } else {
            *kept = *state;
        }
    }
    if (!cell) {
        print(stderr, QStringLiteral("pendant: %1").arg(fault.message()));
    }
    return cell;
}

int check(SimHost* host, const QString& file)
{
    PluginLoader loader(host);
    const LoadResult result = loader.load(file);
    print(stdout, result.fault == LoadFault::None ? QStringLiteral("ok: %1").arg(result.names.join(QLatin1String(", ")))
                                                  : QStringLiteral("%1: %2").arg(file, result.reason));
    return static_cast<int>(result.fault);
}

int runTour(PendantWindow* window, SimulatedController* controller, const Journal* journal, const QString& folder)
{
    if (!QDir().mkpath(folder)) {
        print(stderr, QStringLiteral("pendant: the folder %1 can't be made").arg(folder));
        return ExitBadInput;
    }
    Tour tour(window, controller, journal, QDir(folder));
    return tour.run() == 0 ? ExitOk : ExitTourFailed;
}

int runWindow(const Options& options, SimulatedController* controller, Journal* journal, SimHost* host)
{
    // The window goes before the plug-in objects: it owns their pages.
    PluginLoader loader(host);
    PendantWindow window(controller, journal, host);
    if (!options.stateFile.isEmpty()) {
        window.keepState(options.stateFile);
    }
    for (const QString& file : options.plugins) {
        const LoadResult result = loader.load(file);
        if (result.fault != LoadFault::None) {
            print(stderr, QStringLiteral("pendant: %1: %2").arg(file, result.reason));
        }
        window.addPlugin(result);
    }
    // The plug-ins are there: the connection to the controller comes up.
    emit host->sigNetworkConnect();
    if (!options.tourFolder.isEmpty()) {
        return runTour(&window, controller, journal, options.tourFolder);
    }
    window.show();
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[])
{
    ParsedOptions parsed = readOptions(argc, argv);
    if (!parsed.helpText.isEmpty()) {
        print(stdout, parsed.helpText);
        return ExitOk;
    }
    if (!parsed.error.isEmpty()) {
        print(stderr, QStringLiteral("pendant: %1 (--help lists the options)").arg(parsed.error));
        return ExitBadInput;
    }
    Options& options = parsed.options;
    chooseDisplay(&options);
    QApplication application(argc, argv);
    // The same look on every desk; plug-ins see what a pendant without a desktop theme shows them.
    QApplication::setStyle(QStringLiteral("Fusion"));

    QJsonObject kept;
    std::optional<Cell> cell = readCellAndState(options, &kept);
    if (!cell) {
        return ExitBadInput;
    }
    SimulatedController controller(*std::move(cell));
    if (!kept.isEmpty()) {
        controller.setNodes(kept);
    }
    controller.setOperatorLevel(options.level);
    controller.setPowered(options.powered);
    Journal journal;
    SimHost host(&controller, &journal);
    return options.checkFile.isEmpty() ? runWindow(options, &controller, &journal, &host)
                                       : check(&host, options.checkFile);
}
