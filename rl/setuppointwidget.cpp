#include "rl/setuppointwidget.h"

#include "common/controller.h"
#include "common/logline.h"
#include "common/operatormessage.h"
#include "rl/freshname.h"
#include "rl/instructionnumber.h"
#include "rl/instructiontext.h"
#include "rl/pointargument.h"
#include "ui_setuppointwidget.h"
#include "widgets/pagestyle.h"
#include "widgets/uiscale.h"

#include <QPointer>

namespace
{
constexpr char kSelectedSheet[] = "QPushButton{background:rgb(194, 37, 43);color:white;}";
constexpr char kPlainSheet[] = "QPushButton{background:rgb(211, 220, 230);color:black;}";
constexpr char kPointPrefix[] = "p";
} // namespace

/// The two expressions that wrap a point.
struct SetUpPointWidget::ModeRow {
    Mode mode;
    const char* function;
    int numbers; ///< how many of X Y Z A B C follow the point
    const char* wrongCount;
};

const SetUpPointWidget::ModeRow SetUpPointWidget::kModes[] = {
    {Mode::Offs, "Offs", 3, "):Offs paramter number invalid"},
    {Mode::RelTool, "RelTool", 6, "):RelTool paramter number invalid"},
};

SetUpPointWidget::SetUpPointWidget(QWidget* parent) : SetUpPointWidget(1, parent) {}

SetUpPointWidget::SetUpPointWidget(int index, QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::SetUpPointWidget>())
{
    ui->setupUi(this);
    // Completion would turn a new "P1" into the existing "p1".
    ui->cbxPoint->setCompleter(nullptr);
    connect(ui->btnOffs, &QPushButton::clicked, this, &SetUpPointWidget::onBtnOffsClicked);
    connect(ui->btnReltool, &QPushButton::clicked, this, &SetUpPointWidget::onBtnRelToolClicked);
    setSelected(ui->btnOffs, false);
    setSelected(ui->btnReltool, false);
    init(index);
}

SetUpPointWidget::~SetUpPointWidget() = default;

void SetUpPointWidget::init(int index)
{
    m_index = index;
    ui->wgtPointParam->hide();
    refreshPointList();
}

void SetUpPointWidget::setPointName(const QString& caption)
{
    ui->lblPoint->setText(caption);
}

int SetUpPointWidget::captionWidth() const
{
    return ui->lblPoint->sizeHint().width();
}

void SetUpPointWidget::setCaptionRoom(int width)
{
    ui->lblPoint->setMinimumWidth(width);
}

void SetUpPointWidget::refreshPointList()
{
    initInsertPointListCbx(ui->cbxPoint, m_index);
}

const SetUpPointWidget::ModeRow* SetUpPointWidget::row(Mode mode) const
{
    for (const ModeRow& row : kModes) {
        if (row.mode == mode) {
            return &row;
        }
    }
    return nullptr;
}

QPushButton* SetUpPointWidget::button(Mode mode) const
{
    return mode == Mode::Offs ? ui->btnOffs : ui->btnReltool;
}

QVector<QDoubleSpinBox*> SetUpPointWidget::numbers() const
{
    return {ui->sbxX, ui->sbxY, ui->sbxZ, ui->sbxA, ui->sbxB, ui->sbxC};
}

QString SetUpPointWidget::getResult() const
{
    QString point = ui->cbxPoint->currentText();
    const ModeRow* wrapped = row(m_mode);
    if (wrapped == nullptr) {
        return point;
    }
    QStringList arguments{point};
    const QVector<QDoubleSpinBox*> boxes = numbers().mid(0, wrapped->numbers);
    for (const QDoubleSpinBox* box : boxes) {
        arguments.append(instructionNumber(box->value()));
    }
    return QStringLiteral("%1(%2)").arg(QLatin1String(wrapped->function), arguments.join(QLatin1Char(',')));
}

void SetUpPointWidget::setPointText(const QString& text)
{
    if (!text.contains(QLatin1Char('(')) && !text.contains(QLatin1Char(')'))) {
        ui->cbxPoint->setCurrentText(text);
        return;
    }
    QString function;
    QStringList arguments;
    if (!corvane::util::extractFunctionAndParameters(text, function, arguments)) {
        logLine(LogLevel::Warning) << "setPointText"
                                   << "(" << __LINE__ << "):ExtractFunctionAndParameters failed";
        return;
    }
    for (const ModeRow& row : kModes) {
        if (function.compare(QLatin1String(row.function), Qt::CaseInsensitive) != 0) {
            continue;
        }
        if (arguments.size() != row.numbers + 1) {
            logLine(LogLevel::Warning) << "setPointText"
                                       << "(" << __LINE__ << row.wrongCount;
            return;
        }
        ui->cbxPoint->setCurrentText(arguments.at(0));
        const QVector<QDoubleSpinBox*> boxes = numbers();
        for (int i = 0; i < boxes.size(); ++i) {
            boxes.at(i)->setValue(i < row.numbers ? instructionNumber(arguments.at(i + 1)) : 0.0);
        }
        enter(row);
    }
}

bool SetUpPointWidget::isWritable() const
{
    // The numbers behind it are always arguments.
    return isPointArgument(ui->cbxPoint->currentText());
}

QString SetUpPointWidget::newPointName() const
{
    const QString name = ui->cbxPoint->currentText();
    const bool isListed = ui->cbxPoint->findText(name, Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0;
    return isListed || !isPointName(name) ? QString() : name;
}

void SetUpPointWidget::savePoint(const QString& tool, const QString& wobj)
{
    storePoint(newPointName(), tool, wobj);
}

void SetUpPointWidget::storePoint(const QString& name, const QString& tool, const QString& wobj) const
{
    if (name.isEmpty()) {
        return;
    }
    const Business::Watch watch = m_business.watch();
    if (controller::pointNames().contains(name)) {
        logLine(LogLevel::Debug) << "Point" << name << "already exists, skip adding.";
        return;
    }
    // The level last of all: it may have changed while the host answered.
    if (watch.ownerLives() && operatorMayChange() && watch.ownerLives()) {
        controller::storeCurrentPoint(name, tool, wobj);
    }
}

void SetUpPointWidget::resetSbx()
{
    for (QDoubleSpinBox* box : numbers()) {
        box->setValue(0.0);
    }
}

void SetUpPointWidget::initPointListCbx(QComboBox* box, const QString& name)
{
    if (box == nullptr) {
        return;
    }
    const QPointer<QComboBox> watched(box);
    const QStringList names = controller::pointNames();
    if (watched.isNull()) {
        return;
    }
    box->clear();
    box->addItems(names);
    if (!name.isNull()) {
        box->setCurrentText(name);
    }
}

void SetUpPointWidget::initInsertPointListCbx(QComboBox* box, int index)
{
    const QPointer<QComboBox> watched(box);
    const QString name = getNewPointPName(controller::pointNames(), index);
    initPointListCbx(watched, name);
}

QString SetUpPointWidget::getNewPointPName(const QStringList& names, int index)
{
    return getNewName(names, QLatin1String(kPointPrefix), index);
}

QString SetUpPointWidget::getNewName(const QStringList& names, const QString& prefix, int index)
{
    return freshName(names, prefix, index);
}

void SetUpPointWidget::onBtnOffsClicked()
{
    if (sender() == ui->btnOffs) {
        toggle(Mode::Offs);
    }
}

void SetUpPointWidget::onBtnRelToolClicked()
{
    if (sender() == ui->btnReltool) {
        logLine(LogLevel::Debug) << (m_mode == Mode::RelTool ? "true" : "false");
        toggle(Mode::RelTool);
    }
}

void SetUpPointWidget::toggle(Mode mode)
{
    setSelected(button(mode == Mode::Offs ? Mode::RelTool : Mode::Offs), false);
    if (m_mode == mode) {
        setSelected(button(mode), false);
        ui->wgtPointParam->hide();
        m_mode = Mode::Plain;
        return;
    }
    // A wrapping that the operator begins starts from no offset.
    resetSbx();
    enter(*row(mode));
}

void SetUpPointWidget::enter(const ModeRow& row)
{
    setSelected(button(row.mode), true);
    ui->wgtPointParam->show();
    showRotation(row.mode == Mode::RelTool);
    m_mode = row.mode;
}

void SetUpPointWidget::setSelected(QPushButton* button, bool selected)
{
    const QString sheet = QLatin1String(selected ? kSelectedSheet : kPlainSheet);
    setStyleSheetOnce(button, UiScale::scaleStylesheet(sheet, this));
}

void SetUpPointWidget::showRotation(bool shown)
{
    const QVector<QWidget*> group{ui->lblAngle, ui->lblA, ui->sbxA, ui->lblB, ui->sbxB, ui->lblC, ui->sbxC};
    for (QWidget* widget : group) {
        widget->setVisible(shown);
    }
}
