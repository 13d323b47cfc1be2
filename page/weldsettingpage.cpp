#include "page/weldsettingpage.h"
#include "ui_weldsettingpage.h"

#include "common/names.h"
#include "common/operatormessage.h"
#include "page/weldsettingfields.h"
#include "widgets/formlayout.h"
#include "widgets/pagestyle.h"
#include "widgets/uiscale.h"

namespace
{

constexpr int kFontPoints = 10;

std::unique_ptr<Ui::WeldSettingPage> buildForm(WeldSettingPage* page)
{
    auto form = std::make_unique<Ui::WeldSettingPage>();
    form->setupUi(page);
    return form;
}

} // namespace

WeldSettingPage::WeldSettingPage(QWidget* parent) : QWidget(parent), ui(buildForm(this)), m_fields(this, kSettingFields)
{
    initConnect();
    hideUnusedControls();
    applyCompactLayout();
}

WeldSettingPage::~WeldSettingPage() = default;

void WeldSettingPage::initConnect()
{
    connect(ui->pushButton_Retraction, &EnableButton::enabled, this, &WeldSettingPage::setRetractionPlanStatus);
    connect(ui->pushButton_Feeder, &EnableButton::enabled, this, &WeldSettingPage::setFeederPlanStatus);
    connect(ui->pushButton_save, &QPushButton::clicked, this, &WeldSettingPage::save);
    connect(ui->pushButton_cancel, &QPushButton::clicked, this, &WeldSettingPage::cancel);
    connect(ui->pushButton_main_enable, &EnableButton::enabled, this, &WeldSettingPage::onSwitchMain);
}

void WeldSettingPage::hideUnusedControls()
{
    // The controller serves one kind of laser and feeder interface; there is nothing to choose here.
    QWidget* const unused[] = {
        ui->pushButton_Retraction,    ui->pushButton_WireSticking,        ui->comboBox_feedback_di,
        ui->label_feedback_di,        ui->comboBox_detection_do,          ui->label_detection_do,
        ui->comboBox_laser_comm_type, ui->label_laser_comm_type,          ui->comboBox_wire_feed_type,
        ui->label_wire_feed_type,     ui->comboBox_wire_feeder_comm_type, ui->label_wire_feeder_comm_type,
    };
    for (QWidget* widget : unused) {
        widget->setVisible(false);
    }
}

void WeldSettingPage::initPlaneStatus()
{
    setRetractionPlanStatus(true);
    setFeederPlanStatus(ui->pushButton_Feeder->getIsEnabled());
}

void WeldSettingPage::setAllPlaneStatus(bool enabled)
{
    QWidget* const lockable[] = {
        ui->frame,              // laser
        ui->frame_2,            // wire feeder
        ui->frame_3,            // gas
        ui->frame_4,            // restart overlap
        ui->frame_WireSticking, // wire-stick detection
        ui->pushButton_cancel,
        ui->pushButton_save,
    };
    for (QWidget* widget : lockable) {
        widget->setEnabled(enabled);
    }
}

void WeldSettingPage::setRetractionPlanStatus(bool isOn)
{
    ui->doubleSpinBox_retraction_distance->setEnabled(isOn);
    ui->doubleSpinBox_retraction_speed->setEnabled(isOn);
}

void WeldSettingPage::setFeederPlanStatus(bool isOn)
{
    QWidget* const feederFields[] = {
        ui->comboBox_wire_feeder_comm_type,     ui->comboBox_wire_feed_type,
        ui->doubleSpinBox_max_feed_speed,       ui->doubleSpinBox_manual_feed_speed,
        ui->doubleSpinBox_manual_retract_speed, ui->spinBox_wire_feedback_detection,
    };
    for (QWidget* widget : feederFields) {
        widget->setEnabled(isOn);
    }
}

void WeldSettingPage::setWireStickingPlanStatus(bool isOn)
{
    // The detect duration stays editable either way.
    ui->comboBox_detection_do->setEnabled(isOn);
    ui->comboBox_feedback_di->setEnabled(isOn);
}

bool WeldSettingPage::getMainBtnStatus()
{
    return ui->pushButton_main_enable->getIsEnabled();
}

QJsonObject WeldSettingPage::saveServerConfigToJson()
{
    return {{QLatin1String(names::command::kSetWeldSetting), m_fields.save()}};
}

void WeldSettingPage::loadServerConfigFromJson(const QJsonValue& config)
{
    if (!config.isObject()) {
        return;
    }
    m_fields.load(config.toObject());
    ui->pushButton_Retraction->setIsEnabled(true, false);
}

bool WeldSettingPage::validateLaserCheckTime() const
{
    m_fields.commit();
    if (ui->spinBox_feedback_delay->value() >= ui->spinBox_laser_check_out_time->value()) {
        return true;
    }
    tellOperator(pendix::error,
                 tr("The detected time of the light output is later than the light output inspection time; "
                    "saving failed!"));
    return false;
}

void WeldSettingPage::initStyle()
{
    if (m_style.sheetsAreDue(this)) {
        applySheets();
    }
    if (m_style.sizesAreDue(this)) {
        applyCompactLayout();
        alignWidths(numberFields(this));
        alignWidths(unitLabels(this));
    }
}

void WeldSettingPage::applySheets()
{
    QFrame* const panels[] = {ui->frame, ui->frame_2, ui->frame_3, ui->frame_4, ui->frame_5, ui->frame_WireSticking};
    for (QFrame* panel : panels) {
        setPanelFrameStyle(panel);
    }
    UiScale::applyContentFonts(this, kFontPoints);
    for (QPushButton* button : {ui->pushButton_cancel, ui->pushButton_save}) {
        setPageButtonStyle(button);
    }
}

void WeldSettingPage::applyCompactLayout()
{
    // Minimum: the page stack gives the page its content's height and leaves the rest of the screen free.
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum);
    compactRows(this);
}
