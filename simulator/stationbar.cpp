#include "simulator/stationbar.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace sim
{

namespace
{
constexpr int kLowestChangingLevel = 3;
}

StationBar::StationBar(SimulatedController* controller, QWidget* parent)
    : QWidget(parent),
      m_level(new QComboBox(this)),
      m_power(new QCheckBox(tr("Robot powered"), this)),
      m_connection(new QLabel(this)),
      m_connect(new QPushButton(this)),
      m_program(new QPushButton(tr("Program"), this)),
      m_inspector(new QPushButton(tr("Inspector"), this))
{
    for (int level = 0; level <= SimulatedController::kHighestLevel; ++level) {
        m_level->addItem(level < kLowestChangingLevel ? tr("%1 - may look").arg(QString::number(level))
                                                      : tr("%1 - may change").arg(QString::number(level)));
    }
    m_level->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    auto* again = new QPushButton(tr("Show page again"), this);
    again->setToolTip(tr("Hides the page and shows it again, as leaving it and coming back would.\n"
                         "Pages read operator level and controller when they are shown, not when these change."));
    m_program->setObjectName(QStringLiteral("showProgram"));
    m_program->setCheckable(true);
    m_program->setToolTip(tr("Shows the program editor in place of the plug-ins' pages."));
    m_inspector->setObjectName(QStringLiteral("showInspector"));
    m_inspector->setCheckable(true);
    m_inspector->setChecked(true);
    m_inspector->setToolTip(tr("Shows or hides the inspector; without it the page has the whole width."));
    m_connection->setMargin(4);
    auto* levelLabel = new QLabel(tr("Operator level"), this);
    levelLabel->setBuddy(m_level);

    layOut({levelLabel, m_level, nullptr, m_power, nullptr, m_connection, m_connect}, {m_program, again, m_inspector});

    connect(m_level, QOverload<int>::of(&QComboBox::currentIndexChanged), controller,
            &SimulatedController::setOperatorLevel);
    connect(m_power, &QCheckBox::toggled, controller, &SimulatedController::setPowered);
    connect(m_connect, &QPushButton::clicked, controller,
            [controller] { controller->setConnected(!controller->isConnected()); });
    connect(again, &QPushButton::clicked, this, &StationBar::showPageAgain);
    connect(m_program, &QPushButton::toggled, this, &StationBar::showProgram);
    connect(m_program, &QPushButton::toggled, again, &QPushButton::setDisabled);
    connect(m_inspector, &QPushButton::toggled, this, &StationBar::showInspector);
    connect(controller, &SimulatedController::operatorLevelChanged, this, &StationBar::showLevel);
    connect(controller, &SimulatedController::poweredChanged, this, &StationBar::showPower);
    connect(controller, &SimulatedController::connectionChanged, this, &StationBar::showConnection);
    showLevel(controller->operatorLevel());
    showPower(controller->isPowered());
    showConnection(controller->isConnected());
}

void StationBar::layOut(const QVector<QWidget*>& left, const QVector<QWidget*>& right)
{
    constexpr int kGroupGap = 12;
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(6, 4, 6, 4);
    layout->setSpacing(8);
    for (QWidget* widget : left) {
        if (widget != nullptr) {
            layout->addWidget(widget);
        } else {
            layout->addSpacing(kGroupGap);
        }
    }
    layout->addStretch(1);
    for (QWidget* widget : right) {
        layout->addWidget(widget);
    }
}

void StationBar::setProgramShown(bool shown)
{
    m_program->setChecked(shown);
}

void StationBar::setInspectorShown(bool shown)
{
    m_inspector->setChecked(shown);
}

void StationBar::showLevel(int level)
{
    m_level->setCurrentIndex(level);
}

void StationBar::showPower(bool powered)
{
    m_power->setChecked(powered);
}

void StationBar::showConnection(bool connected)
{
    m_connection->setText(connected ? tr("Controller: connected") : tr("Controller: NO CONNECTION"));
    QPalette colours;
    QFont font;
    font.setBold(!connected);
    if (!connected) {
        colours.setColor(QPalette::Window, QColor(190, 0, 20));
        colours.setColor(QPalette::WindowText, Qt::white);
    }
    m_connection->setAutoFillBackground(!connected);
    m_connection->setPalette(colours);
    m_connection->setFont(font);
    m_connect->setText(connected ? tr("Disconnect") : tr("Reconnect"));
}

} // namespace sim
