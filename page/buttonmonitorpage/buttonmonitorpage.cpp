#include "page/buttonmonitorpage/buttonmonitorpage.h"
#include "ui_buttonmonitorpage.h"

#include "common/controller.h"
#include "common/logline.h"
#include "common/names.h"
#include "widgets/uiscale.h"

#include "pendix/hostui.h"

#include <QLineEdit>
#include <QShowEvent>

#include <cmath>

namespace
{

struct ValueRow {
    const char* key;
    QDoubleSpinBox* Ui::ButtonMonitorPage::*shown;
};

constexpr ValueRow kValues[] = {
    {names::monitor::kPower, &Ui::ButtonMonitorPage::doubleSpinBox_Power},
    {names::monitor::kFrequency, &Ui::ButtonMonitorPage::doubleSpinBox_Frequency},
    {names::monitor::kDutyCycle, &Ui::ButtonMonitorPage::doubleSpinBox_3},
    {names::monitor::kWireSpeed, &Ui::ButtonMonitorPage::doubleSpinBox_4},
    {names::monitor::kWeldSpeed, &Ui::ButtonMonitorPage::doubleSpinBox_5},
};

constexpr int kFontPoints = 10;

void trace(int line, const char* text)
{
    logLine(LogLevel::Trace) << "["
                             << "../corvane/page/buttonmonitorpage"
                             << ":" << line << "]" << text;
}

} // namespace

ButtonMonitorPage::ButtonMonitorPage(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      ui(std::make_unique<Ui::ButtonMonitorPage>())
{
    ui->setupUi(this);
    for (const ValueRow& row : kValues) {
        QDoubleSpinBox* value = (*ui).*row.shown;
        value->setFocusPolicy(Qt::NoFocus);
        value->findChild<QLineEdit*>()->setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    // Always the size of the form, also when a font or a wider range makes that larger.
    layout()->setSizeConstraint(QLayout::SetFixedSize);
    layout()->activate();
    setWindowTitle(tr("Monitor"));
    initConnect();
}

ButtonMonitorPage::~ButtonMonitorPage()
{
    // A dialog that goes without having been closed leaves a stream running, also when it is hidden by now.
    if (m_stream != Stream::Running) {
        return;
    }
    try {
        stopMonitor();
    } catch (...) {
        // Nothing may leave a destructor.
        logLine(LogLevel::Warning) << "ButtonMonitorPage: exception while the stream was stopped";
    }
}

void ButtonMonitorPage::initConnect()
{
    trace(42, "ButtonMonitorPage initConnect");
    connect(this, &QDialog::finished, this, &ButtonMonitorPage::stopMonitor, Qt::UniqueConnection);
}

void ButtonMonitorPage::initStyle()
{
    const QFont font = UiScale::contentFont(this, kFontPoints);
    QFont titleFont = font;
    titleFont.setBold(true);
    for (QLabel* label : findChildren<QLabel*>()) {
        label->setFont(label->property("type") == QLatin1String("title") ? titleFont : font);
    }
    UiScale::applyContentFonts(this, kFontPoints);
    const int rowHeight = UiScale::formRowHeight(this);
    for (const ValueRow& row : kValues) {
        ((*ui).*row.shown)->setMinimumHeight(rowHeight);
    }
}

void ButtonMonitorPage::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    m_stream = Stream::Running;
}

void ButtonMonitorPage::onWelderStateChanged(const QVariant& state)
{
    // Not canConvert(): a list of pairs or a hash would pass.
    if (state.userType() != QMetaType::QVariantMap) {
        return;
    }
    const QVariantMap values = state.toMap();
    for (const ValueRow& row : kValues) {
        const double value = values.value(QLatin1String(row.key)).toDouble();
        ((*ui).*row.shown)->setValue(std::isfinite(value) ? value : 0.0);
    }
}

void ButtonMonitorPage::stopMonitor()
{
    if (m_stream == Stream::Stopped) {
        return;
    }
    m_stream = Stream::Stopped;
    const QString plugin = QString::fromLatin1(names::kPlugin);
    controller::sendCommand(this, {{QLatin1String(names::command::kMonitor), false}});
    controller::endSubscription(QLatin1String(names::node::kMonitorData));
    ChangeModelWindowStatus(plugin, false);
    trace(49, "ChangeModelWindowStatus false");
}
