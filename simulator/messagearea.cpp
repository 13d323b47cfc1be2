#include "simulator/messagearea.h"

#include "simulator/simhost.h"

#include <QHeaderView>
#include <QResizeEvent>
#include <QTime>
#include <QTimer>

namespace sim
{

namespace
{

enum Column { Time, Level, Source, Text, ColumnCount };

constexpr int kVisibleRows = 4;

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
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    measure();
}

void MessageArea::measure()
{
    horizontalHeader()->setFont(font());
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    setColumnWidth(Time, fontMetrics().horizontalAdvance(QStringLiteral("00:00:00")) + 16);
    setColumnWidth(Level, fontMetrics().horizontalAdvance(messageLevelName(pendix::information)) + 16);
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
    if (event->size().width() != event->oldSize().width()) {
        fitRows();
    }
}

void MessageArea::fitRows()
{
    // A history is measured once per turn of the event loop, not for every pixel of a drag.
    if (m_fitQueued) {
        return;
    }
    m_fitQueued = true;
    QTimer::singleShot(0, this, [this] {
        m_fitQueued = false;
        resizeRowsToContents();
        scrollToBottom();
    });
}

QSize MessageArea::sizeHint() const
{
    const int rows = kVisibleRows * verticalHeader()->defaultSectionSize();
    return {QTableWidget::sizeHint().width(), horizontalHeader()->sizeHint().height() + rows + 2 * frameWidth()};
}

void MessageArea::add(const QString& source, int level, const QString& text)
{
    const int row = rowCount();
    insertRow(row);
    const QStringList cells = {QTime::currentTime().toString(QStringLiteral("HH:mm:ss")), messageLevelName(level),
                               source, text};
    for (int column = 0; column < cells.size(); ++column) {
        auto* item = new QTableWidgetItem(cells.at(column));
        item->setForeground(levelColour(level));
        item->setToolTip(text);
        setItem(row, column, item);
    }
    resizeRowToContents(row);
    scrollToBottom();
}

} // namespace sim
