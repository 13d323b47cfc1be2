#include "widgets/headerwidgetview.h"

#include <QBoxLayout>
#include <QFrame>
#include <QPainter>
#include <QStyleOptionHeader>

#include <algorithm>

namespace
{

QBoxLayout* createBox(QBoxLayout::Direction direction)
{
    auto* box = new QBoxLayout(direction);
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(0);
    return box;
}

/// Which ends of the header a section touches; styles draw the outer edges differently.
QStyleOptionHeader::SectionPosition positionOf(int visualIndex, int count)
{
    if (count == 1) {
        return QStyleOptionHeader::OnlyOneSection;
    }
    if (visualIndex == 0) {
        return QStyleOptionHeader::Beginning;
    }
    return visualIndex == count - 1 ? QStyleOptionHeader::End : QStyleOptionHeader::Middle;
}

} // namespace

HeaderWidgetView::HeaderWidgetView(Qt::Orientation orientation, QWidget* parent) : QHeaderView(orientation, parent)
{
    connect(this, &QHeaderView::sectionResized, this, &HeaderWidgetView::layoutWidgets);
    setFrameShape(QFrame::NoFrame);
    setFrameShadow(QFrame::Plain);
    if (orientation == Qt::Horizontal) {
        setSectionResizeMode(QHeaderView::Stretch);
        setSectionsClickable(false);
    }
}

HeaderWidgetView::~HeaderWidgetView()
{
    clearSectionWidgets(true);
}

void HeaderWidgetView::setSectionWidget(int section, QWidget* widget, Qt::Alignment alignment)
{
    if (section < 0 || section >= count() || widget == nullptr) {
        return;
    }
    // The widget may be in this section already, or in another one.
    const int previous = sectionWidgets.key(widget, -1);
    if (previous >= 0) {
        removeSectionWidget(previous, false);
    }
    // Taken over before the section is cleared: the widget may be part of what it replaces.
    QWidget* host = createHost(widget, alignment);
    removeSectionWidget(section, true);
    sectionWidgets.insert(section, widget);
    sectionHosts.insert(section, host);
    connect(widget, &QObject::destroyed, this, &HeaderWidgetView::forget);
    connect(host, &QObject::destroyed, this, &HeaderWidgetView::forget);
    layoutWidgets();
    host->show();
    widget->show();
    viewport()->update();
}

void HeaderWidgetView::setSectionWidget(int section, QWidget* widget)
{
    setSectionWidget(section, widget, Qt::AlignCenter);
}

QWidget* HeaderWidgetView::createHost(QWidget* widget, Qt::Alignment alignment)
{
    auto* host = new QFrame(this);
    host->setAutoFillBackground(false);
    host->setAttribute(Qt::WA_TranslucentBackground);
    host->setFrameShape(QFrame::NoFrame);
    host->setContentsMargins(0, 0, 0, 0);

    const bool horizontal = orientation() == Qt::Horizontal;
    const bool atStart = alignment & (horizontal ? Qt::AlignLeft : Qt::AlignTop);
    const bool atEnd = !atStart && (alignment & (horizontal ? Qt::AlignRight : Qt::AlignBottom));

    QBoxLayout* along = createBox(horizontal ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
    if (!atStart) {
        along->addStretch();
    }
    along->addWidget(widget);
    if (!atEnd) {
        along->addStretch();
    }
    QBoxLayout* across = createBox(horizontal ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
    across->addStretch();
    across->addLayout(along);
    across->addStretch();
    host->setLayout(across);
    return host;
}

QWidget* HeaderWidgetView::sectionWidget(int section) const
{
    return sectionWidgets.value(section, nullptr);
}

void HeaderWidgetView::removeSectionWidget(int section, bool deleteWidget)
{
    QWidget* host = sectionHosts.take(section);
    QWidget* widget = sectionWidgets.take(section);
    if (host != nullptr && widget != nullptr) {
        release(host, widget, deleteWidget);
    }
    viewport()->update();
}

void HeaderWidgetView::clearSectionWidgets(bool deleteWidgets)
{
    QHash<int, QWidget*> hosts;
    QHash<int, QWidget*> widgets;
    hosts.swap(sectionHosts);
    widgets.swap(sectionWidgets);
    for (auto it = hosts.cbegin(); it != hosts.cend(); ++it) {
        release(it.value(), widgets.value(it.key(), nullptr), deleteWidgets);
    }
    viewport()->update();
}

/// Lets go of a container and its widget, which are no longer in the hashes.
void HeaderWidgetView::release(QWidget* host, QWidget* widget, bool deleteWidget)
{
    disconnect(host, &QObject::destroyed, this, &HeaderWidgetView::forget);
    if (widget != nullptr) {
        disconnect(widget, &QObject::destroyed, this, &HeaderWidgetView::forget);
        widget->hide();
        // A widget that was meanwhile put elsewhere still counts as the header's.
        widget->setParent(deleteWidget ? host : nullptr);
    }
    delete host;
}

/// A hosted widget or its container was deleted elsewhere; only its address is left of it.
void HeaderWidgetView::forget(QObject* gone)
{
    for (auto it = sectionHosts.begin(); it != sectionHosts.end(); ++it) {
        QWidget* host = it.value();
        QWidget* widget = sectionWidgets.value(it.key(), nullptr);
        if (gone != host && gone != widget) {
            continue;
        }
        sectionWidgets.remove(it.key());
        sectionHosts.erase(it);
        if (gone == host) {
            disconnect(widget, &QObject::destroyed, this, &HeaderWidgetView::forget);
        } else {
            disconnect(host, &QObject::destroyed, this, &HeaderWidgetView::forget);
            host->deleteLater(); // it may be what is deleting the widget
        }
        viewport()->update();
        return;
    }
}

QRect HeaderWidgetView::sectionRect(int section) const
{
    if (section < 0 || section >= count()) {
        return QRect();
    }
    const int position = sectionViewportPosition(section);
    const int size = sectionSize(section);
    return orientation() == Qt::Horizontal ? QRect(position, 0, size, height()) : QRect(0, position, width(), size);
}

void HeaderWidgetView::layoutWidgets()
{
    // This also runs while the header paints. Raising one container over the other each time would make every
    // paint ask for the next one, without end: only what lies below the header itself is raised.
    const QObjectList siblings = children();
    for (QObject* sibling : siblings) {
        if (sibling == viewport()) {
            break;
        }
        const auto isSibling = [sibling](const QWidget* host) { return host == sibling; };
        if (std::any_of(sectionHosts.cbegin(), sectionHosts.cend(), isSibling)) {
            static_cast<QWidget*>(sibling)->raise();
        }
    }
    const QList<int> sections = sectionHosts.keys(); // showing a widget may call back and change the hash
    for (const int section : sections) {
        placeHost(section);
    }
}

/// Brings one section's container to its section.
void HeaderWidgetView::placeHost(int section) const
{
    QWidget* host = sectionHosts.value(section, nullptr);
    if (host == nullptr) {
        return;
    }
    const QRect rect = sectionRect(section);
    if (!rect.isValid()) {
        // A hidden section has no width; its widget would lie over the neighbour.
        if (section < count()) {
            host->hide();
        }
        return;
    }
    host->setGeometry(rect);
    QWidget* widget = sectionWidgets.value(section, nullptr);
    if (widget->parentWidget() != host) {
        widget->setParent(host);
    }
    widget->show();
    host->show();
}

void HeaderWidgetView::resizeEvent(QResizeEvent* event)
{
    QHeaderView::resizeEvent(event);
    layoutWidgets();
}

void HeaderWidgetView::paintEvent(QPaintEvent* event)
{
    // Scrolling and moving sections report nothing, and a section that was scrolled out is not painted.
    layoutWidgets();
    QHeaderView::paintEvent(event);
}

void HeaderWidgetView::paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const
{
    const bool hosts = sectionHosts.contains(logicalIndex);
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.section = logicalIndex;
    option.position = positionOf(visualIndex(logicalIndex), count());
    option.state &= ~QStyle::State_HasFocus;
    option.rect = rect;
    option.textAlignment = Qt::AlignCenter;
    if (!hosts && model() != nullptr) {
        option.text = model()->headerData(logicalIndex, orientation(), Qt::DisplayRole).toString();
    }
    style()->drawControl(QStyle::CE_Header, &option, painter, this);
    placeHost(logicalIndex);
}
