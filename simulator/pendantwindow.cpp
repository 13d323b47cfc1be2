#include "simulator/pendantwindow.h"

#include "simulator/controllerpanel.h"
#include "simulator/journalview.h"
#include "simulator/messagearea.h"
#include "simulator/nodespanel.h"
#include "simulator/noticebar.h"
#include "simulator/pluginarea.h"
#include "simulator/simulatedmark.h"
#include "simulator/statefile.h"
#include "simulator/stationbar.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QSplitter>
#include <QTabWidget>
#include <QVBoxLayout>

namespace sim
{

namespace
{

constexpr int kInspectorWidth = 412;
constexpr int kFramePointSize = 10;
constexpr int kInspectorPointSize = 9;
constexpr char kPosition[] = "statusPosition";

/// For one part of the frame at a time: a font of the window would reach into the plug-ins' pages.
void setPointSize(QWidget* widget, int size)
{
    QFont font = widget->font();
    font.setPointSize(size);
    widget->setFont(font);
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
      m_plugins(new PluginArea(host, this)),
      m_messages(new MessageArea(this)),
      m_notices(new NoticeBar(this)),
      m_statusItems(new QHBoxLayout)
{
    setWindowTitle(tr("Pendant - SIMULATED"));
    auto* station = new StationBar(controller, this);
    for (QWidget* part :
         {static_cast<QWidget*>(station), static_cast<QWidget*>(m_messages), static_cast<QWidget*>(m_notices)}) {
        setPointSize(part, kFramePointSize);
    }
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->addWidget(createPendant());
    QTabWidget* inspector = createInspector();
    splitter->addWidget(inspector);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    splitter->setCollapsible(0, false);
    splitter->setSizes({kWidth - kInspectorWidth, kInspectorWidth});

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new SimulatedMark(this));
    layout->addWidget(station);
    layout->addWidget(m_notices);
    layout->addWidget(separator());
    layout->addWidget(splitter, 1);
    resize(kWidth, kHeight);

    connect(station, &StationBar::showPageAgain, this, &PendantWindow::showPageAgain);
    connect(station, &StationBar::showInspector, inspector, &QWidget::setVisible);
    connect(host, &SimHost::operatorMessage, m_messages, &MessageArea::add);
    connect(host, &SimHost::statusItemGiven, this, &PendantWindow::addStatusItem);
}

QWidget* PendantWindow::createPendant()
{
    auto* pendant = new QWidget(this);
    auto* status = new QWidget(pendant);
    status->setObjectName(QStringLiteral("statusLine"));
    m_statusItems->setContentsMargins(8, 3, 8, 3);
    auto* caption = new QLabel(tr("Status"), status);
    setPointSize(caption, kFramePointSize);
    m_statusItems->addWidget(caption);
    m_statusItems->addStretch(1);
    status->setLayout(m_statusItems);
    auto* layout = new QVBoxLayout(pendant);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_plugins, 1);
    layout->addWidget(separator());
    layout->addWidget(status);
    layout->addWidget(m_messages);
    return pendant;
}

QTabWidget* PendantWindow::createInspector()
{
    auto* inspector = new QTabWidget(this);
    inspector->setObjectName(QStringLiteral("inspector"));
    setPointSize(inspector, kInspectorPointSize);
    const auto find = [this](const QString& name) { return findShown(name); };
    const auto statusItem = [this]() -> QWidget* { return m_firstStatusItem; };
    inspector->addTab(new JournalView(m_journal, inspector), tr("Journal"));
    auto* scroll = new QScrollArea(inspector);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(new ControllerPanel(m_controller, find, statusItem));
    inspector->addTab(scroll, tr("Controller"));
    inspector->addTab(new NodesPanel(m_controller, inspector), tr("Nodes"));
    return inspector;
}

void PendantWindow::addPlugin(const LoadResult& result)
{
    if (result.fault != LoadFault::None) {
        m_journal->addNotice(tr("error"), tr("%1: %2").arg(result.file, result.reason));
    }
    m_plugins->add(result);
}

void PendantWindow::keepState(const QString& file)
{
    connect(m_controller, &SimulatedController::nodesStored, this, [this, file] {
        const QString reason = saveState(file, m_controller->nodes());
        if (!reason.isEmpty()) {
            notice(tr("the state file %1 could not be written: %2").arg(file, reason));
        }
    });
}

void PendantWindow::notice(const QString& text)
{
    m_journal->addNotice(tr("error"), text);
    m_notices->tell(text);
}

QWidget* PendantWindow::findShown(const QString& objectName) const
{
    for (QWidget* widget : m_plugins->findChildren<QWidget*>(objectName)) {
        if (widget->isVisible()) {
            return widget;
        }
    }
    return nullptr;
}

void PendantWindow::showPageAgain()
{
    m_plugins->showAgain();
}

void PendantWindow::addStatusItem(QWidget* item, int position)
{
    // In the order of their positions, between the caption and the stretch that ends the line.
    item->setProperty(kPosition, position);
    int place = 1;
    while (place < m_statusItems->count() - 1 &&
           m_statusItems->itemAt(place)->widget()->property(kPosition).toInt() <= position) {
        ++place;
    }
    m_statusItems->insertWidget(place, item);
    item->show();
    if (m_firstStatusItem == nullptr) {
        m_firstStatusItem = item;
    }
}

} // namespace sim
