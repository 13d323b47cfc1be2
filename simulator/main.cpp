#include "simulator/cellfile.h"
#include "simulator/childprocess.h"
#include "simulator/clock.h"
#include "simulator/exitcodes.h"
#include "simulator/options.h"
#include "simulator/pendantwindow.h"
#include "simulator/shots.h"
#include "simulator/statefile.h"
#include "simulator/tour.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QSaveFile>
#include <QScreen>
#include <QTemporaryFile>
#include <QTimer>
#include <QTranslator>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <optional>

using namespace sim;

namespace
{

const QString kFontZoom = QStringLiteral("brisel.fontzoom"); ///< a host setting

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

/// Whether a window can be opened. Qt ends the process when a display that is named can't be reached, so that
/// is found out in another one.
bool canShowWindows(int argc, char* argv[])
{
    if (!qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        return true;
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
        return false;
    }
    const auto openDisplay = [&] {
        const QGuiApplication probe(argc, argv);
        return 0;
    };
    const ChildEnd end = runInChild(openDisplay, true);
    return end.signal == 0 && end.exitCode == 0;
}

/// What Qt reads of the environment when it starts.
void setScreen(const Options& options)
{
    if (options.dpi > 0) {
        qputenv("QT_FONT_DPI", QByteArray::number(options.dpi));
    }
    // Chinese texts in the Chinese shapes of their characters, whatever the desk's own language.
    if (options.language == QLatin1String("zh") && qEnvironmentVariableIsEmpty("FC_LANG")) {
        qputenv("FC_LANG", "zh-cn");
    }
}

/// With no display there is nobody to work the window: the tour does.
void chooseDisplay(int argc, char* argv[], Options* options)
{
    const bool needsDisplay =
        options->checkFile.isEmpty() && options->tourFolder.isEmpty() && options->shotsFolder.isEmpty();
    if (needsDisplay && !canShowWindows(argc, argv)) {
        options->tourFolder = QStringLiteral("./pendant-tour");
        // The tour looks for English texts.
        options->language = QStringLiteral("en");
        print(stdout, QStringLiteral("pendant: no display; running the tour into %1").arg(options->tourFolder));
    }
    const bool isScripted = !options->tourFolder.isEmpty() || !options->shotsFolder.isEmpty();
    if (isScripted && !options->stateFile.isEmpty()) {
        print(stdout, QStringLiteral("pendant: %1 neither reads nor writes %2")
                          .arg(options->shotsFolder.isEmpty() ? QStringLiteral("the tour") : QStringLiteral("--shots"),
                               options->stateFile));
        options->stateFile.clear();
    }
    if (isScripted || !options->checkFile.isEmpty()) {
        // 96: the density at which the pages are designed; this platform's own default is another.
        for (const auto& [name, value] : {std::pair("QT_QPA_PLATFORM", "offscreen"), std::pair("QT_FONT_DPI", "96")}) {
            if (qEnvironmentVariableIsEmpty(name)) {
                qputenv(name, value);
            }
        }
    }
}

/// The cell, with what was kept of an earlier run in its place; nothing when one of the files is refused.
std::optional<Cell> readCellAndState(const Options& options)
{
    FileFault fault;
    std::optional<Cell> cell = loadCell(options.cellFile, &fault);
    if (cell && !options.stateFile.isEmpty()) {
        const std::optional<State> state = loadState(options.stateFile, &fault);
        if (state) {
            restoreState(*state, &*cell);
        } else {
            cell.reset();
        }
    }
    QSaveFile probe(options.stateFile);
    if (cell && !options.stateFile.isEmpty() && !probe.open(QIODevice::WriteOnly)) {
        fault.file = options.stateFile;
        fault.text = QStringLiteral("can't be written: %1").arg(probe.errorString());
        cell.reset();
    }
    if (!cell) {
        print(stderr, QStringLiteral("pendant: %1").arg(fault.message()));
    }
    return cell;
}

int loadOnly(SimHost* host, const Options& options)
{
    const QString& file = options.checkFile;
    PluginLoader loader(host);
    loader.setLanguage(options.language);
    const LoadResult result = loader.load(file);
    for (const QString& remark : result.remarks) {
        print(stdout, remark);
    }
    print(stdout, result.fault == LoadFault::None ? QStringLiteral("ok: %1").arg(result.names.join(QLatin1String(", ")))
                                                  : QStringLiteral("%1: %2").arg(file, result.reason));
    return static_cast<int>(result.fault);
}

/// Whether a file can be made in the folder, which is made first if need be.
bool isWritableFolder(const QString& folder)
{
    return QDir().mkpath(folder) && QTemporaryFile(QDir(folder).filePath(QStringLiteral("probe"))).open();
}

int runTour(PendantWindow* window, SimulatedController* controller, const Journal* journal, const QString& folder)
{
    Tour tour(window, controller, journal, QDir(folder));
    return tour.run() == 0 ? ExitOk : ExitTourFailed;
}

/// The seam-tracking plug-in that lies beside the program; empty when it is not there, not wanted or given by name.
QString trackingPlugin(const Options& options)
{
    const QFileInfo file(QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("Mirolt.so")));
    const bool isGiven = std::any_of(options.plugins.cbegin(), options.plugins.cend(),
                                     [&file](const QString& given) { return QFileInfo(given) == file; });
    return options.tracking && !isGiven && file.exists() ? file.filePath() : QString();
}

LoadResult loadPlugin(const QString& file, PluginLoader* loader)
{
    LoadResult result = loader->load(file);
    if (result.fault != LoadFault::None) {
        print(stderr, QStringLiteral("pendant: %1: %2").arg(file, result.reason));
    }
    return result;
}

/// Names of the plug-ins that the libraries hold, but for those that are to come later.
QStringList loadPlugins(const Options& options, PluginLoader* loader, PendantWindow* window)
{
    QStringList names;
    const auto add = [&](const LoadResult& result) {
        window->addPlugin(result);
        names += result.names;
    };
    const QString tracking = trackingPlugin(options);
    const bool isLate = options.trackingDelay > 0;
    // The others may ask for its widget as soon as they start. Its page stands behind theirs all the same.
    std::optional<LoadResult> sibling;
    if (!tracking.isEmpty() && !isLate) {
        sibling = loadPlugin(tracking, loader);
    }
    for (const QString& file : options.plugins) {
        add(loadPlugin(file, loader));
    }
    if (sibling) {
        add(*sibling);
    }
    if (!tracking.isEmpty() && isLate) {
        // The window is the timer's context: once it is gone nothing is loaded any more.
        QTimer::singleShot(qRound(options.trackingDelay * 1000), window,
                           [=] { window->addPlugin(loadPlugin(tracking, loader)); });
    }
    return names;
}

int runShots(PendantWindow* window, SimHost* host, SimulatedController* controller, const Options& options,
             const QStringList& plugins)
{
    const int dpi = qRound(QGuiApplication::primaryScreen()->logicalDotsPerInch());
    const double zoom = controller->fontZoom();
    Shots shots(window, host, controller, {options.language, dpi, zoom}, QDir(options.shotsFolder));
    return shots.run(plugins) == 0 ? ExitOk : ExitShotsFailed;
}

int runWindow(const Options& options, SimulatedController* controller, Journal* journal, SimHost* host)
{
    const QString pictures = options.shotsFolder.isEmpty() ? options.tourFolder : options.shotsFolder;
    if (!pictures.isEmpty()) {
        if (!isWritableFolder(pictures)) {
            print(stderr, QStringLiteral("pendant: nothing can be written to the folder %1").arg(pictures));
            return ExitBadInput;
        }
        // The same run makes the same pictures.
        stopClock();
    }
    // The window goes before the plug-in objects: it owns their pages.
    PluginLoader loader(host);
    loader.setLanguage(options.language);
    PendantWindow window(controller, journal, host);
    if (!options.stateFile.isEmpty()) {
        window.keepState(options.stateFile);
    }
    const QStringList plugins = loadPlugins(options, &loader, &window);
    // The plug-ins are there: the connection to the controller comes up.
    host->announceConnection();
    if (!options.tourFolder.isEmpty()) {
        return runTour(&window, controller, journal, options.tourFolder);
    }
    if (!options.shotsFolder.isEmpty()) {
        return runShots(&window, host, controller, options, plugins);
    }
    window.show();
    return QApplication::exec();
}

/// What Qt itself puts into pages, menus of line edits for one. Without Qt's translations it stays English.
void translateQtsOwnTexts(const QString& language, QApplication* application)
{
    auto* translator = new QTranslator(application);
    if (language == QLatin1String("zh") &&
        translator->load(QStringLiteral("qtbase_zh_CN"), QLibraryInfo::location(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(translator);
    }
}

int run(int argc, char* argv[], const Options& options)
{
    QApplication application(argc, argv);
    // The same look on every desk; plug-ins see what a pendant without a desktop theme shows them.
    QApplication::setStyle(QStringLiteral("Fusion"));
    translateQtsOwnTexts(options.language, &application);

    std::optional<Cell> cell = readCellAndState(options);
    if (!cell) {
        return ExitBadInput;
    }
    SimulatedController controller(*std::move(cell));
    controller.setOperatorLevel(options.level);
    controller.setPowered(options.powered);
    if (options.zoom > 0) {
        controller.setFontZoom(options.zoom);
    }
    Journal journal;
    SimHost host(&controller, &journal);
    return options.checkFile.isEmpty() ? runWindow(options, &controller, &journal, &host) : loadOnly(&host, options);
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
    // All options have been read. Qt would take some of them, --plugin for one, for options of its own.
    argc = 1;
    setScreen(options);
    chooseDisplay(argc, argv, &options);
    if (options.checkFile.isEmpty()) {
        return run(argc, argv, options);
    }
    const ChildEnd end = runInChild([&] { return run(argc, argv, options); }, false);
    if (end.signal != 0) {
        print(stdout, QStringLiteral("%1: crashed while it was loaded: %2")
                          .arg(options.checkFile, QString::fromLocal8Bit(strsignal(end.signal))));
        return static_cast<int>(LoadFault::Crashed);
    }
    return end.exitCode;
}
