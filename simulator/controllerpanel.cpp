#include "simulator/controllerpanel.h"

#include "simulator/confignodes.h"
#include "simulator/livepicture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>

namespace sim
{

namespace
{
constexpr int kLongestDelayMs = 60000;
constexpr int kDelayStepMs = 500;
constexpr double kZoomStep = 0.25;
constexpr int kRefreshMs = 250; ///< while it is looked at, for what runs by itself
} // namespace

ControllerPanel::ControllerPanel(SimulatedController* controller,
                                 const std::function<QWidget*(const QString&)>& findShown,
                                 const std::function<QWidget*()>& statusItem, QWidget* parent)
    : QWidget(parent), m_controller(controller), m_refresh(new QTimer(this))
{
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(createTruth(findShown, statusItem));
    layout->addWidget(createPendant());
    layout->addWidget(createAnswers());
    layout->addStretch(1);
    m_refresh->setInterval(kRefreshMs);
    connect(m_refresh, &QTimer::timeout, this, &ControllerPanel::showRunning);
    connect(controller, &SimulatedController::dataChanged, this, &ControllerPanel::showTruth);
    showTruth();
}

void ControllerPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_refresh->start();
    showRunning();
}

void ControllerPanel::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_refresh->stop();
}

QLabel* ControllerPanel::createLabel(const QString& objectName)
{
    auto* label = new QLabel(this);
    label->setObjectName(objectName);
    return label;
}

QGroupBox* ControllerPanel::createTruth(const std::function<QWidget*(const QString&)>& findShown,
                                        const std::function<QWidget*()>& statusItem)
{
    m_virtualWelding = createValueBox(node::kVirtualWelding);
    m_redLight = createValueBox(node::kRedLight);
    m_weldEnable = createLabel(QStringLiteral("trueWeldEnable"));
    m_wire = createLabel(QStringLiteral("trueWire"));
    m_gas = createLabel(QStringLiteral("trueGas"));
    m_monitor = createLabel(QStringLiteral("trueMonitor"));
    const auto mainSwitch = [findShown] { return findShown(QStringLiteral("pushButton_main_enable")); };
    struct Row {
        QString title;
        QWidget* truth;
        QLabel* shown;
    };
    const auto notShown = [this] {
        auto* label = new QLabel(tr("not shown on the pendant"), this);
        label->setWordWrap(true);
        return label;
    };
    const Row rows[] = {
        {tr("Virtual welding"), m_virtualWelding, new LivePicture(statusItem, tr("no status item"), this)},
        {tr("Red light"), m_redLight, notShown()},
        {tr("Weld enable"), m_weldEnable, new LivePicture(mainSwitch, tr("its page is not open"), this)},
        {tr("Wire"), m_wire, notShown()},
        {tr("Gas"), m_gas, notShown()},
        {tr("Monitor stream"), m_monitor, notShown()},
    };
    auto* group = new QGroupBox(tr("True values"), this);
    auto* grid = new QGridLayout(group);
    grid->setColumnStretch(2, 1);
    grid->setHorizontalSpacing(10);
    grid->addWidget(new QLabel(tr("Controller"), group), 0, 1);
    grid->addWidget(new QLabel(tr("Pendant shows"), group), 0, 2);
    int line = 1;
    for (const Row& row : rows) {
        grid->addWidget(new QLabel(row.title, group), line, 0);
        grid->addWidget(row.truth, line, 1);
        grid->addWidget(row.shown, line, 2);
        ++line;
    }
    return group;
}

QCheckBox* ControllerPanel::createValueBox(const char* value)
{
    auto* box = new QCheckBox(this);
    box->setToolTip(tr("Click to change the value at the controller, as something that happens at the machine."));
    connect(box, &QCheckBox::toggled, m_controller,
            [this, value](bool on) { m_controller->setValue(QLatin1String(value), on); });
    return box;
}

void ControllerPanel::showTruth()
{
    const auto onOff = [](bool on) { return on ? tr("on") : tr("off"); };
    const auto show = [&](QCheckBox* box, const char* name) {
        const bool on = m_controller->value(QLatin1String(name));
        box->setChecked(on);
        box->setText(onOff(on));
    };
    show(m_virtualWelding, node::kVirtualWelding);
    show(m_redLight, node::kRedLight);
    m_weldEnable->setText(onOff(m_controller->weldEnabled()));
    m_monitor->setText(onOff(m_controller->monitoring()));
    showRunning();
}

void ControllerPanel::showRunning()
{
    const Consumables& consumables = m_controller->consumables();
    const auto motion = [&] {
        switch (consumables.wire()) {
        case Consumables::Wire::Feeding:
            return tr("feeding");
        case Consumables::Wire::Retracting:
            return tr("retracting");
        case Consumables::Wire::Stopped:
            break;
        }
        return tr("stopped");
    };
    m_wire->setText(tr("%1\n%2 mm/s\nat %3 mm")
                        .arg(motion(), QString::number(consumables.wireSpeed()),
                             QString::number(consumables.wirePosition(), 'f', 1)));
    constexpr double kMsPerSecond = 1000;
    const double left = static_cast<double>(consumables.gasLeft()) / kMsPerSecond;
    m_gas->setText(left > 0 ? tr("on\n%1 s left").arg(QString::number(left, 'f', 1)) : tr("off"));
}

QGroupBox* ControllerPanel::createPendant()
{
    auto* group = new QGroupBox(tr("Settings of the pendant"), this);
    auto* zoom = new QDoubleSpinBox(group);
    zoom->setObjectName(QStringLiteral("fontZoom"));
    zoom->setRange(kLowestFontZoom, kHighestFontZoom);
    zoom->setSingleStep(kZoomStep);
    zoom->setValue(m_controller->fontZoom());
    auto* label = new QLabel(tr("Font zoom"), group);
    label->setBuddy(zoom);
    auto* note = new QLabel(tr("takes effect when a page is shown again"), group);
    note->setWordWrap(true);
    auto* row = new QHBoxLayout(group);
    row->addWidget(label);
    row->addWidget(zoom);
    row->addWidget(note, 1);
    connect(zoom, QOverload<double>::of(&QDoubleSpinBox::valueChanged), m_controller,
            &SimulatedController::setFontZoom);
    connect(m_controller, &SimulatedController::fontZoomChanged, zoom, &QDoubleSpinBox::setValue);
    return group;
}

QGroupBox* ControllerPanel::createAnswers()
{
    auto* group = new QGroupBox(tr("Answers to commands, and the time they take"), this);
    auto* grid = new QGridLayout(group);
    grid->setColumnStretch(0, 1);
    for (const QString& command : commandNames()) {
        addAnswerRow(grid, command);
    }
    auto* proper = new QPushButton(tr("All as it should"), group);
    connect(proper, &QPushButton::clicked, m_controller, [this] {
        for (const QString& command : commandNames()) {
            m_controller->setPlan(command, AnswerPlan());
        }
    });
    auto* note = new QLabel(tr("With \"as it should\", 0, true and \"... first\" the controller does what it is told; "
                               "with any other answer it does nothing and stores nothing. The pendant may read an "
                               "answer differently: compare the true values above."),
                            group);
    note->setWordWrap(true);
    const int last = grid->rowCount();
    grid->addWidget(note, last, 0, 1, 2);
    grid->addWidget(proper, last + 1, 0, Qt::AlignLeft);
    return group;
}

void ControllerPanel::addAnswerRow(QGridLayout* grid, const QString& command)
{
    auto* answer = new QComboBox(this);
    answer->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    answer->setMinimumContentsLength(6);
    for (AnswerKind kind : answerKinds()) {
        answer->addItem(answerLabel(kind), static_cast<int>(kind));
    }
    auto* delay = new QSpinBox(this);
    delay->setRange(0, kLongestDelayMs);
    delay->setSingleStep(kDelayStepMs);
    delay->setPrefix(tr("after "));
    delay->setSuffix(tr(" ms"));
    const int line = grid->rowCount();
    auto* name = new QLabel(command, this);
    name->setBuddy(answer);
    grid->addWidget(name, line, 0, 1, 2);
    grid->addWidget(answer, line + 1, 0);
    grid->addWidget(delay, line + 1, 1);

    const auto show = [this, command, answer, delay] {
        const AnswerPlan plan = m_controller->plan(command);
        answer->setCurrentIndex(answer->findData(static_cast<int>(plan.kind)));
        delay->setValue(plan.delayMs);
    };
    connect(answer, QOverload<int>::of(&QComboBox::activated), this, [this, command, answer] {
        const auto kind = static_cast<AnswerKind>(answer->currentData().toInt());
        m_controller->setPlan(command, {kind, m_controller->plan(command).delayMs});
    });
    connect(delay, QOverload<int>::of(&QSpinBox::valueChanged), this, [this, command](int ms) {
        m_controller->setPlan(command, {m_controller->plan(command).kind, ms});
    });
    connect(m_controller, &SimulatedController::planChanged, this, [command, show](const QString& changed) {
        if (changed == command) {
            show();
        }
    });
    show();
}

} // namespace sim
