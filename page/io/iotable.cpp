#include "page/io/iotable.h"

#include "widgets/enablebutton.h"
#include "widgets/listcombobox.h"
#include "widgets/uiscale.h"
#include "widgets/wholescrollbar.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTableWidget>

#include <algorithm>

namespace
{

enum Column { Number, Name, Type, Assign, Switch };

constexpr int kFontPoints = 10;
constexpr int kListedAtOnce = 10;     ///< entries of an open list
constexpr int kCellMargin = 4;        ///< left and right of what is in a cell, in pixels
constexpr int kTitleMargin = 14;      ///< above and below a column's title together, in pixels
constexpr int kGridLine = 1;          ///< which a table takes off its cells, in pixels
constexpr int kTypeCharacters = 4;    ///< "REG" and some room
constexpr int kPortCharacters = 12;   ///< as in "R_WireSpeed"
constexpr int kElementCharacters = 4; ///< as in "1000"

/// A cell that keeps its widgets off its edges.
QWidget* cellOf(std::initializer_list<QWidget*> widgets, int stretched)
{
    auto* cell = new QWidget;
    auto* layout = new QHBoxLayout(cell);
    layout->setContentsMargins(kCellMargin, 0, kCellMargin, 0);
    layout->setSpacing(kCellMargin);
    for (QWidget* widget : widgets) {
        layout->addWidget(widget);
    }
    if (stretched >= 0) {
        layout->setStretch(stretched, 1);
    }
    return cell;
}

ListComboBox* comboBox(const IoRowTemplate& signal, const char* what, int characters)
{
    auto* combo = new ListComboBox;
    combo->setObjectName(QStringLiteral("comboBox_%1_%2").arg(QLatin1String(signal.key), QLatin1String(what)));
    combo->setMinimumContentsLength(characters);
    UiScale::configureComboBoxPopup(combo, kListedAtOnce);
    return combo;
}

/// The width that a cell asks for once it has its style.
int widthOf(const QTableWidget* table, int row, int column)
{
    QWidget* cell = table->cellWidget(row, column);
    for (QWidget* widget : cell->findChildren<QWidget*>()) {
        widget->ensurePolished();
    }
    cell->layout()->invalidate();
    return cell->sizeHint().width() + kGridLine;
}

} // namespace

IoTable::IoTable(QTableWidget* table, const QVector<IoRowTemplate>& signalRows,
                 QString (*signalName)(const IoRowTemplate&))
    : m_table(table)
{
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->horizontalHeader()->setSectionResizeMode(Assign, QHeaderView::Stretch);
    table->horizontalHeader()->setSectionsClickable(false);
    table->horizontalHeader()->setHighlightSections(false);
    table->setVerticalScrollBar(new WholeScrollBar);
    for (const IoRowTemplate& signal : signalRows) {
        build(signal, signalName(signal));
    }
}

void IoTable::build(const IoRowTemplate& signal, const QString& name)
{
    const int line = m_table->rowCount();
    m_table->insertRow(line);
    auto* number = new QTableWidgetItem(QString::number(line + 1));
    number->setTextAlignment(Qt::AlignCenter);
    number->setFlags(Qt::ItemIsEnabled);
    m_table->setItem(line, Number, number);

    WeldIoRow row;
    row.signal = &signal;
    row.nameLabel = new QLabel(name);
    row.nameLabel->setObjectName(QStringLiteral("label_%1_name").arg(QLatin1String(signal.key)));
    m_table->setCellWidget(line, Name, cellOf({row.nameLabel}, -1));
    row.typeCombo = comboBox(signal, "type", kTypeCharacters);
    row.typeCombo->addItems(signal.portKind->typeEntries());
    m_table->setCellWidget(line, Type, cellOf({row.typeCombo}, -1));
    row.portCombo = comboBox(signal, "port", kPortCharacters);
    row.biasCombo = comboBox(signal, "bias", kElementCharacters);
    // The port selector stays where it is when the element comes and goes.
    QSizePolicy policy = row.biasCombo->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    row.biasCombo->setSizePolicy(policy);
    row.biasCombo->hide();
    m_table->setCellWidget(line, Assign, cellOf({row.portCombo, row.biasCombo}, 0));
    if (signal.hasEnableSwitch()) {
        row.enableButton = new EnableButton;
        row.enableButton->setObjectName(QStringLiteral("pushButton_%1_enabled").arg(QLatin1String(signal.switchStem)));
        m_table->setCellWidget(line, Switch, cellOf({row.enableButton}, -1));
    }
    row.clearPorts();
    m_rows.push_back(row);
}

void IoTable::showRow(const IoRowTemplate& signal) const
{
    const auto shown =
        std::find_if(m_rows.begin(), m_rows.end(), [&signal](const WeldIoRow& row) { return row.signal == &signal; });
    if (shown != m_rows.end()) {
        m_table->scrollTo(m_table->model()->index(static_cast<int>(shown - m_rows.begin()), Assign));
        shown->portCombo->setFocus();
    }
}

void IoTable::present() const
{
    QHeaderView* header = m_table->horizontalHeader();
    const int rowHeight = UiScale::tableRowHeight(m_table);
    const QFont font = UiScale::contentFont(m_table, kFontPoints);
    if (header->font() != font) {
        header->setFont(font);
    }
    header->setFixedHeight(UiScale::lineHeight(font) + kTitleMargin);
    m_table->verticalHeader()->setMinimumSectionSize(rowHeight);
    m_table->verticalHeader()->setDefaultSectionSize(rowHeight);
    int least = 2 * m_table->frameWidth() + m_table->verticalScrollBar()->sizeHint().width();
    for (const int column : {Number, Name, Type, Assign, Switch}) {
        const int width = std::max(header->sectionSizeHint(column), contentWidth(column));
        if (column != Assign) {
            m_table->setColumnWidth(column, width);
        }
        least += width;
    }
    // A narrow screen scrolls the page instead of cutting its texts off.
    m_table->setMinimumWidth(least);
    fitHeight();
}

/// What a column's cells need. All but the names are alike: one is measured for all of them.
int IoTable::contentWidth(int column) const
{
    if (column == Number) {
        return 0; // its title is wider
    }
    if (column == Name) {
        const QFontMetrics metrics(UiScale::contentFont(m_table, kFontPoints));
        int widest = 0;
        for (const WeldIoRow& row : m_rows) {
            widest = std::max(widest, metrics.horizontalAdvance(row.nameLabel->text()));
        }
        return widest + 1 + 2 * kCellMargin + kGridLine; // 1: a glyph may be wider than its advance
    }
    const auto measured = std::find_if(m_rows.begin(), m_rows.end(), [column](const WeldIoRow& row) {
        return column != Switch || row.enableButton != nullptr;
    });
    return widthOf(m_table, static_cast<int>(measured - m_rows.begin()), column);
}

void IoTable::fitHeight() const
{
    m_table->setMaximumHeight(m_table->horizontalHeader()->height() + m_table->verticalHeader()->length() +
                              2 * m_table->frameWidth());
}
