#include "simulator/shots.h"

#include "simulator/confignodes.h"
#include "simulator/layoutcheck.h"
#include "simulator/pluginarea.h"
#include "simulator/program/editorframe.h"
#include "simulator/program/programeditor.h"
#include "simulator/userinput.h"

#include <QDialog>
#include <QFile>
#include <QHeaderView>
#include <QJsonArray>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>

namespace sim
{

namespace
{

/// A pendant's screen; its buttons stand beside it.
constexpr int kScreenWidth = 1280;
/// The program editor is the pendant's, with as much room as its maker gives it: here enough to see every editor whole.
constexpr int kEditorHeight = 1600;
constexpr int kLayoutPasses = 10;
/// Longer than the slide of a switch, so that a picture shows it at rest; only the picture depends on it.
constexpr int kSlideMs = 350;

void settle()
{
    // What a layout posts may make others post again.
    for (int pass = 0; pass < kLayoutPasses; ++pass) {
        QCoreApplication::processEvents();
    }
}

/// Lines that open what an editor shows only when it is needed.
constexpr struct {
    const char* instruction;
    const char* line;
} kFullLines[] = {
    {"LsMoveL", "LsMoveL(RelTool(p1,-123.456,0,25,-180,90,45.5), v2000, fine, weld_head_long, table_right);"},
    {"LsMoveC", "LsMoveC(RelTool(p1,-123.456,0,25,-180,90,45.5), Offs(p2,1,2,-300.5), v2000, z100, weld_head_long, "
                "table_right);"},
    {"LsMoveCF", "LsMoveCF(RelTool(p1,-123.456,0,25,-180,90,45.5), Offs(p2,1,2,-300.5), 3600, \"ConstPose\", v2000, "
                 "z100, weld_head_long, table_right);"},
    {"LaserOn", "LaserOn(\"LsData4\", 250);"},
    {"LsParaSet", "LsParaSet(\"LsData30\", \"Time\", 1000);"},
};

/// An editor without the empty room below it; any other widget whole.
QPixmap picture(QWidget* widget)
{
    const auto* frame = qobject_cast<EditorFrame*>(widget);
    const QWidget* editor = frame != nullptr ? frame->editor() : nullptr;
    constexpr int kMargin = 12;
    const int height = editor != nullptr ? editor->sizeHint().height() + kMargin : widget->height();
    return widget->grab(QRect(0, 0, widget->width(), qMin(height, widget->height())));
}

/// How many pixels of the page must be scrolled to be seen.
int hiddenHeight(const QWidget* page)
{
    int hidden = 0;
    for (const QScrollArea* area : page->findChildren<QScrollArea*>()) {
        if (area->isVisible() && area->widget() != nullptr) {
            hidden = qMax(hidden, area->widget()->height() - area->viewport()->height());
        }
    }
    for (const QTableView* table : page->findChildren<QTableView*>()) {
        if (table->isVisible()) {
            hidden = qMax(hidden, table->verticalHeader()->length() - table->viewport()->height());
        }
    }
    return hidden;
}

QString fullLine(const pendix::RlInstruction& instruction)
{
    for (const auto& row : kFullLines) {
        if (instruction.name == QLatin1String(row.instruction)) {
            return QLatin1String(row.line);
        }
    }
    return instruction.defaultLine;
}

/// The greatest number of nodes with short and with long numbers; the other curves stay as the cell has them.
QJsonObject longCurves()
{
    constexpr int kMostNodes = 10;
    QJsonArray power;
    QJsonArray feed;
    for (int i = 1; i <= kMostNodes; ++i) {
        power.append(QJsonArray{i - 0.5, 600 * i - 200 * (i % 2)});
        feed.append(QJsonArray{65535.99 - 5000 * (kMostNodes - i), 65535 - 4500 * (kMostNodes - i)});
    }
    return {{QStringLiteral("laser_power_node"), kMostNodes},
            {QStringLiteral("power_nodes_data"), power},
            {QStringLiteral("laser_feed_node"), kMostNodes},
            {QStringLiteral("feed_nodes_data"), feed}};
}

/// A name of the code as part of a file name: "WeldSettingPage" becomes "weld-setting-page".
QString fileWord(const QString& name)
{
    QString word;
    for (const QChar letter : name) {
        if (letter.isUpper() && !word.isEmpty() && word.back().isLower()) {
            word += QLatin1Char('-');
        }
        word += letter.isLetterOrNumber() ? letter : QLatin1Char('-');
    }
    return word.toLower();
}

} // namespace

struct Shots::Pane {
    int place; ///< among the tabs of the program editor
    const char* role;
};

const Shots::Pane Shots::kPanes[] = {{0, "insert"}, {1, "change"}};

Shots::Shots(PendantWindow* window, SimHost* host, SimulatedController* controller, const Look& look,
             const QDir& folder)
    : m_window(window), m_host(host), m_controller(controller), m_look(look), m_folder(folder), m_out(stdout)
{
}

int Shots::run(const QStringList& plugins)
{
    publish(node::kCurves, longCurves());
    m_window->show();
    settle();
    m_window->showAlone(kScreenWidth);
    shootPages(plugins);
    // The page in place of that of a plug-in that did not load.
    for (const QLabel* failure : m_window->findChildren<QLabel*>(QStringLiteral("loadFailure"))) {
        complain(tr("a plug-in"), failure->text().simplified());
    }
    shootStatusItems();
    shootButtons();
    const QSize size = m_window->size();
    shootEditors();
    m_window->showProgram(false);
    m_window->resize(size);
    publish(node::kSetting, {{QLatin1String(node::kMainEnable), true}});
    // Of the curves one is closed, the others are only locked.
    publish(node::kIo, {{QStringLiteral("duty_cycle_enabled"), false}});
    shootPages(plugins, QStringLiteral("-locked"));
    if (m_pictures == 0) {
        complain(tr("nothing"), tr("there is no page and no editor to take a picture of"));
    }
    writeControls();
    m_out << tr("%1 pictures, %2 layout faults\n").arg(m_pictures).arg(m_faults);
    m_out.flush();
    return m_faults;
}

void Shots::shootPages(const QStringList& plugins, const QString& state)
{
    for (const QString& plugin : plugins) {
        if (QWidget* page = m_host->page(plugin)) {
            shootPage(page, plugin, state);
        }
    }
}

void Shots::publish(const char* name, const QJsonObject& members)
{
    QJsonObject nodes = m_controller->nodes();
    QJsonObject changed = nodes.value(QLatin1String(name)).toObject();
    for (auto member = members.constBegin(); member != members.constEnd(); ++member) {
        changed.insert(member.key(), member.value());
    }
    nodes.insert(QLatin1String(name), changed);
    m_controller->setNodes(nodes);
}

void Shots::shootPage(QWidget* page, const QString& plugin, const QString& state)
{
    auto* area = m_window->findChild<PluginArea*>();
    area->setCurrentWidget(area->pageOf(plugin));
    settle();
    const auto* navigation = page->findChild<QWidget*>(QStringLiteral("wgtNav"));
    const auto* stack = page->findChild<QStackedWidget*>();
    if (navigation == nullptr || stack == nullptr) {
        shootTabs(page, fileWord(plugin), state);
        return;
    }
    for (QToolButton* button : navigation->findChildren<QToolButton*>(QString(), Qt::FindDirectChildrenOnly)) {
        const QString obstacle = userinput::click(button);
        const QString name = fileWord(QString::fromLatin1(stack->currentWidget()->metaObject()->className()));
        if (!obstacle.isEmpty()) {
            complain(name, tr("the button \"%1\": %2").arg(button->text(), obstacle));
        }
        userinput::settle(kSlideMs);
        shootTabs(page, name, state);
    }
}

/// What is on a tab that is not open would be in no picture.
void Shots::shootTabs(QWidget* page, const QString& name, const QString& state)
{
    const QTabWidget* tabs = nullptr;
    for (const QTabWidget* candidate : page->findChildren<QTabWidget*>()) {
        tabs = candidate->isVisible() ? candidate : tabs;
    }
    if (tabs == nullptr) {
        shootWhole(page, name + state);
        return;
    }
    for (int tab = 0; tab < tabs->count(); ++tab) {
        const QString obstacle = userinput::click(tabs->tabBar(), tabs->tabBar()->tabRect(tab).center());
        const QString own = name + QLatin1Char('-') + fileWord(tabs->widget(tab)->objectName()) + state;
        if (!obstacle.isEmpty()) {
            complain(own, tr("the tab \"%1\": %2").arg(tabs->tabText(tab), obstacle));
        }
        computeLine(tabs->widget(tab), own);
        userinput::settle(kSlideMs);
        shootWhole(page, own);
    }
    userinput::click(tabs->tabBar(), tabs->tabBar()->tabRect(0).center());
}

/// Has the line of a curve drawn, on a tab with one that can be edited. What was drawn once stays.
void Shots::computeLine(const QWidget* tab, const QString& name)
{
    for (QPushButton* button :
         tab->findChildren<QPushButton*>(QRegularExpression(QStringLiteral("^pushButton_compute")))) {
        const QString obstacle = button->isEnabled() ? userinput::click(button) : QString();
        if (!obstacle.isEmpty()) {
            complain(name, obstacle);
        }
    }
}

/// What is scrolled out of sight would be in no picture: the window grows until the page is whole.
void Shots::shootWhole(QWidget* page, const QString& name)
{
    const QSize size = m_window->size();
    settle();
    m_window->resize(size.width(), size.height() + hiddenHeight(page));
    shoot(page, name);
    m_window->resize(size);
}

void Shots::shootStatusItems()
{
    const auto* line = m_window->findChild<QWidget*>(QStringLiteral("statusLine"));
    for (QWidget* item : line->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        const QString plugin = item->property("statusOwner").toString();
        if (!plugin.isEmpty()) {
            shoot(item, QStringLiteral("status-") + fileWord(plugin));
        }
    }
}

void Shots::shootButtons()
{
    auto* strip = m_window->findChild<QWidget*>(QStringLiteral("buttonStrip"));
    if (strip == nullptr || strip->isHidden()) {
        return;
    }
    shoot(strip, QStringLiteral("pendant-buttons"));
    QWidget* monitor = strip->findChild<QWidget*>(QStringLiteral("pendantButton_pendant_1_1"));
    if (monitor == nullptr) {
        return;
    }
    const QString obstacle = userinput::click(monitor);
    const QList<QDialog*> dialogs = m_window->findChildren<QDialog*>(QString(), Qt::FindDirectChildrenOnly);
    if (!obstacle.isEmpty() || dialogs.isEmpty()) {
        complain(QStringLiteral("monitor"), tr("the dialog does not open. %1").arg(obstacle));
        return;
    }
    shoot(dialogs.first(), QStringLiteral("monitor"));
    dialogs.first()->close();
}

void Shots::shootEditors()
{
    m_window->resize(m_window->width(), kEditorHeight);
    m_window->showProgram(true);
    for (const pendix::RlInstruction& instruction : pendix::RlRegistry::instance().instructions()) {
        for (const Pane& pane : kPanes) {
            const QString name = fileWord(instruction.name) + QLatin1Char('-') + QLatin1String(pane.role);
            EditorFrame* frame = openEditor(pane, instruction);
            if (frame->editor() == nullptr) {
                complain(name, tr("there is no editor"));
                continue;
            }
            shoot(frame, name);
        }
    }
}

EditorFrame* Shots::openEditor(const Pane& pane, const pendix::RlInstruction& instruction)
{
    ProgramEditor* editor = m_window->programEditor();
    auto* panes = editor->findChild<QTabWidget*>(QStringLiteral("programPanes"));
    panes->setCurrentIndex(pane.place);
    editor->insertPane()->pick(instruction.name);
    editor->program()->load({fullLine(instruction)});
    editor->selectRow(0);
    return panes->currentWidget()->findChild<EditorFrame*>();
}

void Shots::shoot(QWidget* widget, const QString& name)
{
    settle();
    for (const LayoutFault& fault : layoutFaults(widget)) {
        complain(name, fault.words);
    }
    listControls(widget, name);
    const QString file = QStringLiteral("%1_%2.png").arg(name, nameOfLook());
    if (!picture(widget).save(m_folder.filePath(file))) {
        complain(name, tr("the picture %1 can't be written").arg(file));
    }
    ++m_pictures;
}

/// What has a name, and what takes input; Qt's own parts of its widgets have neither or a name of theirs.
void Shots::listControls(const QWidget* widget, const QString& name)
{
    for (const QWidget* control : widget->findChildren<QWidget*>()) {
        const QString own = control->objectName();
        const bool isPart = own.startsWith(QLatin1String("qt_"));
        const bool isControl = !own.isEmpty() || control->focusPolicy() != Qt::NoFocus;
        if (control->isVisible() && isControl && !isPart) {
            m_controls.append(
                QStringLiteral("%1: %2 %3").arg(name, QLatin1String(control->metaObject()->className()), own));
        }
    }
}

void Shots::writeControls()
{
    m_controls.sort();
    QFile file(m_folder.filePath(QStringLiteral("controls_%1.txt").arg(nameOfLook())));
    const QByteArray lines = m_controls.join(QLatin1Char('\n')).toUtf8() + '\n';
    if (!file.open(QIODevice::WriteOnly) || file.write(lines) != lines.size()) {
        complain(tr("the list of controls"), file.errorString());
    }
}

QString Shots::nameOfLook() const
{
    return QStringLiteral("%1_%2dpi_z%3")
        .arg(m_look.language, QString::number(m_look.dpi), QString::number(m_look.zoom));
}

void Shots::complain(const QString& name, const QString& words)
{
    ++m_faults;
    m_out << QStringLiteral("%1 %2 dpi zoom %3: %4: %5\n")
                 .arg(m_look.language, QString::number(m_look.dpi), QString::number(m_look.zoom), name, words);
}

} // namespace sim
