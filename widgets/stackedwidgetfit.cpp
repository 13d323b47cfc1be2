#include "widgets/stackedwidgetfit.h"

#include <QEvent>
#include <QLayout>
#include <QResizeEvent>
#include <QScrollArea>

namespace
{

bool isCompact(const QWidget* page)
{
    if (page == nullptr) {
        return false;
    }
    const QSizePolicy::Policy policy = page->sizePolicy().verticalPolicy();
    return policy == QSizePolicy::Fixed || policy == QSizePolicy::Minimum;
}

/// The minimum height of a page without height-for-width. The page is laid out at height 0 for it, because the
/// hints of what it holds (such as another stack) may depend on their current height.
int minimumLayoutHeight(QWidget* page, int width)
{
    QLayout* layout = page->layout();
    if (layout == nullptr) {
        return 0;
    }
    const QSize previous = page->size();
    page->resize(width, 0);
    layout->activate();
    const int height = layout->totalMinimumSize().height();
    if (previous.isValid()) {
        page->resize(previous);
    }
    return height;
}

/// The height in pixels that a page's content needs at a width; 0 for null or for a page without layout.
int contentHeight(QWidget* page, int width)
{
    if (page == nullptr) {
        return 0;
    }
    page->ensurePolished();
    width = qMax(width, 1);
    int height = page->hasHeightForWidth() ? page->heightForWidth(width) : 0;
    // A layout without height-for-width answers -1 plus the page's margins, which is no height.
    if (height <= 0 && page->layout() != nullptr && page->layout()->hasHeightForWidth()) {
        height = page->layout()->totalHeightForWidth(width);
    }
    return height > 0 ? height : minimumLayoutHeight(page, width);
}

/// True if something above sizes the stack by nothing but its minimum: a resizable scroll area, or a compact page
/// of another stack. An answer that changed with the size it leads to would be asked for again without end.
bool isSizedByMinimum(const QWidget* stack)
{
    for (const QWidget* widget = stack; widget->parentWidget() != nullptr; widget = widget->parentWidget()) {
        const QWidget* parent = widget->parentWidget();
        const auto* area = qobject_cast<const QScrollArea*>(parent->parentWidget());
        if (area != nullptr && area->widgetResizable() && area->viewport() == parent) {
            return true;
        }
        if (qobject_cast<const StackedWidgetFit*>(parent) != nullptr && isCompact(widget)) {
            return true;
        }
    }
    return false;
}

} // namespace

StackedWidgetFit::StackedWidgetFit(QWidget* parent) : QStackedWidget(parent)
{
    // As a window the stack would otherwise be kept at the minimum of its pages.
    layout()->setSizeConstraint(QLayout::SetNoConstraint);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(this, &QStackedWidget::currentChanged, this, &StackedWidgetFit::recomputeSize);
}

QSize StackedWidgetFit::sizeHint() const
{
    return QSize(0, 0);
}

QSize StackedWidgetFit::minimumSizeHint() const
{
    QWidget* page = currentWidget();
    if (!isCompact(page)) {
        return QSize(0, 0);
    }
    const int needed = contentHeight(page, width());
    return needed > height() || isSizedByMinimum(this) ? QSize(0, needed) : QSize(0, 0);
}

bool StackedWidgetFit::hasHeightForWidth() const
{
    // The layout would answer for all pages, hidden ones included.
    return false;
}

void StackedWidgetFit::refreshCurrentPageLayout()
{
    applyStackVerticalPolicy();
    if (isCompact(currentWidget())) {
        updateGeometry();
        fitCurrentCompactPage();
        propagateGeometryUp();
    } else {
        fitCurrentExpandingPage();
        updateGeometry();
    }
}

void StackedWidgetFit::applyStackVerticalPolicy()
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumHeight(0);
    setMaximumHeight(QWIDGETSIZE_MAX);
}

void StackedWidgetFit::fitCurrentCompactPage()
{
    QWidget* page = currentWidget();
    if (!isCompact(page)) {
        return;
    }
    const int pageWidth = qMax(width(), 1);
    const int needed = contentHeight(page, pageWidth);
    if (needed > 0) {
        page->setGeometry(0, 0, pageWidth, qMin(qMax(height(), 1), needed));
    }
}

void StackedWidgetFit::fitCurrentExpandingPage()
{
    QWidget* page = currentWidget();
    if (page != nullptr && !isCompact(page)) {
        page->setGeometry(0, 0, width(), height());
    }
}

void StackedWidgetFit::propagateGeometryUp()
{
    for (QWidget* ancestor = parentWidget(); ancestor != nullptr; ancestor = ancestor->parentWidget()) {
        ancestor->updateGeometry();
        if (qobject_cast<QScrollArea*>(ancestor) != nullptr) {
            return;
        }
    }
}

void StackedWidgetFit::recomputeSize()
{
    refreshCurrentPageLayout();
}

void StackedWidgetFit::resizeEvent(QResizeEvent* event)
{
    QStackedWidget::resizeEvent(event);
    if (!isCompact(currentWidget())) {
        fitCurrentExpandingPage();
        return;
    }
    fitCurrentCompactPage();
    // Only what may ask for more room is passed on. A page that fits now may fit because room was just made for
    // it; taking the demand back at once would lose that room to a neighbour, and so on without end.
    // A page is never laid out narrower than 1 pixel, so widths below are no change.
    const bool widthChanged = qMax(event->oldSize().width(), 1) != qMax(width(), 1);
    const bool asksForRoom = !isSizedByMinimum(this) && minimumSizeHint().height() > 0;
    if (widthChanged || asksForRoom) {
        updateGeometry();
    }
}

bool StackedWidgetFit::event(QEvent* event)
{
    const bool handled = QStackedWidget::event(event);
    if (event->type() == QEvent::LayoutRequest) {
        fitCurrentCompactPage(); // the stack's own layout has just stretched it
    }
    return handled;
}
