#ifndef PAGE_CURVES_CURVETAB_H
#define PAGE_CURVES_CURVETAB_H

#include "page/curves/curvespecs.h"

/// Design sizes of the texts on the page and of the tick labels, in points.
constexpr int kContentFontPoints = 10;
constexpr int kTickFontPoints = 9;

class CustomChart;
class ListComboBox;
class QPushButton;
class QTableWidget;
class QTabWidget;
class QWidget;

/// One tab of the page: a curve and the widgets that show it, which belong to the tab.
struct CurveTab {
    const CurveSpec* curve = nullptr;
    QWidget* page = nullptr;
    ListComboBox* nodeCount = nullptr; ///< entry 0 is kFewestNodes
    QTableWidget* table = nullptr;
    CustomChart* chart = nullptr;
    QPushButton* computeButton = nullptr;
    QPushButton* cancelButton = nullptr;
    QPushButton* saveButton = nullptr;

    /// Enables what can be seen and edited; a curve whose output is not in use is closed as a whole.
    void setAccess(bool isInUse, bool isEditable) const;

    /// Font of the header, row heights in pixels, and column widths for the screen as it is now.
    void fitTo(int rowHeight) const;
};

/// Gives a chart the font in which its tick labels have room. The charts of the tabs do that whenever they are resized;
/// who changes their range, or the screen, has it done.
void fitTickFont(CustomChart* chart);

/// Builds a curve's tab, without nodes, at the end of a tab widget.
CurveTab addCurveTab(QTabWidget* tabs, const CurveSpec& curve);

#endif
