#ifndef SIMULATOR_MESSAGEAREA_H
#define SIMULATOR_MESSAGEAREA_H

#include <QTableWidget>

namespace sim
{

/// The operator's message area with its whole history; the newest message is the last row and in view.
class MessageArea : public QTableWidget
{
    Q_OBJECT

public:
    explicit MessageArea(QWidget* parent = nullptr);

    void add(const QString& source, int level, const QString& text);
    QSize sizeHint() const override;

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void measure();
    void fitRows();

    bool m_fitQueued = false;
};

} // namespace sim

#endif
