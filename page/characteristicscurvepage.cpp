#include "page/characteristicscurvepage.h"

#include "common/names.h"
#include "page/curves/curvetable.h"
#include "page/weldsettingpage.h"
#include "widgets/customchart.h"
#include "widgets/listcombobox.h"
#include "widgets/pagestyle.h"
#include "widgets/uiscale.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QVBoxLayout>

#include <iterator>

namespace
{

constexpr int kComboMargin = 8;       ///< above and below the text of a selector together, in pixels
constexpr int kLeastComboHeight = 26; ///< in pixels: what a finger still hits

/// Tables and charts have a frame of their own, and square corners.
constexpr char kPaneSheet[] = "QTabWidget::pane{border:none;border-radius:0px;}";

/// White is what can be edited. Cells have no frame: a row at a small zoom has no room for one.
constexpr char kTextSheet[] = R"(QLabel{color:#202020;}QLabel:disabled{color:#757575;})"
                              R"(QLabel,QTableWidget,QHeaderView,QSpinBox,QDoubleSpinBox{)"
                              R"(font:400 10pt "Microsoft YaHei UI";})"
                              R"(QSpinBox,QDoubleSpinBox{border:none;background:#ffffff;color:#202020;})"
                              R"(QSpinBox:focus,QDoubleSpinBox:focus{background:#e3effb;})"
                              R"(QSpinBox:disabled,QDoubleSpinBox:disabled{background:#f5f5f5;color:#6b6b6b;})";

} // namespace

CharacteristicsCurvePage::CharacteristicsCurvePage(WeldSettingPage* settingPage, QWidget* parent)
    : QWidget(parent), m_tabWidget(new QTabWidget(this)), m_settingPage(settingPage)
{
    setObjectName(QStringLiteral("CharacteristicsCurvePage"));
    m_tabWidget->setObjectName(QStringLiteral("tabWidget"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(9, 6, 9, 6);
    layout->addWidget(m_tabWidget);
    UiScale::applyExpandingPage(this);
    initTabWidget();
    initConnect();
}

void CharacteristicsCurvePage::initTabWidget()
{
    for (const CurveSpec& curve : kCurveSpecs) {
        m_tabs.append(addCurveTab(m_tabWidget, curve));
        populateTable(m_tabs.constLast().table, kFewestNodes, {});
    }
}

void CharacteristicsCurvePage::initConnect()
{
    for (const CurveTab& tab : m_tabs) {
        // Loading leaves it to this signal, too, to give the table its rows.
        connect(tab.nodeCount, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                [this, tab](int index) { populateTable(tab.table, index + kFewestNodes, {}); });
        connect(tab.computeButton, &QPushButton::clicked, this, [this, tab] { compute(tab); });
        connect(tab.saveButton, &QPushButton::clicked, this, [this, tab] { save(tab); });
        connect(tab.cancelButton, &QPushButton::clicked, this, [this, tab] { cancel(tab); });
    }
}

void CharacteristicsCurvePage::loadWeldCurveConfigFromJson(const QJsonValue& config)
{
    if (!config.isObject()) {
        return;
    }
    const QJsonObject node = config.toObject();
    for (const CurveTab& tab : m_tabs) {
        load(tab, storedCurve(*tab.curve, node));
    }
}

void CharacteristicsCurvePage::load(const CurveTab& tab, const StoredCurve& stored)
{
    const int count = stored.count.value_or(0);
    if (count >= kFewestNodes && count <= kMostNodes) {
        tab.nodeCount->setCurrentIndex(count - kFewestNodes);
    }
    if (stored.nodes) {
        populateTable(tab.table, qBound(0, count, kMostNodes), *stored.nodes);
    }
}

QList<QPointF> CharacteristicsCurvePage::convertJsonArrayToPoints(const QJsonArray& array)
{
    return nodesOf(array);
}

bool CharacteristicsCurvePage::isWeldingOn() const
{
    return !m_settingPage.isNull() && m_settingPage->getMainBtnStatus();
}

/// The curve of a table; the first one for a table of somebody else's.
const CurveSpec& CharacteristicsCurvePage::curveOf(const QTableWidget* table) const
{
    for (const CurveTab& tab : m_tabs) {
        if (tab.table == table) {
            return *tab.curve;
        }
    }
    return kCurveSpecs[0];
}

void CharacteristicsCurvePage::populateTable(QTableWidget* table, int nodeCount, const QList<QPointF>& points)
{
    curvetable::populate(table, curveOf(table).values, nodeCount, points);
    if (isWeldingOn()) {
        curvetable::setCellWidgetsEnabled(table, false);
    }
}

void CharacteristicsCurvePage::addRowToTable(QTableWidget* table, int nodeNumber, double portValue,
                                             double physicalValue)
{
    curvetable::addRow(table, curveOf(table).values, nodeNumber, portValue, physicalValue);
}

void CharacteristicsCurvePage::readTableToPoints(QTableWidget* table, QList<QPointF>& points)
{
    points = curvetable::nodes(table);
}

void CharacteristicsCurvePage::parseJsonRetArray(const QJsonArray& result, double& intercept, double& slope)
{
    if (const auto line = lineOf(result)) {
        intercept = line->intercept;
        slope = line->slope;
    }
}

int CharacteristicsCurvePage::computeScale(int maximum)
{
    return tickStep(maximum);
}

void CharacteristicsCurvePage::ComputeDrawChart(QTableWidget* table, CustomChart* chart, const double& slope,
                                                const double& intercept)
{
    draw(table, chart, curvetable::nodes(table), {slope, intercept});
}

void CharacteristicsCurvePage::draw(QTableWidget* table, CustomChart* chart, const QList<QPointF>& nodes,
                                    const CurveLine& line)
{
    QString caption;
    for (const CurveSpec& curve : kCurveSpecs) {
        if (chart->objectName() == QLatin1String(curve.chart)) {
            caption = QLatin1String(curve.chartCaption);
        }
    }
    const CurveLimits limits = limitsOf(nodes);
    chart->setRange(QString(), limits.x.step, limits.x.minimum, limits.x.maximum, QString(), limits.y.step,
                    limits.y.minimum, limits.y.maximum);
    chart->setPoints(nodes);
    chart->setLine(line.slope, line.intercept);
    chart->setTips(curvetable::portHeader(table), caption);
    fitTickFont(chart);
    chart->update();
}

QJsonObject CharacteristicsCurvePage::members(Tab tab) const
{
    return curveMembers(kCurveSpecs[tab], curvetable::nodes(m_tabs.at(tab).table));
}

QJsonObject CharacteristicsCurvePage::command(const names::command::Command& command, Tab tab) const
{
    return curveCommand(command, kCurveSpecs[tab], curvetable::nodes(m_tabs.at(tab).table));
}

QJsonObject CharacteristicsCurvePage::saveWeldCurvePowerConfigToJson()
{
    return members(Power);
}

QJsonObject CharacteristicsCurvePage::saveWeldCurveFeedConfigToJson()
{
    return members(Feed);
}

QJsonObject CharacteristicsCurvePage::saveWeldCurveFrequencyConfigToJson()
{
    return members(Frequency);
}

QJsonObject CharacteristicsCurvePage::saveWeldCurveDutycycleConfigToJson()
{
    return members(DutyCycle);
}

QJsonObject CharacteristicsCurvePage::computePowerCurveToJson()
{
    return command(names::command::kComputeCurve, Power);
}

QJsonObject CharacteristicsCurvePage::computeFeedCurveToJson()
{
    return command(names::command::kComputeCurve, Feed);
}

QJsonObject CharacteristicsCurvePage::computeFrequencyCurveToJson()
{
    return command(names::command::kComputeCurve, Frequency);
}

QJsonObject CharacteristicsCurvePage::computeDutycycleCurveToJson()
{
    return command(names::command::kComputeCurve, DutyCycle);
}

QJsonObject CharacteristicsCurvePage::saveCurvePowerConfigToJson()
{
    return command(*kCurveSpecs[Power].save, Power);
}

QJsonObject CharacteristicsCurvePage::saveCurveFeedConfigToJson()
{
    return command(*kCurveSpecs[Feed].save, Feed);
}

QJsonObject CharacteristicsCurvePage::saveCurveFrequencyConfigToJson()
{
    return command(*kCurveSpecs[Frequency].save, Frequency);
}

QJsonObject CharacteristicsCurvePage::saveCurveDutycycleConfigToJson()
{
    return command(*kCurveSpecs[DutyCycle].save, DutyCycle);
}

void CharacteristicsCurvePage::setCurveTableCellWidgetsEnabled(QTableWidget* table, bool enabled)
{
    curvetable::setCellWidgetsEnabled(table, enabled);
}

void CharacteristicsCurvePage::showPorts(const QJsonObject& mapping)
{
    for (const CurveTab& tab : m_tabs) {
        const bool isInUse = isAssigned(*tab.curve, mapping);
        tab.page->setEnabled(isInUse);
        const QString port = mapping.value(QLatin1String(tab.curve->portKey)).toString();
        resetTableHeaderText(tab.table, isInUse ? port : tr("Not configured"));
    }
}

void CharacteristicsCurvePage::resetTableHeaderText(QTableWidget* table, const QString& text)
{
    curvetable::setPortHeader(table, text);
}

void CharacteristicsCurvePage::initStyle()
{
    UiScale::applyExpandingPage(this);
    if (m_style.sheetsAreDue(this)) {
        const int textHeight = UiScale::lineHeight(UiScale::contentFont(this, kContentFontPoints));
        const int comboHeight = qMax(textHeight + kComboMargin, kLeastComboHeight);
        const QString sheet = detailTabStyleSheet() + QLatin1String(kPaneSheet) + QLatin1String(kTextSheet) +
                              ioPageComboBoxStyleSheet(this, comboHeight);
        setStyleSheetOnce(m_tabWidget, UiScale::scaleStylesheet(sheet, this));
        UiScale::applyContentFonts(this, kContentFontPoints);
        for (const CurveTab& tab : m_tabs) {
            for (QPushButton* button : {tab.computeButton, tab.cancelButton, tab.saveButton}) {
                setPageButtonStyle(button);
            }
        }
    }
    if (m_style.sizesAreDue(this)) {
        const int rowHeight = UiScale::tableRowHeight(this);
        for (const CurveTab& tab : m_tabs) {
            tab.fitTo(rowHeight);
            fitTickFont(tab.chart);
        }
    }
}
