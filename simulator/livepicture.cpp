#include "simulator/livepicture.h"

#include <QPixmap>

#include <utility>

namespace sim
{

namespace
{
constexpr int kIntervalMs = 300;
constexpr int kLargestWidth = 160;
constexpr int kLargestHeight = 32;
} // namespace

LivePicture::LivePicture(std::function<QWidget*()> source, const QString& textWithout, QWidget* parent)
    : QLabel(textWithout, parent), m_source(std::move(source)), m_textWithout(textWithout)
{
    setMinimumHeight(kLargestHeight);
    startTimer(kIntervalMs);
}

void LivePicture::timerEvent(QTimerEvent* event)
{
    Q_UNUSED(event)
    if (isVisible()) {
        refresh();
    }
}

void LivePicture::refresh()
{
    QWidget* source = m_source();
    if (source == nullptr || !source->isVisible() || source->size().isEmpty()) {
        setText(m_textWithout);
        return;
    }
    QPixmap picture = source->grab();
    if (picture.width() > kLargestWidth || picture.height() > kLargestHeight) {
        picture = picture.scaled(kLargestWidth, kLargestHeight, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }
    setPixmap(picture);
}

} // namespace sim
