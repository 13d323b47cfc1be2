#ifndef SIMULATOR_LIVEPICTURE_H
#define SIMULATOR_LIVEPICTURE_H

#include <QLabel>

#include <functional>

namespace sim
{

/// Shows what another widget shows, a few times a second for as long as both can be seen; a text when the
/// other one is not to be seen.
class LivePicture : public QLabel
{
    Q_OBJECT

public:
    /// source names the widget anew for every picture; it may be null.
    LivePicture(std::function<QWidget*()> source, const QString& textWithout, QWidget* parent = nullptr);

    void refresh();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    std::function<QWidget*()> m_source;
    QString m_textWithout;
};

} // namespace sim

#endif
