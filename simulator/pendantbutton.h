#ifndef SIMULATOR_PENDANTBUTTON_H
#define SIMULATOR_PENDANTBUTTON_H

#include "pendix/hostui.h"

#include <QPixmap>
#include <QWidget>

namespace sim
{

/// One key beside the pendant's screen: a picture on its face and its text beneath; without a picture the text is on
/// the face. Calls its handler with true when it goes down and with false when it comes up, and never leaves a press
/// without its release: whatever ends the holding (the finger, the window that loses the focus, a dialog, hiding,
/// disabling, the end of the button) releases it. Mouse and keys (space, enter) hold it for as long as they are down;
/// whichever was first counts.
class PendantButton : public QWidget
{
    Q_OBJECT

public:
    explicit PendantButton(const pendix::PhysicalButton& record, QWidget* parent = nullptr);
    ~PendantButton() override;

    QString text() const { return m_record.text; }
    bool isDown() const { return m_heldBy != kNothing; }

    /// Releases it if it is held.
    void letGo();
    /// Lets go and forgets the handler, whose code may be about to go.
    void retire();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    static constexpr int kNothing = 0;
    static constexpr int kMouse = -1;

    void hold(int by);
    void callHandler(bool pressed) const;
    int scaled(int pixels) const;
    const QPixmap& picture() const;
    int wrapFlags() const;
    QRect textRect(int width) const;
    void paintFace(QPainter& painter, const QRect& face) const;

    pendix::PhysicalButton m_record;
    QPixmap m_pressed;
    QPixmap m_released;
    int m_heldBy = kNothing; ///< kMouse, or the key that holds it
};

} // namespace sim

#endif
