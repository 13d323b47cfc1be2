#include "simulator/journalview.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

namespace sim
{

namespace
{
constexpr int kNarrow = 380;
constexpr int kCellPadding = 10;
constexpr int kFilterColumns = 4;
constexpr int kTableHeight = 500; ///< to begin with; it takes whatever the detail leaves
constexpr int kDetailLines = 7;
constexpr int kFewestDetailLines = 2;
} // namespace

JournalView::JournalView(const Journal* journal, QWidget* parent)
    : QWidget(parent),
      m_journal(journal),
      m_model(new JournalModel(journal, this)),
      m_table(new QTableView(this)),
      m_detail(new QPlainTextEdit(this))
{
    setUpTable();
    m_detail->setObjectName(QStringLiteral("journalDetail"));
    m_detail->setReadOnly(true);
    m_detail->setPlaceholderText(tr("Select an entry to read the whole of it."));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(createFilter());
    layout->addWidget(createSplitter(), 1);
    layout->addLayout(createButtons());

    auto* shortcut = new QShortcut(QKeySequence::Copy, m_table);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, &JournalView::copySelection);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &JournalView::follow);
    connect(m_model, &QAbstractItemModel::modelReset, this, &JournalView::follow);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &JournalView::showCurrent);
    connect(m_model, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex& changed) {
        if (changed.row() == m_table->currentIndex().row()) {
            showCurrent();
        }
    });
    connect(m_table->verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this](int value) { m_following = value == m_table->verticalScrollBar()->maximum(); });
}

void JournalView::setUpTable()
{
    m_table->setObjectName(QStringLiteral("journalTable"));
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    // Every row has the same height and no column measures its contents: the table stays quick when it is long.
    const QFontMetrics metrics = m_table->fontMetrics();
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(metrics.height() + 6);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    int kindWidth = metrics.horizontalAdvance(JournalModel::untoldMark());
    for (int kind = 0; kind < kEntryKinds; ++kind) {
        kindWidth = qMax(kindWidth, metrics.horizontalAdvance(entryKindName(static_cast<EntryKind>(kind))));
    }
    const int widths[] = {metrics.horizontalAdvance(QStringLiteral("00000")),
                          metrics.horizontalAdvance(QStringLiteral("00:00:00")), kindWidth};
    for (int column = JournalModel::Number; column < JournalModel::What; ++column) {
        m_table->setColumnWidth(column, widths[column] + kCellPadding);
    }
}

void JournalView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // In a narrow view the numbers give the order and the detail the time; what happened needs the room.
    m_table->setColumnHidden(JournalModel::Time, width() < kNarrow);
}

QWidget* JournalView::createSplitter()
{
    auto* splitter = new QSplitter(Qt::Vertical, this);
    splitter->addWidget(m_table);
    splitter->addWidget(m_detail);
    splitter->setChildrenCollapsible(false);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    const int line = m_detail->fontMetrics().lineSpacing();
    constexpr int kFrame = 12;
    m_detail->setMinimumHeight(kFewestDetailLines * line + kFrame);
    splitter->setSizes({kTableHeight, kDetailLines * line + kFrame});
    return splitter;
}

QLayout* JournalView::createFilter()
{
    auto* grid = new QGridLayout;
    for (int i = 0; i < kEntryKinds; ++i) {
        const auto kind = static_cast<EntryKind>(i);
        auto* box = new QCheckBox(entryKindName(kind), this);
        box->setChecked(true);
        grid->addWidget(box, i / kFilterColumns, i % kFilterColumns);
        connect(box, &QCheckBox::toggled, m_model, [this, kind](bool on) { m_model->setShown(kind, on); });
    }
    return grid;
}

QLayout* JournalView::createButtons()
{
    auto* selection = new QPushButton(tr("Copy selection"), this);
    auto* all = new QPushButton(tr("Copy all"), this);
    connect(selection, &QPushButton::clicked, this, &JournalView::copySelection);
    connect(all, &QPushButton::clicked, this, &JournalView::copyAll);
    auto* row = new QHBoxLayout;
    row->addWidget(selection);
    row->addWidget(all);
    row->addStretch(1);
    return row;
}

void JournalView::follow()
{
    // One scroll for however many entries one turn of the event loop brings.
    if (!m_following || m_scrollQueued) {
        return;
    }
    m_scrollQueued = true;
    QTimer::singleShot(0, this, [this] {
        m_scrollQueued = false;
        m_table->scrollToBottom();
        m_following = true;
    });
}

void JournalView::showCurrent()
{
    const QModelIndex current = m_table->currentIndex();
    const QString text = current.isValid() ? m_model->detail(current.row()) : QString();
    if (text != m_detail->toPlainText()) {
        m_detail->setPlainText(text);
    }
}

QString JournalView::textOf(const QVector<int>& rows) const
{
    QString text;
    for (int row : rows) {
        text += m_journal->line(m_model->entryOf(row)) + QLatin1Char('\n');
    }
    return text;
}

QString JournalView::selectedText() const
{
    QVector<int> rows;
    const QItemSelectionModel* selection = m_table->selectionModel();
    for (int row = 0; row < m_model->rowCount(); ++row) {
        if (!selection->hasSelection() || selection->isRowSelected(row, QModelIndex())) {
            rows.append(row);
        }
    }
    return textOf(rows);
}

void JournalView::copySelection() const
{
    QGuiApplication::clipboard()->setText(selectedText());
}

void JournalView::copyAll() const
{
    QVector<int> rows;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        rows.append(row);
    }
    QGuiApplication::clipboard()->setText(textOf(rows));
}

} // namespace sim
