#ifndef WIDGETS_ENABLEBUTTON_H
#define WIDGETS_ENABLEBUTTON_H

#include <QColor>
#include <QWidget>

class QPropertyAnimation;

/// The slide switch of every boolean setting: a track with a knob that slides from left (off, the initial
/// state) to right (on). A left press toggles it and reports; code sets it silently, so that pages can load
/// values without setting off their own handlers. 50 x 24 pixels unless its style text says otherwise. A switch that
/// can't be operated, because it or a parent is disabled, is drawn at half opacity.
class EnableButton : public QWidget
{
    Q_OBJECT

public:
    explicit EnableButton(QWidget* parent = nullptr);
    ~EnableButton() override;

    /// The switch's state. QWidget's isEnabled() (can it be operated?) is hidden by the state member of that name.
    bool getIsEnabled();

    /// Sets the state and slides the knob, without a signal. The state it already has is ignored, unless force
    /// replays the slide.
    void setIsEnabled(bool enabled, bool force);

    QSize sizeHint() const override;        ///< 50 x 24, whatever the style text says.
    QSize minimumSizeHint() const override; ///< 50 x 24, whatever the style text says.

    /// Reads the switch's own style keys from "key:value;key:value": padding-left, -top, -right and -bottom, width
    /// and height (pixels, "px" may follow; no number reads as 0), and enable- and disable- with
    /// background-color and front-color (#RRGGBB or #RRGGBBAA; a shorter text changes nothing, a pair that is not
    /// hexadecimal reads as 0). Keys must match exactly, blanks included; others are ignored. This is no
    /// Qt style sheet and does not repaint.
    void setStyleSheet(const QString& sheet);

signals:
    /// The operator toggled the switch; is_enable is the new state.
    void enabled(bool is_enable);

public slots:
    /// Places the knob for a step of its slide, 0 (start) to 25 (arrived), and repaints if need_update.
    void moveSlider(const QVariant& value, bool need_update = true);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    int innerWidth() const { return width() - paddingLeft - paddingRight; }
    int innerHeight() const { return height() - paddingTop - paddingBottom; }
    void paintSwitch(QPainter& painter) const;
    void applyStyle(const QString& key, const QString& value);

    QPropertyAnimation* animation;
    int sliderOffset;
    int lastWidth;
    bool isEnabled;
    QColor enableBackgroundColor;
    QColor disableBackgroundColor;
    QColor enableFrontColor;
    QColor disableFrontColor;
    int paddingLeft;
    int paddingTop;
    int paddingRight;
    int paddingBottom;
};

#endif
