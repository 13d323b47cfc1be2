#include "simulator/iopanel.h"

#include "simulator/accessdelegate.h"
#include "simulator/iomodel.h"
#include "simulator/registerlist.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTableView>
#include <QVBoxLayout>

namespace sim
{

namespace
{
constexpr int kRowPadding = 8;
constexpr int kCellPadding = 8;
constexpr int kArrowWidth = 20;  ///< of a combo box
constexpr int kMostLetters = 17; ///< that are given room; a wider column is the user's to make
} // namespace

IoPanel::IoPanel(SimulatedController* controller, QWidget* parent)
    : QWidget(parent), m_model(new IoModel(controller, this)), m_table(new QTableView(this))
{
    auto* note = new QLabel(tr("A register without its tick is withdrawn: the controller no longer publishes it. A "
                               "click on the access of a register opens a menu of others."),
                            this);
    note->setWordWrap(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(createFilter());
    layout->addWidget(m_table, 1);
    layout->addWidget(note);
    setUpTable();
}

QWidget* IoPanel::createFilter()
{
    auto* bar = new QWidget(this);
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    auto* filter = new QLineEdit(bar);
    filter->setObjectName(QStringLiteral("ioFilter"));
    filter->setPlaceholderText(tr("name or user"));
    auto* label = new QLabel(tr("Filter"), bar);
    label->setBuddy(filter);
    auto* onlyUsed = new QCheckBox(tr("Only what is used"), bar);
    onlyUsed->setObjectName(QStringLiteral("ioOnlyUsed"));
    row->addWidget(label);
    row->addWidget(filter, 1);
    row->addWidget(onlyUsed);
    connect(filter, &QLineEdit::textChanged, m_model, &IoModel::setFilter);
    connect(onlyUsed, &QCheckBox::toggled, m_model, &IoModel::setOnlyUsed);
    return bar;
}

void IoPanel::setUpTable()
{
    m_table->setObjectName(QStringLiteral("ioTable"));
    m_table->setModel(m_model);
    m_table->setItemDelegateForColumn(IoModel::Access, new AccessDelegate(m_table));
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setSelectionMode(QAbstractItemView::SingleSelection);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setSectionResizeMode(IoModel::UsedBy, QHeaderView::Stretch);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setSizes();
    connect(m_table, &QTableView::clicked, this, &IoPanel::offerAccess);
    connect(m_table, &QTableView::activated, this, &IoPanel::offerAccess);
}

/// What stands before the users gets no more room than it needs, so that they can be seen in a narrow panel. Once, from
/// what is there at the start: a table that measures its contents again and again is slow when it is long.
void IoPanel::setSizes()
{
    const QFontMetrics metrics = m_table->fontMetrics();
    m_table->verticalHeader()->setDefaultSectionSize(metrics.height() + kRowPadding);
    m_table->setColumnWidth(IoModel::Published,
                            m_table->style()->pixelMetric(QStyle::PM_IndicatorWidth) + kCellPadding);
    const int widest = kMostLetters * metrics.averageCharWidth();
    for (int column = IoModel::Name; column < IoModel::UsedBy; ++column) {
        int width = metrics.horizontalAdvance(m_model->headerData(column, Qt::Horizontal).toString());
        for (int row = 0; row < m_model->rowCount() && width < widest; ++row) {
            width = qMax(width, metrics.horizontalAdvance(m_model->index(row, column).data().toString()));
        }
        const int arrow = column == IoModel::Access ? kArrowWidth : 0;
        m_table->setColumnWidth(column, qMin(width, widest) + arrow + kCellPadding);
    }
}

void IoPanel::offerAccess(const QModelIndex& cell)
{
    // A desk where one click activates says so twice.
    if (!m_model->flags(cell).testFlag(Qt::ItemIsEditable) || QApplication::activePopupWidget() != nullptr) {
        return;
    }
    const QString current = cell.data().toString();
    auto* menu = new QMenu(m_table);
    menu->setObjectName(QStringLiteral("registerAccess"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const QString& word : accessWords()) {
        QAction* action = menu->addAction(word);
        action->setCheckable(true);
        action->setChecked(word == current);
    }
    // The list may be another one by the time that somebody has chosen.
    connect(menu, &QMenu::triggered, m_model, [model = m_model, place = QPersistentModelIndex(cell)](QAction* action) {
        model->setData(place, action->text());
    });
    menu->popup(m_table->viewport()->mapToGlobal(m_table->visualRect(cell).bottomLeft()));
}

} // namespace sim
