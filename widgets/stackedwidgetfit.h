#ifndef WIDGETS_STACKEDWIDGETFIT_H
#define WIDGETS_STACKEDWIDGETFIT_H

#include <QStackedWidget>

/// A stack of pages that fits each page by its vertical size policy. A compact page (Fixed or Minimum) keeps the
/// height of its content and sits at the top; every other page expands over the whole stack. The surrounding
/// layout decides the stack's own size; a scroll area around it learns the height of the current page only.
class StackedWidgetFit : public QStackedWidget
{
    Q_OBJECT

public:
    explicit StackedWidgetFit(QWidget* parent = nullptr);

    QSize sizeHint() const override; ///< Always 0 x 0: the pages don't ask for room.

    /// Width 0; the height a compact current page needs at the stack's width if the stack is lower than that,
    /// else 0. Inside a resizable scroll area, or a compact page of another stack, a compact page's height is
    /// asked for at any height of the stack.
    QSize minimumSizeHint() const override;

    /// False for a compact page, even with wrapped text: minimumSizeHint() alone tells its height.
    bool hasHeightForWidth() const override;

    /// Fits the current page anew and passes its height upwards. To be called when a page's size policy or content
    /// was changed; a change of page, size or layout is noticed without.
    void refreshCurrentPageLayout();

    /// Lets the stack itself take any height.
    void applyStackVerticalPolicy();

    /// Fits the current page if it is compact, or if it is expanding; else nothing.
    void fitCurrentCompactPage();
    void fitCurrentExpandingPage();

    /// Makes the layouts above, up to the nearest scroll area, ask for their sizes again.
    void propagateGeometryUp();

public slots:
    void recomputeSize(); ///< The same as refreshCurrentPageLayout.

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
};

#endif
