#include "simulator/noticebar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace sim
{

NoticeBar::NoticeBar(QWidget* parent) : QWidget(parent), m_text(new QLabel(this))
{
    setObjectName(QStringLiteral("noticeBar"));
    setAutoFillBackground(true);
    QPalette amber = palette();
    amber.setColor(QPalette::Window, QColor(255, 225, 160));
    amber.setColor(QPalette::WindowText, Qt::black);
    setPalette(amber);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* dismiss = new QPushButton(tr("Dismiss"), this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 3, 6, 3);
    layout->addWidget(m_text, 1);
    layout->addWidget(dismiss);
    connect(dismiss, &QPushButton::clicked, this, [this] {
        m_count = 0;
        hide();
    });
    hide();
}

void NoticeBar::tell(const QString& text)
{
    ++m_count;
    m_text->setText(m_count == 1
                        ? tr("Simulator: %1").arg(text)
                        : tr("Simulator (%1 notices, see the journal): %2").arg(QString::number(m_count), text));
    setVisible(true);
}

} // namespace sim
