#include "page/curves/curvetab.h"

#include "page/curves/curvetable.h"
#include "widgets/customchart.h"
#include "widgets/listcombobox.h"
#include "widgets/pagestyle.h"
#include "widgets/uiscale.h"
#include "widgets/wholescrollbar.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QTableWidget>

#include <algorithm>

namespace
{

using curvetable::NodeNumber;
using curvetable::PhysicalValue;
using curvetable::PortValue;

constexpr QSize kLeastChart(380, 259);
constexpr int kMargin = 8;                      ///< between the parts of a tab, in pixels
constexpr int kTitleMargin = 14;                ///< above and below a column's title together, in pixels
constexpr char kWidestPort[] = "AO_LaserPower"; ///< of the names of ports that are sure to be shown whole
constexpr int kTitleSides = 16;                 ///< left and right of a column's title together, in pixels

/// %1 points, %2 family.
constexpr char kTickSheet[] = R"(font:400 %1pt "%2";)";

class FittedChart : public CustomChart
{
protected:
    void resizeEvent(QResizeEvent* event) override
    {
        CustomChart::resizeEvent(event);
        fitTickFont(this);
    }
};

QString text(const char* source)
{
    return QCoreApplication::translate(kCurveContext, source);
}

QTableWidget* newTable(const CurveSpec& curve)
{
    auto* table = new QTableWidget(0, PhysicalValue + 1);
    table->setObjectName(QLatin1String(curve.table));
    table->setHorizontalHeaderLabels({QCoreApplication::translate("CharacteristicsCurvePage", "Node"),
                                      QCoreApplication::translate("CharacteristicsCurvePage", "GO/AO/Reg"),
                                      text(curve.valueHeader)});
    table->setFrameShape(QFrame::NoFrame);
    table->setSelectionMode(QAbstractItemView::NoSelection);
    table->setFocusPolicy(Qt::NoFocus);
    table->setTabKeyNavigation(false);
    table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setVerticalScrollBar(new WholeScrollBar);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView* header = table->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::Fixed);
    header->setSectionResizeMode(PortValue, QHeaderView::Stretch); // has the scroll bar's room while there is none
    header->setSectionsClickable(false);
    header->setHighlightSections(false);
    return table;
}

QPushButton* newButton(const char* name, const QString& text)
{
    auto* button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setMinimumWidth(110);
    return button;
}

ListComboBox* newNodeCount(const CurveSpec& curve)
{
    auto* combo = new ListComboBox;
    combo->setObjectName(QLatin1String(curve.nodeCount));
    combo->setMinimumContentsLength(4);
    for (int count = kFewestNodes; count <= kMostNodes; ++count) {
        combo->addItem(QString::number(count));
    }
    UiScale::configureComboBoxPopup(combo, kMostNodes);
    return combo;
}

void layOut(const CurveTab& tab)
{
    auto* counts = new QHBoxLayout;
    counts->setSpacing(kMargin);
    counts->addWidget(new QLabel(QCoreApplication::translate("CharacteristicsCurvePage", "Node Number:")));
    counts->addWidget(tab.nodeCount);
    counts->addStretch();
    auto* nodes = new QVBoxLayout;
    nodes->setSpacing(kMargin);
    nodes->addLayout(counts);
    nodes->addWidget(tab.table);
    auto* curve = new QHBoxLayout;
    curve->setSpacing(kMargin);
    curve->addLayout(nodes);
    curve->addWidget(tab.chart, 1);
    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(kMargin);
    buttons->addStretch();
    for (QPushButton* button : {tab.computeButton, tab.cancelButton, tab.saveButton}) {
        buttons->addWidget(button);
    }
    auto* all = new QVBoxLayout(tab.page);
    all->setContentsMargins(0, kMargin, 0, 0);
    all->setSpacing(kMargin);
    all->addLayout(curve, 1);
    all->addLayout(buttons);
}

} // namespace

CurveTab addCurveTab(QTabWidget* tabs, const CurveSpec& curve)
{
    CurveTab tab;
    tab.curve = &curve;
    tab.page = new QWidget;
    tab.page->setObjectName(QLatin1String(curve.page));
    tab.nodeCount = newNodeCount(curve);
    tab.table = newTable(curve);
    tab.chart = new FittedChart;
    tab.chart->setObjectName(QLatin1String(curve.chart));
    tab.chart->setMinimumSize(kLeastChart);
    tab.chart->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    tab.computeButton =
        newButton(curve.computeButton, QCoreApplication::translate("CharacteristicsCurvePage", "Compute"));
    tab.cancelButton = newButton(curve.cancelButton, QCoreApplication::translate("CharacteristicsCurvePage", "Cancel"));
    tab.saveButton = newButton(curve.saveButton, QCoreApplication::translate("CharacteristicsCurvePage", "Save"));
    layOut(tab);
    tabs->addTab(tab.page, text(curve.title));
    return tab;
}

void CurveTab::setAccess(bool isInUse, bool isEditable) const
{
    if (!isInUse) {
        page->setEnabled(false);
        return;
    }
    QWidget* const shown[] = {page, chart, table};
    for (QWidget* widget : shown) {
        widget->setEnabled(true);
    }
    table->setEditTriggers(isEditable ? QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                                            QAbstractItemView::EditKeyPressed
                                      : QAbstractItemView::NoEditTriggers);
    curvetable::setCellWidgetsEnabled(table, isEditable);
    QWidget* const used[] = {nodeCount, computeButton, cancelButton, saveButton};
    for (QWidget* widget : used) {
        widget->setEnabled(isEditable);
    }
}

void CurveTab::fitTo(int rowHeight) const
{
    const QFont font = UiScale::contentFont(table, kContentFontPoints);
    QHeaderView* header = table->horizontalHeader();
    if (header->font() != font) {
        header->setFont(font);
    }
    header->setFixedHeight(UiScale::lineHeight(font) + kTitleMargin);
    table->verticalHeader()->setMinimumSectionSize(rowHeight);
    table->verticalHeader()->setDefaultSectionSize(rowHeight);
    const int numberWidth = header->sectionSizeHint(NodeNumber);
    const int portWidth = QFontMetrics(font).horizontalAdvance(QLatin1String(kWidestPort)) + kTitleSides;
    const int valueWidth = header->sectionSizeHint(PhysicalValue);
    table->setColumnWidth(NodeNumber, numberWidth);
    table->setColumnWidth(PhysicalValue, valueWidth);
    table->setFixedWidth(numberWidth + portWidth + valueWidth + 2 * table->frameWidth() +
                         table->verticalScrollBar()->sizeHint().width());
}

void fitTickFont(CustomChart* chart)
{
    const QFont font = chart->fittedFont(UiScale::contentFont(chart, kTickFontPoints));
    // A font that is only set yields to any sheet of the host's.
    setStyleSheetOnce(chart, QString::fromLatin1(kTickSheet).arg(QString::number(font.pointSize()), font.family()));
}
