#include "simulator/pendantwindow.h"

#include "simulator/buttonstrip.h"
#include "simulator/controllerpanel.h"
#include "simulator/framefont.h"
#include "simulator/iopanel.h"
#include "simulator/journalview.h"
#include "simulator/messagearea.h"
#include "simulator/monitorowner.h"
#include "simulator/nodespanel.h"
#include "simulator/noticebar.h"
#include "simulator/pluginarea.h"
#include "simulator/pointspanel.h"
#include "simulator/program/programeditor.h"
#include "simulator/simulatedmark.h"
#include "simulator/statefile.h"
#include "simulator/stationbar.h"
#include "simulator/stylerules.h"

#include <QCloseEvent>
#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QSplitter>
#include <QStackedWidget>
#include <QTabWidget>
#include <QVBoxLayout>

namespace sim
{

namespace
{

/// Below this width, the buttons beside the page left out, the inspector would take room that the page needs.
constexpr int kNarrow = 1200;
constexpr int kInspectorWidth = 412;
constexpr int kNarrowInspectorWidth = 340;
constexpr int kMessageRows = 4;
constexpr int kFewMessageRows = 3; ///< where the height is short, for the page
constexpr int kFramePointSize = 10;
constexpr int kInspectorPointSize = 9;
constexpr char kPosition[] = "statusPosition";
constexpr char kOwner[] = "statusOwner";
/// The plug-in whose values the controller's true ones are compared with, whatever else is loaded.
constexpr char kMirroredPlugin[] = "Corvane";

QWidget* findVisible(const QWidget* root, const QString& objectName)
{
    for (QWidget* widget : root->findChildren<QWidget*>(objectName)) {
        if (widget->isVisible()) {
            return widget;
        }
    }
    return nullptr;
}

QFrame* separator()
{
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

PendantWindow::PendantWindow(SimulatedController* controller, Journal* journal, SimHost* host, QWidget* parent)
    : QWidget(parent),
      m_controller(controller),
      m_journal(journal),
      m_station(new StationBar(controller, this)),
      m_splitter(new QSplitter(Qt::Horizontal, this)),
      m_centre(new QStackedWidget(this)),
      m_buttons(new ButtonStrip(host->buttonLists(), this)),
      m_plugins(new PluginArea(host, this)),
      m_monitor(new MonitorOwner(controller, host, this)),
      m_program(new ProgramEditor(controller, this)),
      m_messages(new MessageArea(this)),
      m_notices(new NoticeBar(this)),
      m_statusItems(new QHBoxLayout)
{
    setWindowTitle(tr("Pendant - SIMULATED"));
    setFrameFont(m_buttons, kInspectorPointSize);
    // One part at a time: a font of the window would reach into the plug-ins' pages.
    for (QWidget* part :
         std::initializer_list<QWidget*>{m_station, m_program, m_messages, m_notices, m_plugins->tabBar()}) {
        setFrameFont(part, kFramePointSize);
    }
    m_splitter->addWidget(createPendant());
    QTabWidget* inspector = createInspector();
    m_splitter->addWidget(inspector);
    m_splitter->setStretchFactor(0, 1);
    m_splitter->setStretchFactor(1, 0);
    m_splitter->setChildrenCollapsible(false);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new SimulatedMark(this));
    layout->addWidget(m_station);
    layout->addWidget(m_notices);
    layout->addWidget(separator());
    layout->addWidget(m_splitter, 1);

    connectProgram();
    connect(m_station, &StationBar::showPageAgain, this, &PendantWindow::showPageAgain);
    connect(m_station, &StationBar::showInspector, inspector, &QWidget::setVisible);
    connect(m_buttons, &ButtonStrip::shownChanged, this, [this] { shareWidth(width()); });
    connect(host, &SimHost::operatorMessage, m_messages, &MessageArea::add);
    connect(host, &SimHost::statusItemGiven, this, &PendantWindow::addStatusItem);
    connect(host, &SimHost::pluginWithdrawn, this, &PendantWindow::removeStatusItems);
    fitIntoScreen();
}

PendantWindow::~PendantWindow()
{
    // A button that is held comes up while all that its handler may reach is still there.
    m_buttons->hide();
    delete m_monitor;
}

void PendantWindow::fitIntoScreen()
{
    const QSize designed(kWidth, kHeight);
    const bool isOnADesk = QGuiApplication::platformName() != QLatin1String("offscreen");
    const QScreen* screen = isOnADesk ? QGuiApplication::primaryScreen() : nullptr;
    if (screen == nullptr) {
        fitInto(designed);
        return;
    }
    const QSize available = screen->availableSize();
    fitInto(available);
    if (designed.boundedTo(available) != designed) {
        // Leaves the room for the frame to the window manager, which alone knows it.
        setWindowState(windowState() | Qt::WindowMaximized);
    }
}

void PendantWindow::fitInto(const QSize& available)
{
    const QSize size = QSize(kWidth, kHeight).boundedTo(available);
    m_messages->setVisibleRows(size.height() < kHeight ? kFewMessageRows : kMessageRows);
    // First, since with an inspector the window may not become that narrow.
    shareWidth(size.width());
    layout()->activate();
    resize(size);
}

void PendantWindow::showAlone(int screenWidth)
{
    m_station->setInspectorShown(false);
    layout()->activate();
    resize(screenWidth + (m_buttons->isHidden() ? 0 : m_buttons->width()), kHeight);
}

void PendantWindow::shareWidth(int width)
{
    const bool isNarrow = width - (m_buttons->isHidden() ? 0 : m_buttons->width()) < kNarrow;
    const int inspector = isNarrow ? kNarrowInspectorWidth : kInspectorWidth;
    m_splitter->setSizes({width - inspector, inspector});
    m_station->setInspectorShown(!isNarrow);
}

QWidget* PendantWindow::createPendant()
{
    auto* pendant = new QWidget(this);
    auto* status = new QWidget(pendant);
    status->setObjectName(QStringLiteral("statusLine"));
    m_statusItems->setContentsMargins(8, 3, 8, 3);
    auto* caption = new QLabel(tr("Status"), status);
    setFrameFont(caption, kFramePointSize);
    m_statusItems->addWidget(caption);
    m_statusItems->addStretch(1);
    status->setLayout(m_statusItems);
    auto* screen = new QVBoxLayout;
    screen->setSpacing(0);
    m_centre->addWidget(m_plugins);
    m_centre->addWidget(m_program);
    screen->addWidget(m_centre, 1);
    screen->addWidget(separator());
    screen->addWidget(status);
    screen->addWidget(m_messages);
    auto* layout = new QHBoxLayout(pendant);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(screen, 1);
    layout->addWidget(m_buttons);
    return pendant;
}

void PendantWindow::connectProgram()
{
    connect(m_station, &StationBar::showProgram, this,
            [this](bool shown) { m_centre->setCurrentWidget(shown ? static_cast<QWidget*>(m_program) : m_plugins); });
    connect(m_program, &ProgramEditor::notice, this, &PendantWindow::notice);
    connect(m_program, &ProgramEditor::refused, this,
            [this](const QString& words) { m_journal->addNotice(tr("warning"), words); });
}

void PendantWindow::showProgram(bool shown)
{
    m_station->setProgramShown(shown);
}

void PendantWindow::closeEvent(QCloseEvent* event)
{
    if (!m_program->program()->isModified()) {
        event->accept();
        return;
    }
    event->ignore();
    m_program->afterSaving([this] {
        m_program->program()->undoStack()->setClean();
        close();
    });
}

QTabWidget* PendantWindow::createInspector()
{
    auto* inspector = new QTabWidget(this);
    inspector->setObjectName(QStringLiteral("inspector"));
    setFrameFont(inspector, kInspectorPointSize);
    const auto find = [this](const QString& name) { return mirroredWidget(name); };
    const auto statusItem = [this] { return mirroredStatusItem(); };
    inspector->addTab(new JournalView(m_journal, inspector), tr("Journal"));
    auto* scroll = new QScrollArea(inspector);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(new ControllerPanel(m_controller, find, statusItem));
    inspector->addTab(scroll, tr("Controller"));
    inspector->addTab(new NodesPanel(m_controller, inspector), tr("Nodes"));
    inspector->addTab(new PointsPanel(m_controller, inspector), tr("Points"));
    inspector->addTab(new IoPanel(m_controller, inspector), tr("I/O"));
    return inspector;
}

void PendantWindow::addPlugin(const LoadResult& result)
{
    if (result.fault != LoadFault::None) {
        m_journal->addNotice(tr("error"), tr("%1: %2").arg(result.file, result.reason));
    }
    applyStyle(result);
    for (const QString& remark : result.remarks) {
        m_journal->addNotice({}, remark);
    }
    m_plugins->add(result);
    m_monitor->take(result);
    if (result.bringsInstructions) {
        // Otherwise what is being typed there stays: a plug-in may come late.
        m_program->readRegistry();
    }
}

void PendantWindow::applyStyle(const LoadResult& result)
{
    QString sheet;
    for (const QString& name : result.names) {
        const StyleRules rules = StyleRules::ofPlugin(name);
        for (const QString& fault : rules.faults()) {
            m_journal->addNotice(tr("warning"), fault);
        }
        m_plugins->setSheet(name, rules.sheet());
        sheet += rules.sheet();
    }
    // Instructions belong to a library, not to one of its plug-ins.
    m_program->setEditorSheet(result.instructions, sheet);
}

void PendantWindow::keepState(const QString& file)
{
    const auto save = [this, file] {
        const QString reason =
            saveState(file, m_controller->nodes(), m_controller->points(), m_controller->cell().changes);
        if (!reason.isEmpty()) {
            notice(tr("the state file %1 could not be written: %2").arg(file, reason));
        }
    };
    connect(m_controller, &SimulatedController::nodesStored, this, save);
    connect(m_controller, &SimulatedController::pointsChanged, this, save);
    connect(m_controller, &SimulatedController::registersChanged, this, save);
}

void PendantWindow::notice(const QString& text)
{
    m_journal->addNotice(tr("error"), text);
    m_notices->tell(text);
}

QWidget* PendantWindow::findShown(const QString& objectName) const
{
    QWidget* onScreen = findVisible(m_centre, objectName);
    return onScreen != nullptr ? onScreen : findVisible(m_buttons, objectName);
}

QWidget* PendantWindow::mirroredWidget(const QString& objectName) const
{
    const QWidget* page = m_plugins->pageOf(QLatin1String(kMirroredPlugin));
    return findVisible(page != nullptr ? page : m_plugins, objectName);
}

QWidget* PendantWindow::mirroredStatusItem() const
{
    const QVector<QWidget*> items = statusItems();
    for (const QString& plugin : {QString::fromLatin1(kMirroredPlugin), m_plugins->currentPlugin()}) {
        for (QWidget* item : items) {
            if (item->property(kOwner) == plugin) {
                return item;
            }
        }
    }
    return nullptr;
}

void PendantWindow::showPageAgain()
{
    m_plugins->showAgain();
}

QVector<QWidget*> PendantWindow::statusItems() const
{
    // Without the caption before them and the stretch behind them.
    QVector<QWidget*> items;
    for (int place = 1; place < m_statusItems->count() - 1; ++place) {
        items.append(m_statusItems->itemAt(place)->widget());
    }
    return items;
}

void PendantWindow::addStatusItem(const QString& plugin, QWidget* item, int position)
{
    item->setProperty(kOwner, plugin);
    item->setProperty(kPosition, position);
    m_statusItems->removeWidget(item);
    int place = 1;
    for (const QWidget* other : statusItems()) {
        place += other->property(kPosition).toInt() <= position ? 1 : 0;
    }
    m_statusItems->insertWidget(place, item);
    item->show();
}

void PendantWindow::removeStatusItems(const QString& plugin)
{
    for (QWidget* item : statusItems()) {
        if (item->property(kOwner) == plugin) {
            delete item;
        }
    }
}

} // namespace sim
