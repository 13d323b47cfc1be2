#ifndef SIMULATOR_NOTICEBAR_H
#define SIMULATOR_NOTICEBAR_H

#include <QWidget>

class QLabel;

namespace sim
{

/// The simulator's own word to its user, apart from what the operator is told: hidden until there is
/// something to say, then there until it is dismissed.
class NoticeBar : public QWidget
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget* parent = nullptr);

    /// Shows a notice; further ones are counted and the newest is shown.
    void tell(const QString& text);

private:
    QLabel* m_text;
    int m_count = 0;
};

} // namespace sim

#endif
