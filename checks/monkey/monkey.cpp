#include "checks/monkey/monkey.h"

#include "checks/monkey/hands.h"
#include "checks/support/scramble.h"
#include "simulator/confignodes.h"
#include "simulator/program/programeditor.h"

#include <QApplication>
#include <QFile>
#include <QJsonDocument>
#include <QPixmap>
#include <QPushButton>
#include <QToolButton>

#include <algorithm>
#include <iterator>
#include <numeric>

using namespace sim;

namespace
{

/// How often it may act while one action waits, and how deep such actions may nest.
constexpr int kMostWhileWaiting = 4;
constexpr int kDeepest = 3;
constexpr int kLongestPauseMs = 800;
/// One host call out of so many takes long enough for something else to happen.
constexpr int kSlowCalls = 12;
/// The rows of others' doings.
constexpr int kOthers = 7;

/// Whatever navigates does so with tool buttons that stay down.
bool opensPage(const QWidget* widget)
{
    const auto* button = qobject_cast<const QToolButton*>(widget);
    return button != nullptr && button->isCheckable();
}

QString onOff(bool on)
{
    return on ? QStringLiteral("on") : QStringLiteral("off");
}

} // namespace

// What others do comes first: see interfere().
const Monkey::ActionRow Monkey::kActions[] = {{"level", 5, &Monkey::changeLevel},
                                              {"power", 3, &Monkey::changePower},
                                              {"line", 2, &Monkey::changeLine},
                                              {"value", 1, &Monkey::changeValue},
                                              {"answer", 5, &Monkey::changeAnswer},
                                              {"node", 5, &Monkey::changeNode},
                                              {"register", 3, &Monkey::changeRegister},
                                              {"use", 52, &Monkey::useWidget},
                                              {"again", 6, &Monkey::useAgain},
                                              {"finish", 14, &Monkey::finish},
                                              {"key", 8, &Monkey::pressKey},
                                              {"click", 6, &Monkey::clickAnywhere},
                                              {"page", 6, &Monkey::openPage},
                                              {"show", 5, &Monkey::showAgain},
                                              {"time", 3, &Monkey::letTimePass},
                                              {"size", 1, &Monkey::resize},
                                              {"paint", 1, &Monkey::paint},
                                              {"program", 6, &Monkey::openProgram},
                                              {"spoil", 3, &Monkey::spoilProgramFile}};

Monkey::Monkey(PendantWindow* window, SimulatedController* controller, WatchedHost* host, Logbook* logbook, Dice* dice)
    : m_window(window),
      m_controller(controller),
      m_host(host),
      m_logbook(logbook),
      m_dice(dice),
      m_soundNodes(controller->nodes()),
      m_soundRegisters(controller->cell().registers)
{
    // A file dialog leads anywhere on the disk.
    window->programEditor()->setFileChooser([this](FileUse, const QString&) { return chooseFile(); });
}

void Monkey::run(int actions)
{
    m_left = actions;
    VirtualTime::instance()->whenIdle = [this] { return actWhileWaiting(); };
    m_host->meanwhile = [this] { interfere(); };
    while (m_left > 0 && m_logbook->finding().isEmpty()) {
        m_leftWhileWaiting = m_dice->below(kMostWhileWaiting + 1);
        act(anyOf(std::begin(kActions), std::end(kActions)));
        // A person takes a moment from one action to the next.
        VirtualTime::instance()->pass(m_dice->below(kLongestPauseMs));
        takeInventory();
    }
    VirtualTime::instance()->whenIdle = nullptr;
    m_host->meanwhile = nullptr;
}

const Monkey::ActionRow& Monkey::anyOf(const ActionRow* begin, const ActionRow* end)
{
    const int weights = std::accumulate(begin, end, 0, [](int sum, const ActionRow& row) { return sum + row.weight; });
    int choice = m_dice->below(weights);
    while (choice >= begin->weight) {
        choice -= begin->weight;
        ++begin;
    }
    return *begin;
}

void Monkey::act(const ActionRow& row)
{
    --m_left;
    const WatchedHost::Action action(m_host);
    m_logbook->count(QStringLiteral("actions"));
    m_logbook->note(QStringLiteral("%1 %2").arg(QString(m_host->depth(), QLatin1Char('>')), QLatin1String(row.name)));
    const QString done = (this->*row.act)();
    m_logbook->note(QStringLiteral("    %1: %2").arg(QLatin1String(row.name), done));
}

bool Monkey::actWhileWaiting()
{
    if (m_leftWhileWaiting == 0 || m_left == 0 || m_host->depth() >= kDeepest) {
        return false;
    }
    --m_leftWhileWaiting;
    m_logbook->count(QStringLiteral("while waiting"));
    // Half of the time somebody else is at it: what the pendant waits for is about to become untrue.
    act(m_dice->oneIn(2) ? anyOf(kActions, kActions + kOthers) : anyOf(std::begin(kActions), std::end(kActions)));
    return true;
}

void Monkey::interfere()
{
    while (m_dice->oneIn(kSlowCalls) && actWhileWaiting()) {
    }
}

QWidget* Monkey::stage() const
{
    if (QWidget* popup = QApplication::activePopupWidget()) {
        return popup;
    }
    QWidget* modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : m_window;
}

void Monkey::takeInventory()
{
    for (const QWidget* widget : hands::usable(stage())) {
        m_logbook->offered(hands::nameOf(widget));
    }
}

QVector<QWidget*> Monkey::usableIn(Room room) const
{
    const QWidget* pages = m_window->findChild<QWidget*>(QStringLiteral("pluginArea"));
    const QWidget* keys = m_window->findChild<QWidget*>(QStringLiteral("buttonStrip"));
    const QWidget* inspector = m_window->findChild<QWidget*>(QStringLiteral("inspector"));
    const QWidget* program = m_window->programEditor();
    QVector<QWidget*> found;
    for (QWidget* widget : hands::usable(stage())) {
        Room own = Room::Frame;
        if (inspector != nullptr && inspector->isAncestorOf(widget)) {
            own = Room::Inspector;
        } else if (program->isAncestorOf(widget)) {
            own = Room::Program;
        } else if (keys != nullptr && keys->isAncestorOf(widget)) {
            own = Room::Keys;
        } else if (pages != nullptr && pages->isAncestorOf(widget)) {
            own = opensPage(widget) ? Room::Navigation : Room::Page;
        }
        if (own == room) {
            found.append(widget);
        }
    }
    return found;
}

/// Those that were never used; of them what was seen the least, as it may soon be gone. All when there are none.
QVector<QWidget*> Monkey::mostCuriousOf(const QVector<QWidget*>& widgets) const
{
    QMap<int, QVector<QWidget*>> unknown;
    for (QWidget* widget : widgets) {
        const QString name = hands::nameOf(widget);
        if (!m_logbook->wasUsed(name)) {
            unknown[m_logbook->timesOffered(name)].append(widget);
        }
    }
    return unknown.isEmpty() ? widgets : unknown.first();
}

QString Monkey::useOneOf(QVector<QWidget*> widgets)
{
    if (widgets.isEmpty()) {
        return QStringLiteral("nothing can be used");
    }
    // What is empty asks to be filled in; with one empty field among fifty, a page would hardly ever be complete.
    if (m_dice->oneIn(3)) {
        QVector<QWidget*> empty;
        std::copy_if(widgets.cbegin(), widgets.cend(), std::back_inserter(empty), hands::isToBeChosen);
        widgets = empty.isEmpty() ? widgets : empty;
    }
    // Curious half of the time, so that nothing stays unused for long.
    if (m_dice->oneIn(2)) {
        widgets = mostCuriousOf(widgets);
    }
    // By kind first: two buttons that do something among twenty fields are to be pressed as often as these.
    QMap<QString, QVector<QWidget*>> kinds;
    for (QWidget* widget : qAsConst(widgets)) {
        kinds[QLatin1String(widget->metaObject()->className())].append(widget);
    }
    QWidget* widget = m_dice->oneOf(kinds[m_dice->oneOf(kinds.keys())]);
    m_lastUsed = widget;
    const QString name = hands::nameOf(widget);
    m_logbook->used(name);
    m_logbook->note(QStringLiteral("    %1").arg(name));
    return hands::use(widget, *m_dice);
}

/// An impatient operator presses once more what does not answer.
QString Monkey::useAgain()
{
    return m_lastUsed != nullptr && hands::usable(stage()).contains(m_lastUsed) ? useOneOf({m_lastUsed})
                                                                                : QStringLiteral("gone");
}

/// Whoever has changed something means to keep or to drop it. A page with fifty fields and two such buttons would
/// hardly be saved before one of the fields is spoilt.
QString Monkey::finish()
{
    QVector<QWidget*> buttons;
    for (QWidget* widget : stage() == m_window ? usableIn(Room::Page) : QVector<QWidget*>()) {
        if (qobject_cast<QPushButton*>(widget) != nullptr) {
            buttons.append(widget);
        }
    }
    return buttons.isEmpty() ? useWidget() : useOneOf(buttons);
}

QString Monkey::useWidget()
{
    if (stage() != m_window) {
        return useOneOf(hands::usable(stage()));
    }
    // By room, so that a page with two fields gets as much as the inspector with twenty.
    const int choice = m_dice->below(10);
    if (choice == 0) {
        return useOneOf(usableIn(Room::Inspector));
    }
    if (choice == 1) {
        return useOneOf(usableIn(Room::Frame));
    }
    if (choice == 2) {
        return useOneOf(usableIn(Room::Keys));
    }
    const QVector<QWidget*> fields = usableIn(m_window->programEditor()->isVisible() ? Room::Program : Room::Page);
    return fields.isEmpty() ? openPage() : useOneOf(fields);
}

QString Monkey::pressKey()
{
    return hands::pressAnyKey(stage(), *m_dice);
}

QString Monkey::clickAnywhere()
{
    return hands::clickAnywhere(stage(), *m_dice);
}

QString Monkey::openPage()
{
    m_window->showProgram(false);
    return useOneOf(usableIn(Room::Navigation));
}

QString Monkey::openProgram()
{
    m_window->showProgram(true);
    return QStringLiteral("done");
}

QString Monkey::chooseFile()
{
    // Few, so that what was saved is opened again.
    const QString names[] = {QString(), QStringLiteral("one.rl"), QStringLiteral("two.rl"),
                             QStringLiteral("no folder/three.rl")};
    const QString& name = names[m_dice->below(static_cast<int>(std::size(names)))];
    return name.isEmpty() ? name : m_programs.filePath(name);
}

QString Monkey::spoilProgramFile()
{
    const QString name = chooseFile();
    QFile file(name);
    if (name.isEmpty() || !file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        return QStringLiteral("no file");
    }
    // Also lines of the motions, which a random operator seldom gets to insert.
    const QByteArray spoils[] = {"MoveAbsJ(Home, v100);\n",
                                 "LaserOn(\"LsData99\") // x\n",
                                 "\xff\n",
                                 {"\0\n", 2},
                                 "LsMoveL(p1, v20, fine, tool0, wobj0);\n",
                                 "LsMoveC(P1, Offs(P2,0,0,5), v20, fine, tool0); // arc\n",
                                 "LsMoveCF(P1, P2, 360, \"RotAxis\", v20, z10, tool0, wobj0);\n"};
    file.write(spoils[m_dice->below(static_cast<int>(std::size(spoils)))]);
    return QStringLiteral("done");
}

QString Monkey::showAgain()
{
    m_window->showPageAgain();
    return QStringLiteral("done");
}

QString Monkey::changeLevel()
{
    // Mostly one that may change things: the others are refused everything.
    const int level = m_dice->oneIn(3) ? m_dice->below(3) : 3 + m_dice->below(3);
    m_controller->setOperatorLevel(level);
    return QString::number(level);
}

QString Monkey::changePower()
{
    const bool on = m_dice->oneIn(3);
    m_controller->setPowered(on);
    return onOff(on);
}

QString Monkey::changeLine()
{
    const bool up = !m_dice->oneIn(3);
    m_controller->setConnected(up);
    return onOff(up);
}

QString Monkey::changeValue()
{
    const QString name = m_dice->oneOf(valueNames());
    const bool on = m_dice->oneIn(2);
    m_controller->setValue(name, on);
    return name + QLatin1Char(' ') + onOff(on);
}

QString Monkey::changeAnswer()
{
    // What a controller is not supposed to say, on top of what the simulator lets a person choose.
    if (m_dice->oneIn(4)) {
        m_host->bend = [this](const QJsonArray& answer) { return scrambled(answer, *m_dice).toArray(); };
        return QStringLiteral("all bent");
    }
    m_host->bend = nullptr;
    const QString command = m_dice->oneOf(commandNames());
    const AnswerKind kind = m_dice->oneIn(2) ? AnswerKind::Proper : m_dice->oneOf(answerKinds());
    const int delays[] = {0, 0, 50, 2000};
    const int delay = delays[m_dice->below(static_cast<int>(std::size(delays)))];
    m_controller->setPlan(command, {kind, delay});
    return QStringLiteral("%1: %2 after %3 ms").arg(command, answerLabel(kind), QString::number(delay));
}

/// A node of sound members, some of which have what another of their type should have.
QJsonObject Monkey::mixedUp(QJsonObject node)
{
    constexpr int kMostMixedUp = 30;
    for (int left = m_dice->below(kMostMixedUp); left > 0 && !node.isEmpty(); --left) {
        const QString to = m_dice->oneOf(node.keys());
        QStringList twins = node.keys();
        twins.erase(std::remove_if(twins.begin(), twins.end(),
                                   [&](const QString& key) { return node.value(key).type() != node.value(to).type(); }),
                    twins.end());
        node.insert(to, QJsonValue(node.value(m_dice->oneOf(twins))));
    }
    return node;
}

QString Monkey::changeNode()
{
    QJsonObject nodes = m_controller->nodes();
    const QString name = m_dice->oneOf(nodeNames());
    const QJsonValue sound = m_soundNodes.value(name);
    const bool spoil = m_dice->oneIn(3);
    if (spoil) {
        nodes.insert(name, m_dice->oneIn(2) ? mixedUp(sound.toObject()) : scrambled(sound, *m_dice));
    } else {
        nodes.insert(name, sound);
    }
    m_controller->setNodes(nodes);
    return name + (spoil ? QStringLiteral(" spoilt") : QStringLiteral(" mended"));
}

QString Monkey::changeRegister()
{
    const QJsonArray& registers = m_soundRegisters;
    const auto access = [&registers](int place) { return registers.at(place)[QLatin1String("rw")].toString(); };
    if (m_dice->oneIn(3)) {
        for (int place = 0; place < registers.size(); ++place) {
            m_controller->setRegisterPublished(place, true);
            m_controller->setRegisterAccess(place, access(place));
        }
        return QStringLiteral("all mended");
    }
    // Mostly one that is in use: any other is hardly ever missed.
    const QByteArray nodes = QJsonDocument(m_soundNodes).toJson();
    QVector<int> used;
    for (int i = 0; i < registers.size(); ++i) {
        if (nodes.contains('"' + registers.at(i)[QLatin1String("name")].toString().toUtf8() + '"')) {
            used.append(i);
        }
    }
    const int any = m_dice->below(registers.size());
    const int place = used.isEmpty() || m_dice->oneIn(3) ? any : m_dice->oneOf(used);
    const QString name = registers.at(place)[QLatin1String("name")].toString();
    if (m_dice->oneIn(3)) {
        m_controller->setRegisterPublished(place, false);
        return name + QStringLiteral(" is gone");
    }
    const QString changed =
        m_dice->oneOf(QStringList{QStringLiteral("ro"), QStringLiteral("wo"), QStringLiteral("rw")});
    m_controller->setRegisterAccess(place, changed);
    return name + QLatin1Char(' ') + changed;
}

QString Monkey::letTimePass()
{
    const int ms = 1 + m_dice->below(3000);
    VirtualTime::instance()->pass(ms);
    return QStringLiteral("%1 ms").arg(ms);
}

QString Monkey::resize()
{
    const QSize size(700 + m_dice->below(800), 500 + m_dice->below(500));
    m_window->resize(size);
    return QStringLiteral("%1x%2").arg(size.width()).arg(size.height());
}

QString Monkey::paint()
{
    return m_window->grab().isNull() ? QStringLiteral("nothing") : QStringLiteral("done");
}
