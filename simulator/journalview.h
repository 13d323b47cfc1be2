#ifndef SIMULATOR_JOURNALVIEW_H
#define SIMULATOR_JOURNALVIEW_H

#include "simulator/journalmodel.h"

#include <QWidget>

class QLayout;
class QPlainTextEdit;
class QTableView;

namespace sim
{

/// The journal in the inspector: choice of kinds, the table, the whole text of the current entry, copying.
/// The table follows the newest entry while its last row is in view.
class JournalView : public QWidget
{
    Q_OBJECT

public:
    explicit JournalView(const Journal* journal, QWidget* parent = nullptr);

    JournalModel* model() const { return m_model; }

    /// The selected entries, or all that are shown when none is selected, one line each.
    QString selectedText() const;

public slots:
    void copySelection() const;
    void copyAll() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    QLayout* createFilter();
    QLayout* createButtons();
    QWidget* createSplitter();
    void setUpTable();
    void follow();
    void showCurrent();
    QString textOf(const QVector<int>& rows) const;

    const Journal* m_journal;
    JournalModel* m_model;
    QTableView* m_table;
    QPlainTextEdit* m_detail;
    bool m_following = true;
    bool m_scrollQueued = false;
};

} // namespace sim

#endif
