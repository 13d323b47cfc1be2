#include "checks/monkey/hands.h"
#include "checks/monkey/monkey.h"
#include "simulator/cellfile.h"
#include "simulator/clock.h"
#include "simulator/pluginloader.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTextStream>

#include <cstdio>
#include <cstdlib>
#include <random>

using namespace sim;

namespace
{

class SeededDice : public Dice
{
public:
    explicit SeededDice(quint64 seed) : m_engine(seed) {}
    int below(int bound) override { return static_cast<int>(m_engine() % static_cast<quint64>(bound)); }

private:
    std::mt19937_64 m_engine; // the same numbers with every compiler
};

/// Beginnings of warnings that say nothing about us.
constexpr const char* kHarmlessWarnings[] = {
    "This plugin does not support ", // the offscreen platform about itself, at every new window or popup
    "[corvane][JsonCommon] getRegisterValue is not an array", // the line is down
};

Logbook* theLogbook = nullptr;

void judgeMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    Q_UNUSED(context)
    if (type == QtDebugMsg || type == QtInfoMsg) {
        return;
    }
    for (const char* harmless : kHarmlessWarnings) {
        if (text.startsWith(QLatin1String(harmless))) {
            return;
        }
    }
    theLogbook->complain(QStringLiteral("Qt warns: %1").arg(text));
    if (type == QtFatalMsg) {
        std::abort();
    }
}

struct Orders {
    int actions = 0;
    quint64 seed = 0;
    QString log;
    QString plugin;
    QString cell;
    QString neighbour;
};

[[noreturn]] void refuse(const QString& why)
{
    std::fputs(qPrintable(QStringLiteral("monkey: %1\n").arg(why)), stderr);
    std::exit(2);
}

Orders readOrders()
{
    const QString folder = QCoreApplication::applicationDirPath();
    const QCommandLineOption actions(QStringLiteral("actions"), QStringLiteral("How often to act."),
                                     QStringLiteral("N"), QStringLiteral("1000"));
    const QCommandLineOption seed(QStringLiteral("seed"), QStringLiteral("The same seed does the same."),
                                  QStringLiteral("N"), QStringLiteral("1"));
    const QCommandLineOption log(QStringLiteral("log"), QStringLiteral("Where to write what is done."),
                                 QStringLiteral("FILE"), QStringLiteral("monkey.log"));
    const QCommandLineOption plugin(QStringLiteral("plugin"), QStringLiteral("The plug-in to work with."),
                                    QStringLiteral("FILE"), folder + QStringLiteral("/Corvane.so"));
    const QCommandLineOption cell(QStringLiteral("cell"), QStringLiteral("The cell to begin with."),
                                  QStringLiteral("FILE"), folder + QStringLiteral("/cell.json"));
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({actions, seed, log, plugin, cell});
    parser.process(*QCoreApplication::instance());
    bool actionsOk = false;
    bool seedOk = false;
    Orders orders{parser.value(actions).toInt(&actionsOk),
                  parser.value(seed).toULongLong(&seedOk),
                  parser.value(log),
                  parser.value(plugin),
                  parser.value(cell),
                  folder + QStringLiteral("/Mirolt.so")};
    if (!actionsOk || orders.actions < 1) {
        refuse(QStringLiteral("--actions needs a whole number from 1, not \"%1\"").arg(parser.value(actions)));
    }
    if (!seedOk) {
        refuse(QStringLiteral("--seed needs a whole number from 0, not \"%1\"").arg(parser.value(seed)));
    }
    return orders;
}

void work(const Orders& orders, Cell cell, Logbook* logbook)
{
    SimulatedController controller(std::move(cell));
    controller.setClock([] { return VirtualTime::instance()->now(); });
    Journal journal;
    WatchedHost host(&controller, &journal, logbook);
    PluginLoader loader(&host);
    PendantWindow window(&controller, &journal, &host);
    // The neighbour first, as a pendant does: its page is embedded in the package's. Its own page stays away, where the
    // same fields would take half of the operator's time.
    for (const QString& plugin : {orders.neighbour, orders.plugin}) {
        const LoadResult loaded = loader.load(plugin);
        if (loaded.fault != LoadFault::None) {
            refuse(QStringLiteral("%1: %2").arg(plugin, loaded.reason));
        }
        if (plugin == orders.plugin) {
            window.addPlugin(loaded);
        }
    }
    host.announceConnection();
    window.show();
    VirtualTime::instance()->rest();
    SeededDice dice(orders.seed);
    Monkey monkey(&window, &controller, &host, logbook, &dice);
    monkey.run(orders.actions);
    // The monkey goes before the pendant, which may still get answers while it is closed.
    host.bend = nullptr;
}

/// Once the pendant is closed, nothing of it may be left. The leak sanitizer can't see a widget that nobody owns: Qt
/// has a list of all.
void judgeLeftovers(Logbook* logbook)
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (const QWidget* widget : widgets) {
        if (widget->parentWidget() == nullptr) {
            logbook->complain(QStringLiteral("%1 is left when the pendant is closed").arg(hands::nameOf(widget)));
        }
    }
}

/// "3 actions, 1 commands": the counts of a run.
QString summary(const Logbook& logbook)
{
    QStringList parts;
    const QMap<QString, int> counts = logbook.counts();
    for (auto count = counts.constBegin(); count != counts.constEnd(); ++count) {
        parts.append(QStringLiteral("%1 %2").arg(QString::number(count.value()), count.key()));
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_FONT_DPI", "96");
    qputenv("QT_HASH_SEED", "0"); // the order of hashes is part of what is the same again
    QCoreApplication::setEventDispatcher(new VirtualTime);
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    stopClock();

    const Orders orders = readOrders();
    FileFault fault;
    std::optional<Cell> cell = loadCell(orders.cell, &fault);
    if (!cell) {
        refuse(fault.message());
    }
    Logbook logbook(orders.log);
    theLogbook = &logbook;
    qInstallMessageHandler(judgeMessage);
    work(orders, *std::move(cell), &logbook);
    judgeLeftovers(&logbook);
    qInstallMessageHandler(nullptr);
    theLogbook = nullptr;

    QTextStream out(stdout);
    for (const QString& line : logbook.inventory()) {
        out << line << '\n';
    }
    if (!logbook.finding().isEmpty()) {
        out << "seed " << orders.seed << ": BROKEN: " << logbook.finding() << '\n';
        return 1;
    }
    out << "seed " << orders.seed << ": " << summary(logbook) << ", digest " << logbook.digest() << '\n';
    return 0;
}
