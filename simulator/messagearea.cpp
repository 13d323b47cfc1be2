#include "simulator/messagearea.h"

#include "simulator/clock.h"
#include "simulator/simhost.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QTextDocument>
#include <QTimer>

namespace sim
{

namespace
{

enum Column { Time, Level, Source, Text, ColumnCount };

QColor levelColour(int level)
{
    switch (level) {
    case pendix::information:
        return {0, 110, 60};
    case pendix::warning:
        return {165, 85, 0};
    default:
        return {180, 0, 20};
    }
}

} // namespace

MessageArea::MessageArea(QWidget* parent) : QTableWidget(0, ColumnCount, parent)
{
    setObjectName(QStringLiteral("messageArea"));
    setHorizontalHeaderLabels({tr("Time"), tr("Level"), tr("Source"), tr("Message to the operator")});
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    verticalHeader()->hide();
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    // A message may be higher than the area: by whole rows its end would be out of reach.
    setVerticalScrollMode(ScrollPerPixel);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) {
        m_following = value == verticalScrollBar()->maximum();
        queueFit();
    });
    // Measured rows reach the range only later, when a timer of the table says so.
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, &MessageArea::queueFit);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
        ++m_currentMeasuring;
        queueFit();
    });
    measure();
}

void MessageArea::measure()
{
    horizontalHeader()->setFont(font());
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    verticalScrollBar()->setSingleStep(verticalHeader()->defaultSectionSize());
    setColumnWidth(Time, fontMetrics().horizontalAdvance(QStringLiteral("00:00:00")) + 16);
    setColumnWidth(Level, fontMetrics().horizontalAdvance(messageLevelName(pendix::information)) + 16);
    ++m_currentMeasuring;
    queueFit();
}

void MessageArea::changeEvent(QEvent* event)
{
    QTableWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        measure();
    }
}

void MessageArea::resizeEvent(QResizeEvent* event)
{
    QTableWidget::resizeEvent(event);
    queueFit();
}

void MessageArea::queueFit()
{
    // Once per turn of the event loop, not for every message of a burst or every pixel of a drag.
    if (m_fitQueued) {
        return;
    }
    m_fitQueued = true;
    QTimer::singleShot(0, this, [this] {
        m_fitQueued = false;
        fit();
    });
}

void MessageArea::fitRow(int row)
{
    int& measuring = m_measuring.at(static_cast<std::size_t>(row));
    if (measuring != m_currentMeasuring) {
        measuring = m_currentMeasuring;
        resizeRowToContents(row);
    }
}

void MessageArea::fit()
{
    const int height = viewport()->height();
    if (m_following) {
        int filled = 0;
        for (int row = rowCount() - 1; row >= 0 && filled < height; --row) {
            fitRow(row);
            filled += rowHeight(row);
        }
        scrollToBottom();
        m_following = true;
        return;
    }
    // What is at the top stays where it is.
    for (int row = qMax(0, rowAt(0)); row < rowCount() && rowViewportPosition(row) < height; ++row) {
        fitRow(row);
    }
}

void MessageArea::setVisibleRows(int rows)
{
    m_visibleRows = rows;
    updateGeometry();
}

QSize MessageArea::sizeHint() const
{
    const int rows = m_visibleRows * verticalHeader()->defaultSectionSize();
    return {QTableWidget::sizeHint().width(), horizontalHeader()->sizeHint().height() + rows + 2 * frameWidth()};
}

void MessageArea::add(const QString& source, int level, const QString& text)
{
    const int row = rowCount();
    insertRow(row);
    const QStringList cells = {now().toString(QStringLiteral("HH:mm:ss")), messageLevelName(level), source, text};
    for (int column = 0; column < cells.size(); ++column) {
        auto* item = new QTableWidgetItem(cells.at(column));
        item->setForeground(levelColour(level));
        item->setToolTip(Qt::convertFromPlainText(text));
        setItem(row, column, item);
    }
    m_measuring.push_back(m_currentMeasuring - 1);
    queueFit();
}

} // namespace sim
