#ifndef WIDGETS_STYLEKEY_H
#define WIDGETS_STYLEKEY_H

#include <QLocale>

class QWidget;

/// What sheets, fonts and measured widths of a page depend on. While it stays the same, styling the page again would
/// change nothing, at a price: even an unchanged font lays out every list again.
struct StyleKey {
    double dpi = 0;      ///< of the screen; 0: never styled
    double fontZoom = 0; ///< of the host, as it takes effect
    QLocale language;    ///< of the page: texts and digits differ in width

    bool operator==(const StyleKey& other) const;
    bool operator!=(const StyleKey& other) const { return !(*this == other); }
};

/// The key for a page as it stands now. Asks the host for its font zoom.
StyleKey styleKeyOf(const QWidget* page);

/// Remembers for which key a page was styled, in two steps: sheets and fonts, then sizes. Sizes wait until the page is
/// on the screen: measuring polishes every widget, and a sheet that takes effect overrules sizes set before.
class StyleSteps
{
public:
    /// Whether sheets and fonts must be set; they count as set from now on, and the sizes as due.
    bool sheetsAreDue(const QWidget* page);

    /// Whether sizes must be measured and set; they count as set from now on. Never for a page that is not shown.
    bool sizesAreDue(const QWidget* page);

private:
    StyleKey m_styled;
    bool m_sized = false;
};

#endif
