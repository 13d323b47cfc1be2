#include "rl/rlparasetinsertwidget.h"

#include "common/logline.h"
#include "common/parametersetnames.h"
#include "rl/fillguard.h"
#include "rl/instructiontext.h"
#include "ui_rlparasetinsertwidget.h"

namespace pendix
{

namespace
{

/// Written into the instruction as they stand, so never translated.
constexpr char kNoRamp[] = "";
constexpr char kTimeRamp[] = "Time";
constexpr char kPositionRamp[] = "Pos";

bool isRamp(const QString& text, const char* ramp)
{
    return text.compare(QLatin1String(ramp), Qt::CaseInsensitive) == 0;
}

} // namespace

RLParaSetInsertWidget::RLParaSetInsertWidget(const QString& name, QWidget* parent)
    : RLContentBase(parent), m_name(name), ui(std::make_unique<::Ui::RLParaSetInsertWidget>())
{
    ui->setupUi(this);
    initUI();
    connect(ui->cbxRampType, &QComboBox::currentTextChanged, this, &RLParaSetInsertWidget::showRampTime);
}

RLParaSetInsertWidget::~RLParaSetInsertWidget() = default;

void RLParaSetInsertWidget::initUI()
{
    ui->cbxLaserDataID->addItems(parameterSetNames());
    for (const char* ramp : {kNoRamp, kTimeRamp, kPositionRamp}) {
        ui->cbxRampType->addItem(QString::fromLatin1(ramp));
    }
    ui->spinBox_ramp_time->setButtonSymbols(QAbstractSpinBox::NoButtons);
    showRampTime(ui->cbxRampType->currentText());
}

void RLParaSetInsertWidget::showRampTime(const QString& ramp)
{
    const bool shown = isRamp(ramp, kTimeRamp);
    ui->label->setVisible(shown);
    ui->spinBox_ramp_time->setVisible(shown);
}

QString RLParaSetInsertWidget::ToString()
{
    QStringList arguments{quoted(ui->cbxLaserDataID->currentText())};
    const QString ramp = ui->cbxRampType->currentText();
    if (isRamp(ramp, kTimeRamp)) {
        arguments << quoted(ramp) << QString::number(ui->spinBox_ramp_time->value());
    } else if (isRamp(ramp, kPositionRamp)) {
        arguments << quoted(ramp);
    }
    return QStringLiteral("LsParaSet(%1);").arg(arguments.join(QLatin1Char(',')));
}

void RLParaSetInsertWidget::FillWith(const QString& line)
{
    guardFill("Caught an unknown exception!", [&] {
        logLine(LogLevel::Debug) << "FillWith" << line;
        QString function;
        QStringList parameters;
        if (!corvane::util::extractFunctionAndParameters(line, function, parameters)) {
            return;
        }
        if (parameters.isEmpty()) {
            logLine(LogLevel::Warning) << " Missing required parameters! funcName:" << function
                                       << ", params:" << parameters;
            return;
        }
        ui->cbxLaserDataID->setCurrentText(unwrapQuotes(parameters.at(0)));
        if (parameters.size() > 1) {
            readRamp(parameters);
        }
    });
}

void RLParaSetInsertWidget::readRamp(const QStringList& parameters)
{
    const QString ramp = unwrapQuotes(parameters.at(1));
    // The list's own signal shows or hides the time.
    if (isRamp(ramp, kTimeRamp)) {
        ui->cbxRampType->setCurrentText(QLatin1String(kTimeRamp));
        ui->spinBox_ramp_time->setValue(parameters.value(2).toInt());
    } else if (isRamp(ramp, kPositionRamp)) {
        ui->cbxRampType->setCurrentText(QLatin1String(kPositionRamp));
    } else {
        ui->cbxRampType->setCurrentText(QLatin1String(kNoRamp));
    }
}

bool RLParaSetInsertWidget::CheckInsert()
{
    return true;
}

bool RLParaSetInsertWidget::CheckReplace()
{
    return true;
}

} // namespace pendix
