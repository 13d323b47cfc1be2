#include "rl/rllaseroninsertwidget.h"

#include "common/parametersetnames.h"
#include "rl/fillguard.h"
#include "rl/instructiontext.h"
#include "ui_rllaseroninsertwidget.h"

namespace pendix
{

namespace
{
/// Item data of the two start modes, which are also their places in the list.
enum StartMode { Normal = 0, SpotWeld = 1 };
} // namespace

RLLaserOnInsertWidget::RLLaserOnInsertWidget(const QString& name, QWidget* parent)
    : RLContentBase(parent), m_name(name), ui(std::make_unique<::Ui::RLLaserOnInsertWidget>())
{
    ui->setupUi(this);
    initUI();
    connect(ui->cbxStartMode, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &RLLaserOnInsertWidget::updateInPlaceWaitVisible);
}

RLLaserOnInsertWidget::~RLLaserOnInsertWidget() = default;

void RLLaserOnInsertWidget::initUI()
{
    ui->cbxLaserDataID->addItems(parameterSetNames());
    ui->cbxLaserDataID->setCurrentText(QStringLiteral("LsData1"));
    ui->cbxStartMode->addItem(tr("Normal"), Normal);
    ui->cbxStartMode->addItem(tr("Spot weld"), SpotWeld);
    ui->cbxStartMode->setCurrentIndex(Normal);
    ui->spinInPlaceWait->setButtonSymbols(QAbstractSpinBox::NoButtons);
    updateInPlaceWaitVisible();
}

bool RLLaserOnInsertWidget::isInPlaceMode() const
{
    return ui->cbxStartMode->currentData().toInt() == SpotWeld;
}

void RLLaserOnInsertWidget::updateInPlaceWaitVisible()
{
    const bool shown = isInPlaceMode();
    ui->labelInPlaceWait->setVisible(shown);
    ui->spinInPlaceWait->setVisible(shown);
}

QString RLLaserOnInsertWidget::ToString()
{
    const QString set = ui->cbxLaserDataID->currentText();
    if (isInPlaceMode()) {
        return QStringLiteral("LaserOn(\"%1\", %2);").arg(set, QString::number(ui->spinInPlaceWait->value()));
    }
    return QStringLiteral("LaserOn(\"%1\");").arg(set);
}

void RLLaserOnInsertWidget::FillWith(const QString& line)
{
    guardFill(" unknown exception", [&] {
        QString function;
        QStringList parameters;
        if (corvane::util::extractFunctionAndParameters(line, function, parameters)) {
            readParameters(parameters);
        }
    });
}

void RLLaserOnInsertWidget::readParameters(const QStringList& parameters)
{
    if (!parameters.isEmpty()) {
        ui->cbxLaserDataID->setCurrentText(unwrapQuotes(parameters.at(0)));
    }
    if (parameters.size() >= 2) {
        ui->cbxStartMode->setCurrentIndex(SpotWeld);
        bool isNumber = false;
        const int wait = parameters.at(1).toInt(&isNumber);
        if (isNumber) {
            ui->spinInPlaceWait->setValue(wait);
        }
    } else {
        ui->cbxStartMode->setCurrentIndex(Normal);
    }
    updateInPlaceWaitVisible();
}

bool RLLaserOnInsertWidget::CheckInsert()
{
    return CheckReplace();
}

bool RLLaserOnInsertWidget::CheckReplace()
{
    return !ui->cbxLaserDataID->currentText().isEmpty();
}

} // namespace pendix
