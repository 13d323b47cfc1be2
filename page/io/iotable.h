#ifndef PAGE_IO_IOTABLE_H
#define PAGE_IO_IOTABLE_H

#include "page/io/weldiorow.h"

#include <vector>

class QTableWidget;

/// A table of signals: builds its rows and makes it no higher than they are. On a low screen it scrolls, and the page's
/// tabs and buttons stay where they are.
class IoTable
{
public:
    /// Fills a table that has its columns and no rows. signalName: the translated name of a signal.
    IoTable(QTableWidget* table, const QVector<IoRowTemplate>& signalRows, QString (*signalName)(const IoRowTemplate&));

    const std::vector<WeldIoRow>& rows() const { return m_rows; }

    /// Brings a signal's row into view and its port selector into the focus.
    void showRow(const IoRowTemplate& signal) const;

    /// Header fonts, row heights and column widths for the screen and the zoom as they are now.
    void present() const;

    /// Makes the table at most as high as its rows.
    void fitHeight() const;

private:
    int contentWidth(int column) const;
    void build(const IoRowTemplate& signal, const QString& name);

    QTableWidget* m_table;
    std::vector<WeldIoRow> m_rows;
};

#endif
