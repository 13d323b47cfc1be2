#ifndef SIMULATOR_MESSAGEAREA_H
#define SIMULATOR_MESSAGEAREA_H

#include <QTableWidget>

#include <vector>

namespace sim
{

/// The operator's message area with its whole history, texts wrapped. While its end is in view it follows the
/// newest message; whoever reads further up is left there. Only rows that come into view are measured: a long
/// history costs no more than a short one.
class MessageArea : public QTableWidget
{
    Q_OBJECT

public:
    explicit MessageArea(QWidget* parent = nullptr);

    void add(const QString& source, int level, const QString& text);
    /// How many rows of one line it would like to show.
    void setVisibleRows(int rows);
    QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void measure();
    void queueFit();
    void fit();
    void fitRow(int row);

    std::vector<int> m_measuring; ///< for each row the measuring of which its height is
    int m_currentMeasuring = 0;   ///< goes up with everything that makes heights wrong
    int m_visibleRows = 4;
    bool m_following = true;
    bool m_fitQueued = false;
};

} // namespace sim

#endif
