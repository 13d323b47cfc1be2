#ifndef WIDGETS_UISCALE_H
#define WIDGETS_UISCALE_H

#include "widgets/uiscale_detail.h" // IWYU pragma: export
#include "widgets/uiscale_popup.h"  // IWYU pragma: export

#include <QFont>
#include <QString>

class QComboBox;
class QWidget;

/// Fits the pages, designed at 96 dots per inch, to the pendant's screen. On a denser screen Qt enlarges
/// point sizes by itself; these functions take half of that growth back, apply the host's font zoom to pixel
/// sizes that have to hold text, and leave layout pixels alone.
///
/// Everything is stateless and belongs to the GUI thread. A `w` only tells the screen: the first of the widget
/// and its parents that has a window on a screen decides, else (also for null) the primary screen. The
/// host's font zoom is asked for in every call that needs it.
namespace UiScale
{

/// Logical dots per inch of the screen that w is on; 96 without a screen.
double screenDpi(const QWidget* w);

/// Factor for point sizes: 1.0 up to 96 dpi, 0.75 at 192 dpi, never above 1.0.
double contentScaleRatio(const QWidget* w);

/// Factor for pixel sizes that hold text: the damped density scale times the host's font zoom. A zoom outside
/// 0.75 to 3.0, or one that is no number, counts as 1.0.
double fontFactor(const QWidget* w);
double factor(const QWidget* w); ///< The same value as fontFactor.

/// Factor for layout pixels: always 1.0.
double layoutFactor(const QWidget* w);

/// Layout pixels: value itself, at least 1.
int px(int value, const QWidget* w);
int pxLayout(int value, const QWidget* w); ///< The same value as px.

/// value times fontFactor in pixels, halves rounded up, at least 1.
int pxFont(int value, const QWidget* w);

/// Damped point size, at least 1; points below 1 ("not set") come back unchanged.
int adjustedPointSize(int points, const QWidget* w);

/// The font of all page content at a design size in points. The size is damped here: don't damp it before.
QFont contentFont(const QWidget* w, int points);

/// Height in pixels of one line of text; what all row heights are made of.
int lineHeight(const QFont& font);

/// Row heights in pixels: of tables, of forms, and of the dense welding-parameter form (20 to 26).
int tableRowHeight(const QWidget* w);
int formRowHeight(const QWidget* w);
int detailFormRowHeight(const QWidget* w);

/// Width in pixels at which a combo box shows its widest item, or its current text when no item has a
/// width, beside the drop-down arrow; 80 for null. Measures every item.
int comboMinWidthForItems(const QComboBox* combo, const QWidget* w);

/// The sheet with all point sizes and the pixel sizes of `font-size` damped by contentScaleRatio, each at
/// least 1; borders, paddings and widths stay. Not idempotent: damp a sheet once, when it is complete.
QString scaleStylesheet(const QString& sheet, const QWidget* w);

/// Lets a page grow in both directions; ignores null.
void applyExpandingPage(QWidget* page);

/// Gives all spin boxes and combo boxes below root the content font; ignores null and points below 1. Who has it
/// keeps it: setting it once more would lay out every list again.
void applyContentFonts(QWidget* root, int points);

} // namespace UiScale

#endif
