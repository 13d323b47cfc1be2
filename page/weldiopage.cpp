#include "page/weldiopage.h"
#include "ui_weldiopage.h"

#include "common/names.h"
#include "page/weldsettingpage.h"
#include "widgets/enablebutton.h"
#include "widgets/listcombobox.h"
#include "widgets/pagestyle.h"
#include "widgets/uiscale.h"

#include <QCoreApplication>
#include <QLabel>
#include <QResizeEvent>

#include <utility>

namespace
{

constexpr int kFontPoints = 10;
constexpr int kRefreshDelayMs = 16;   ///< within which requests for a new layout become one
constexpr int kLeastComboHeight = 20; ///< inside, in pixels: what a finger still hits
constexpr int kComboFrame = 8;        ///< what a row is higher than the inside of its selectors, in pixels

/// The table has a frame of its own, and square corners.
constexpr char kPaneSheet[] = "QTabWidget::pane{border:none;border-radius:0px;}";

/// The names; those of signals that are switched off keep a contrast of 4.5 : 1 on white.
constexpr char kNameSheet[] = R"(QLabel{font:400 10pt "Microsoft YaHei UI";color:#202020;})"
                              R"(QLabel:disabled{color:#757575;})";

QString signalName(const IoRowTemplate& signal)
{
    return QCoreApplication::translate(kSignalContext, signal.name);
}

} // namespace

WeldioPage::WeldioPage(WeldSettingPage* settingPage, QWidget* parent)
    : QWidget(parent), ui(std::make_unique<Ui::WeldioPage>()), m_settingPage(settingPage)
{
    ui->setupUi(this);
    UiScale::applyExpandingPage(this);
    initIoTables();
    initConnect();
}

WeldioPage::~WeldioPage()
{
    // Taken away in a host call that a selector made with its signal: Qt still has to do with the selector, which is
    // deleted when the event loop is back.
    for (ListComboBox* combo : qAsConst(m_speaking)) {
        combo->setParent(nullptr);
    }
}

void WeldioPage::initIoTables()
{
    m_outputs = std::make_unique<IoTable>(ui->tableWidget_output, outputRowTemplates(), signalName);
    m_inputs = std::make_unique<IoTable>(ui->tableWidget_input, inputRowTemplates(), signalName);
    for (const WeldIoRow& row : m_outputs->rows()) {
        if (qstrcmp(row.signal->key, kRetractDirectionKey) == 0) {
            m_retractDirection = &row;
        }
    }
}

void WeldioPage::initConnect()
{
    connect(ui->pushButton_Save, &QPushButton::clicked, this, &WeldioPage::saveWeldIoConfig);
    connect(ui->pushButton_Cancel, &QPushButton::clicked, this, &WeldioPage::cancel);
    connect(ui->tabWidget_io, &QTabWidget::currentChanged, this, [this] { scheduleIoLayoutRefresh(false); });
    // A timer of the page's own: one that outlives the page would outlive the plug-in, and its code.
    m_layoutRefresh.setSingleShot(true);
    m_layoutRefresh.setInterval(kRefreshDelayMs);
    connect(&m_layoutRefresh, &QTimer::timeout, this,
            [this] { refreshIoLayout(std::exchange(m_layoutRefreshIsFull, false)); });
    for (const WeldIoRow& row : allRows()) {
        const auto indexChanged = QOverload<int>::of(&QComboBox::currentIndexChanged);
        connect(row.typeCombo, indexChanged, this, [this, row] { onTypeChanged(row); });
        connect(row.portCombo, indexChanged, this, [row] { row.offerElements(0); });
        connect(row.biasCombo, QOverload<int>::of(&QComboBox::activated), this, [row] { row.biasCombo->update(); });
        if (row.enableButton != nullptr) {
            connect(row.enableButton, &EnableButton::enabled, this,
                    [this, row](bool on) { setRowPlaneStatus(row, on); });
        }
    }
}

std::vector<WeldIoRow> WeldioPage::allRows() const
{
    std::vector<WeldIoRow> rows = m_outputs->rows();
    rows.insert(rows.end(), m_inputs->rows().begin(), m_inputs->rows().end());
    return rows;
}

QJsonObject WeldioPage::saveWeldIOConfigToJson()
{
    QJsonObject node;
    for (const WeldIoRow& row : allRows()) {
        store(*row.signal, row.value().assignment, &node);
    }
    return {{QLatin1String(names::command::kSetWeldIo), node}};
}

QString WeldioPage::translateIoRowName(const QString& key, const char* fallback) const
{
    for (const QVector<IoRowTemplate>* rows : {&outputRowTemplates(), &inputRowTemplates()}) {
        for (const IoRowTemplate& signal : *rows) {
            if (key == QLatin1String(signal.key)) {
                return signalName(signal);
            }
        }
    }
    return QCoreApplication::translate(kSignalContext, fallback);
}

void WeldioPage::setRowPlaneStatus(const WeldIoRow& row, bool enabled)
{
    QWidget* const widgets[] = {row.nameLabel, row.typeCombo, row.portCombo, row.biasCombo};
    for (QWidget* widget : widgets) {
        widget->setEnabled(enabled);
    }
}

/// Turns to the row of which a rule tells the operator: not every text names the signal.
void WeldioPage::showRow(const IoRowTemplate& signal) const
{
    QWidget* const tab = signal.isOutput() ? ui->tab_output : ui->tab_input;
    ui->tabWidget_io->setCurrentWidget(tab);
    (signal.isOutput() ? m_outputs : m_inputs)->showRow(signal);
}

void WeldioPage::applyAccess(PageAccess access)
{
    if (access == PageAccess::Locked) {
        setEnabled(false);
        return;
    }
    const bool isEditable = access == PageAccess::Editable;
    QWidget* const shown[] = {this, ui->tabWidget_io, ui->tableWidget_output, ui->tableWidget_input};
    for (QWidget* widget : shown) {
        widget->setEnabled(true);
    }
    ui->pushButton_Save->setEnabled(isEditable);
    ui->pushButton_Cancel->setEnabled(isEditable);
    for (const WeldIoRow& row : allRows()) {
        if (row.enableButton != nullptr) {
            row.enableButton->setEnabled(isEditable);
        }
        setRowPlaneStatus(row, isEditable && (row.enableButton == nullptr || row.enableButton->getIsEnabled()));
        if (!isEditable) {
            row.nameLabel->setEnabled(true); // what the signals are assigned to can be read while welding is on
        }
    }
}

void WeldioPage::initStyle()
{
    UiScale::applyExpandingPage(this);
    if (m_style.sheetsAreDue(this)) {
        applySheets();
    }
    if (m_style.sizesAreDue(this)) {
        refreshIoLayout(true); // at once: the page must not be seen without, and the main page asks how wide it is
    }
}

void WeldioPage::applySheets()
{
    const int comboHeight = qMax(UiScale::tableRowHeight(this) - kComboFrame, kLeastComboHeight);
    const QString sheet = detailTabStyleSheet() + QLatin1String(kPaneSheet) + QLatin1String(kNameSheet) +
                          ioPageComboBoxStyleSheet(this, comboHeight);
    setStyleSheetOnce(ui->tabWidget_io, UiScale::scaleStylesheet(sheet, this));
    UiScale::applyContentFonts(this, kFontPoints);
    for (QPushButton* button : {ui->pushButton_Cancel, ui->pushButton_Save}) {
        setPageButtonStyle(button);
    }
}

void WeldioPage::scheduleIoLayoutRefresh(bool full)
{
    m_layoutRefreshIsFull = m_layoutRefreshIsFull || full;
    if (!m_layoutRefresh.isActive()) {
        m_layoutRefresh.start();
    }
}

void WeldioPage::refreshIoLayout(bool full)
{
    if (!isVisible()) {
        return; // the next show does it
    }
    for (const IoTable* table : {m_outputs.get(), m_inputs.get()}) {
        if (full) {
            table->present();
        }
        table->fitHeight();
    }
}

void WeldioPage::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // Only a new width can come from outside: a new height is what the tables themselves ask for.
    if (event->size().width() != event->oldSize().width()) {
        scheduleIoLayoutRefresh(false);
    }
}
