#ifndef WIDGETS_HEADERWIDGETVIEW_H
#define WIDGETS_HEADERWIDGETVIEW_H

#include <QHash>
#include <QHeaderView>

/// A table header that can hold a widget, such as a switch, in any section and keeps it aligned with its
/// section. A section that holds a widget shows no caption.
///
/// The view owns the widgets placed in it until they are removed. A widget that is deleted elsewhere leaves
/// its section empty.
class HeaderWidgetView : public QHeaderView
{
    Q_OBJECT

public:
    /// The sections of a horizontal header share its width and can't be clicked.
    explicit HeaderWidgetView(Qt::Orientation orientation, QWidget* parent = nullptr);
    ~HeaderWidgetView() override;

    /// Places a widget in a section and destroys the section's earlier one; a widget that is already in this header
    /// moves. The alignment counts along the header: left or right, on a vertical header top or bottom (the
    /// first of the pair wins if both are given), else centred. Ignores null and sections that don't exist.
    void setSectionWidget(int section, QWidget* widget, Qt::Alignment alignment);
    void setSectionWidget(int section, QWidget* widget); ///< Centred.

    /// The widget placed in a section, or null.
    QWidget* sectionWidget(int section) const;

    /// Takes the widget out of a section: destroyed, or hidden and handed to the caller without a parent. It is
    /// destroyed at once: a slot of the widget's own signal must queue this call.
    void removeSectionWidget(int section, bool deleteWidget);

    /// The same for all sections.
    void clearSectionWidgets(bool deleteWidgets);

    /// The rectangle of a section over the full breadth of the header; null if the section doesn't exist.
    QRect sectionRect(int section) const;

    /// Brings every widget to its section.
    void layoutWidgets();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;

private:
    QWidget* createHost(QWidget* widget, Qt::Alignment alignment);
    void placeHost(int section) const;
    void release(QWidget* host, QWidget* widget, bool deleteWidget);
    void forget(QObject* gone);

    QHash<int, QWidget*> sectionHosts;   // section -> the frame that holds its widget, a child of the view
    QHash<int, QWidget*> sectionWidgets; // section -> the widget, a child of that frame
};

#endif
