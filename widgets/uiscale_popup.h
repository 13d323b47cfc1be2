#ifndef WIDGETS_UISCALE_POPUP_H
#define WIDGETS_UISCALE_POPUP_H

class QAbstractItemView;
class QComboBox;
class QWidget;

/// The lists that combo boxes open.
namespace UiScale
{

/// A popup list of at most maxVisible rows (10 if below 1) with uniform rows, scrolled row by row, with a vertical
/// scroll bar when needed and no horizontal one. Ignores null.
void configureComboBoxPopup(QComboBox* combo, int maxVisible);
void configureDetailComboBoxPopup(QComboBox* combo, const QWidget* w);   ///< 10 rows.
void adjustIoPageComboBoxPopup(QComboBox* combo, int maxVisible);        ///< The same as configureComboBoxPopup.
void installIoPageComboBoxPopupFilter(QComboBox* combo, int maxVisible); ///< The same as configureComboBoxPopup.

/// What configureComboBoxPopup does to the list itself: uniform rows and how it scrolls.
void configurePopupList(QAbstractItemView* list);

/// Cuts the popup to its rows, at most maxVisible (10 if below 1), each time it opens; some styles ignore
/// the combo box's own row limit. forceComboBoxPopupBelow also keeps the popup below the combo box. Each takes effect
/// once per combo box: a second call, or null, is ignored.
void forceComboBoxPopupBelow(QComboBox* combo, int maxVisible);
void limitComboBoxPopupHeight(QComboBox* combo, int maxVisible);

} // namespace UiScale

#endif
