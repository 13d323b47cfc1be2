#include "mirolt/trackingpage.h"

#include "mirolt/profileview.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QSpinBox>

namespace mirolt
{

namespace
{

/// As much as a finger needs, in pixels; larger text makes a row higher.
constexpr int kTouchHeight = 32;
constexpr int kSpacing = 8;
constexpr int kGainStep = 5;
constexpr double kLargestOffset = 10;
constexpr double kOffsetStep = 0.1;

/// Text as large as the pages of a pendant have it: of a denser screen's growth half is enough.
QFont textFont(const QWidget& page)
{
    constexpr double kPointSize = 10;
    constexpr double kDesignDpi = 96;
    QFont font = page.font();
    font.setPointSizeF(kPointSize * (1 + qMin(1.0, kDesignDpi / page.logicalDpiY())) / 2);
    return font;
}

/// A list as high as the number fields below it, which grow more on a denser screen.
class LevelList : public QComboBox
{
public:
    LevelList(const QSpinBox* number, QWidget* parent) : QComboBox(parent), m_number(number) {}

    QSize sizeHint() const override { return level(QComboBox::sizeHint()); }
    QSize minimumSizeHint() const override { return level(QComboBox::minimumSizeHint()); }

private:
    QSize level(const QSize& own) const { return own.expandedTo({0, m_number->sizeHint().height()}); }

    const QSpinBox* m_number;
};

QString signedNumber(double value)
{
    // With its sign also above zero, so that the text does not jump from one measurement to the next.
    return QString::asprintf("%+.2f", value);
}

} // namespace

TrackingPage::TrackingPage(QSharedPointer<SeamTracking> tracking, QWidget* parent)
    : QWidget(parent),
      m_tracking(std::move(tracking)),
      m_gain(new QSpinBox(this)),
      m_joint(new LevelList(m_gain, this)),
      m_offsetY(createOffset()),
      m_offsetZ(createOffset()),
      m_sensor(new QPushButton(this)),
      m_track(new QPushButton(this)),
      m_status(new QLabel(this))
{
    setObjectName(QStringLiteral("MiroltTrackingPage"));
    m_joint->addItems({tr("Butt joint"), tr("Lap joint"), tr("Fillet joint")});
    m_gain->setRange(kGainStep, 100);
    m_gain->setSingleStep(kGainStep);
    m_gain->setSuffix(QStringLiteral(" %"));
    m_gain->setKeyboardTracking(false);
    m_status->setObjectName(QStringLiteral("label_status"));
    m_status->setWordWrap(true);

    m_sensor->setObjectName(QStringLiteral("pushButton_sensor"));
    m_track->setObjectName(QStringLiteral("pushButton_tracking"));
    setFont(textFont(*this));

    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setWidget(createContent());
    // Whatever the page lies on shows through.
    scroll->viewport()->setAutoFillBackground(false);
    scroll->widget()->setAutoFillBackground(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroll);
    connectControls();
    showSettings();
}

QDoubleSpinBox* TrackingPage::createOffset()
{
    auto* offset = new QDoubleSpinBox(this);
    offset->setRange(-kLargestOffset, kLargestOffset);
    offset->setSingleStep(kOffsetStep);
    offset->setSuffix(QStringLiteral(" mm"));
    // A number is taken when it is complete, not digit by digit.
    offset->setKeyboardTracking(false);
    return offset;
}

QWidget* TrackingPage::createContent()
{
    auto* content = new QWidget;
    auto* form = new QGridLayout;
    addRow(form, tr("Joint"), m_joint, "comboBox_joint");
    addRow(form, tr("Gain"), m_gain, "spinBox_gain");
    addRow(form, tr("Offset y"), m_offsetY, "doubleSpinBox_offset_y");
    addRow(form, tr("Offset z"), m_offsetZ, "doubleSpinBox_offset_z");
    form->setRowStretch(form->rowCount(), 1);
    // Pixels: a style's own spacing grows with the density, and the room is the text's.
    form->setSpacing(kSpacing);

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(kSpacing);
    buttons->addStretch(2);
    for (QPushButton* button : {m_sensor, m_track}) {
        button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Minimum);
        buttons->addWidget(button, 1);
    }

    auto* layout = new QGridLayout(content);
    layout->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    layout->setSpacing(kSpacing);
    layout->addWidget(m_status, 0, 0, 1, 2);
    layout->addWidget(new ProfileView(m_tracking, content), 1, 0);
    layout->addLayout(form, 1, 1);
    layout->addLayout(buttons, 2, 0, 1, 2);
    layout->setColumnStretch(0, 1);
    layout->setRowStretch(1, 1);
    layout->setRowMinimumHeight(2, kTouchHeight);
    return content;
}

void TrackingPage::addRow(QGridLayout* form, const QString& caption, QWidget* control, const char* objectName)
{
    const int row = form->rowCount();
    control->setObjectName(QLatin1String(objectName));
    // Fills its row, which is as high as a finger needs, and never gets less than its text does.
    control->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Minimum);
    form->setRowMinimumHeight(row, kTouchHeight);
    form->addWidget(new QLabel(caption, this), row, 0);
    form->addWidget(control, row, 1);
}

void TrackingPage::connectControls()
{
    const auto apply = [this] { m_tracking->apply(shownSettings()); };
    connect(m_joint, qOverload<int>(&QComboBox::currentIndexChanged), this, apply);
    connect(m_gain, qOverload<int>(&QSpinBox::valueChanged), this, apply);
    for (QDoubleSpinBox* offset : {m_offsetY, m_offsetZ}) {
        connect(offset, qOverload<double>(&QDoubleSpinBox::valueChanged), this, apply);
    }
    connect(m_sensor, &QPushButton::clicked, this, [this] {
        TrackingSettings wanted = m_tracking->settings();
        wanted.sensorOn = !wanted.sensorOn;
        m_tracking->apply(wanted);
    });
    connect(m_track, &QPushButton::clicked, this, [this] {
        TrackingSettings wanted = m_tracking->settings();
        wanted.trackingOn = !wanted.trackingOn;
        m_tracking->apply(wanted);
    });
    connect(m_tracking.data(), &SeamTracking::changed, this, &TrackingPage::showSettings);
    // Only the status: a number that is being typed must not be written over with every measurement.
    connect(m_tracking.data(), &SeamTracking::measured, this, &TrackingPage::showStatus);
}

TrackingSettings TrackingPage::shownSettings() const
{
    TrackingSettings settings = m_tracking->settings();
    settings.joint = static_cast<Joint>(m_joint->currentIndex());
    settings.gain = m_gain->value();
    settings.offsetY = m_offsetY->value();
    settings.offsetZ = m_offsetZ->value();
    return settings;
}

void TrackingPage::showSettings()
{
    const QSignalBlocker quiet[] = {QSignalBlocker(m_joint), QSignalBlocker(m_gain), QSignalBlocker(m_offsetY),
                                    QSignalBlocker(m_offsetZ)};
    const TrackingSettings& settings = m_tracking->settings();
    m_sensor->setText(settings.sensorOn ? tr("Switch sensor off") : tr("Switch sensor on"));
    m_track->setText(settings.trackingOn ? tr("Stop tracking") : tr("Start tracking"));
    m_joint->setCurrentIndex(static_cast<int>(settings.joint));
    m_gain->setValue(settings.gain);
    m_offsetY->setValue(settings.offsetY);
    m_offsetZ->setValue(settings.offsetZ);
    showStatus();
}

void TrackingPage::showStatus()
{
    const TrackingSettings& settings = m_tracking->settings();
    const QPointF deviation = m_tracking->deviation();
    if (!settings.sensorOn) {
        m_status->setText(tr("The sensor is off."));
    } else if (!settings.trackingOn) {
        m_status->setText(tr("The sensor is on, not tracking."));
    } else {
        m_status->setText(tr("Deviation y %1, z %2 mm").arg(signedNumber(deviation.x()), signedNumber(deviation.y())));
    }
}

} // namespace mirolt
