#ifndef WIDGETS_PAGESTYLE_H
#define WIDGETS_PAGESTYLE_H

#include <QString>

class QComboBox;
class QFrame;
class QGroupBox;
class QLayout;
class QPushButton;
class QTabWidget;
class QWidget;

/// The style sheets the configuration pages share, and clean-up for their designer layouts. Sheets set on a
/// widget here are damped for its screen (UiScale::scaleStylesheet); sheets handed out are not, so that each is
/// damped exactly once, when it is complete.

/// Sets a style sheet unless the widget has it already: even an unchanged sheet restyles every descendant,
/// which is the dearest thing on the pendant. Ignores null.
void setStyleSheetOnce(QWidget* widget, const QString& sheet);

/// The sheet of all combo boxes and their popups, undamped. Pixels: height of the box (the least, or with
/// fixedHeight the only one) and of a popup item; corner radius (10 if below 1); width of the drop-down
/// arrow (30 if below 1).
QString tarvoComboBoxStyleSheet(const QWidget* w, int height, int radius, int arrowWidth, bool fixedHeight);

/// That sheet with a fixed height in pixels, the wider arrow and the rounder corners from a height of 32 on.
QString ioPageComboBoxStyleSheet(const QWidget* w, int height);

/// Gives a combo box that sheet (with a height below 1: that of one line of text) and a popup of at most maxVisible
/// rows (10 if below 1). Ignores null.
void applyIoPageComboBoxStyle(QComboBox* combo, int maxVisible, int height);

/// The dense group box of the welding-parameter form, with its title on the frame. Ignores null.
void setGroupBoxDetailCompactStyle(QGroupBox* box);

/// The sheet of the tabs of a configuration page, undamped.
QString detailTabStyleSheet();

/// Gives the tabs of the welding-parameter form that sheet. Ignores null.
void setDetailTabStyle(QTabWidget* tabs);

/// The font and the least height of the buttons below a configuration page. Ignores null.
void setPageButtonStyle(QPushButton* button);

/// The rounded panel around a group of settings, with its labels, spin boxes and combo boxes. Ignores null.
void setPanelFrameStyle(QFrame* frame);

/// Gives the spacers of a layout and of its nested layouts no width of their own, so that a row takes all
/// the room its fields leave; their height hints stay. Ignores null.
void tightenLayoutHorizontalSpacers(QLayout* layout);

/// The same for a page and everything in it. Ignores null.
void tightenPageHorizontalSpacers(QWidget* page);

/// Takes all room from the spacers of a layout and of its nested layouts that grow in height. Ignores null.
void collapseVerticalSpacers(QLayout* layout);

#endif
