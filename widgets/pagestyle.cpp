#include "widgets/pagestyle.h"

#include "widgets/uiscale.h"

#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLayout>
#include <QPushButton>
#include <QSpacerItem>
#include <QTabWidget>

namespace
{

/// %1 height, %2 corner radius, %3 right padding, %4 height fragment, %5 drop-down width.
constexpr char kComboBoxSheet[] =
    R"(QComboBox{background:#ffffff;color:#202020;border:2px solid #E4E4E4;border-radius:%2px;padding:0px %3px 0px 6px;combobox-popup:0;font:400 9pt "Microsoft YaHei UI";%4})"
    R"(QComboBox::drop-down{subcontrol-origin:padding;subcontrol-position:top right;width:%5px;border:none;})"
    R"(QComboBox::down-arrow{image:url(:/Corvane/png/arrow/down_arrow_white.png);padding:5px;})"
    R"(QComboBox:disabled{background:#f5f5f5;color:#A3A4A4;border:2px solid #E4E4E4;})"
    R"(QComboBox:focus{outline:none;})"
    R"(QComboBox QAbstractItemView{background:#ffffff;border:2px solid #E4E4E4;outline:0;selection-background-color:#007cf9;selection-color:#ffffff;})"
    R"(QComboBox QAbstractItemView::item{min-height:%1px;padding:2px 8px;})"
    R"(QComboBox QAbstractItemView::item:selected{background:#007cf9;color:#ffffff;})";

/// %1 combo-box sheet, %2 row height.
constexpr char kPanelFrameSheet[] =
    R"(QFrame{border:1px solid #c8c8c8;border-radius:8px;})"
    R"(QFrame QLabel[type="title"]{border:none;font:600 10pt "Microsoft YaHei UI";})"
    R"(QFrame QLabel{border:none;font:400 10pt "Microsoft YaHei UI";})"
    R"(%1)"
    R"(QFrame QSpinBox,QFrame QDoubleSpinBox{font:400 10pt "Microsoft YaHei UI";min-height:%2px;border:1px solid #c8c8c8;border-radius:4px;padding:2px 4px;})"
    R"(QFrame QSpinBox::up-button,QFrame QSpinBox::down-button,QFrame QDoubleSpinBox::up-button,QFrame QDoubleSpinBox::down-button{width:10px;border:none;})";

/// %1 margin above the frame, %2 padding below the title.
constexpr char kGroupBoxSheet[] =
    R"(QGroupBox{margin-top:%1px;margin-bottom:4px;padding-top:%2px;font:600 10pt "Segoe UI";border-width:1px;border-style:solid;border-radius:8px;border-color:gray;})"
    R"(QGroupBox::title{subcontrol-origin:margin;subcontrol-position:top left;left:8px;margin-left:0;margin-bottom:4px;padding:2px 8px 3px 8px;})";

constexpr char kDetailTabSheet[] =
    R"(QTabWidget::pane{border:1px solid #d0d0d0;border-radius:8px;background:#ffffff;margin-top:4px;})"
    R"(QTabBar::tab{background:#d3dce6;color:#374860;border-bottom:none;border-top-left-radius:6px;border-top-right-radius:6px;padding:6px 12px;margin-right:1px;min-width:120px;min-height:32px;font:400 10pt "Microsoft YaHei UI";})"
    R"(QTabBar::tab:selected{background:#224d75;color:white;})";

constexpr int kPanelFontPoints = 10;

/// Above and below the text of a button together, in pixels: Chinese characters stand higher than a line of the font.
constexpr int kButtonMargin = 20;
constexpr int kLowCombo = 31; ///< the greatest height, in pixels, of a combo box with the narrow arrow

/// Corner radius and arrow width of a combo box, in pixels.
struct ComboShape {
    int radius;
    int arrowWidth;
};

ComboShape lowComboShape(const QWidget* w)
{
    return {qMax(UiScale::pxLayout(6, w), 4), qMax(UiScale::pxLayout(22, w), 18)};
}

ComboShape highComboShape(const QWidget* w)
{
    const int arrowWidth = UiScale::pxLayout(30, w);
    return {qMax(UiScale::pxLayout(10, w), 8), arrowWidth < 25 ? 24 : arrowWidth};
}

int panelTextHeight(const QWidget* w)
{
    return UiScale::lineHeight(UiScale::contentFont(w, kPanelFontPoints));
}

} // namespace

void setStyleSheetOnce(QWidget* widget, const QString& sheet)
{
    if (widget != nullptr && widget->styleSheet() != sheet) {
        widget->setStyleSheet(sheet);
    }
}

QString tarvoComboBoxStyleSheet(const QWidget* w, int height, int radius, int arrowWidth, bool fixedHeight)
{
    if (radius < 1) {
        radius = qMax(UiScale::pxLayout(10, w), 8);
    }
    if (arrowWidth < 1) {
        arrowWidth = qMax(UiScale::pxLayout(30, w), 24);
    }
    const QString heightFragment = fixedHeight ? QStringLiteral("min-height:%1px;max-height:%1px;").arg(height)
                                               : QStringLiteral("min-height:%1px;").arg(height);
    return QString::fromLatin1(kComboBoxSheet)
        .arg(QString::number(height), QString::number(radius), QString::number(arrowWidth + 2), heightFragment,
             QString::number(arrowWidth));
}

QString ioPageComboBoxStyleSheet(const QWidget* w, int height)
{
    const ComboShape shape = height > kLowCombo ? highComboShape(w) : lowComboShape(w);
    return tarvoComboBoxStyleSheet(w, height, shape.radius, shape.arrowWidth, true);
}

void applyIoPageComboBoxStyle(QComboBox* combo, int maxVisible, int height)
{
    if (combo == nullptr) {
        return;
    }
    if (height < 1) {
        height = qMax(panelTextHeight(combo) + UiScale::pxLayout(2, combo), 20);
    }
    setStyleSheetOnce(combo, UiScale::scaleStylesheet(ioPageComboBoxStyleSheet(combo, height), combo));
    UiScale::configureComboBoxPopup(combo, maxVisible);
}

void setGroupBoxDetailCompactStyle(QGroupBox* box)
{
    if (box == nullptr) {
        return;
    }
    const QFont titleFont(QString::fromLatin1("Segoe UI"), UiScale::adjustedPointSize(kPanelFontPoints, box),
                          QFont::DemiBold);
    const int textHeight = UiScale::lineHeight(titleFont);
    const int margin = qMax(textHeight / 2 + UiScale::pxLayout(2, box), UiScale::pxLayout(8, box));
    const int padding = textHeight + UiScale::pxLayout(10, box);
    const QString sheet = QString::fromLatin1(kGroupBoxSheet).arg(QString::number(margin), QString::number(padding));
    setStyleSheetOnce(box, UiScale::scaleStylesheet(sheet, box));
}

QString detailTabStyleSheet()
{
    return QString::fromLatin1(kDetailTabSheet);
}

void setDetailTabStyle(QTabWidget* tabs)
{
    setStyleSheetOnce(tabs, UiScale::scaleStylesheet(detailTabStyleSheet(), tabs));
}

void setPageButtonStyle(QPushButton* button)
{
    if (button == nullptr) {
        return;
    }
    const QFont font = UiScale::contentFont(button, kPanelFontPoints);
    button->setFont(font);
    button->setMinimumHeight(UiScale::lineHeight(font) + kButtonMargin);
}

void setPanelFrameStyle(QFrame* frame)
{
    if (frame == nullptr) {
        return;
    }
    const int rowHeight = qMax(panelTextHeight(frame) + UiScale::pxLayout(4, frame), 22);
    const ComboShape shape = lowComboShape(frame);
    const QString comboSheet = tarvoComboBoxStyleSheet(frame, rowHeight, shape.radius, shape.arrowWidth, true);
    const QString sheet = QString::fromLatin1(kPanelFrameSheet).arg(comboSheet, QString::number(rowHeight));
    setStyleSheetOnce(frame, UiScale::scaleStylesheet(sheet, frame));
}

void tightenLayoutHorizontalSpacers(QLayout* layout)
{
    if (layout == nullptr) {
        return;
    }
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem* item = layout->itemAt(i);
        if (QSpacerItem* spacer = item->spacerItem()) {
            spacer->changeSize(0, spacer->sizeHint().height(), QSizePolicy::Expanding, QSizePolicy::Minimum);
        } else {
            tightenLayoutHorizontalSpacers(item->layout());
        }
    }
    layout->invalidate(); // a layout doesn't notice that a spacer changed
}

void tightenPageHorizontalSpacers(QWidget* page)
{
    if (page == nullptr) {
        return;
    }
    tightenLayoutHorizontalSpacers(page->layout());
    for (QWidget* child : page->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        tightenPageHorizontalSpacers(child);
    }
}

void collapseVerticalSpacers(QLayout* layout)
{
    if (layout == nullptr) {
        return;
    }
    for (int i = 0; i < layout->count(); ++i) {
        QLayoutItem* item = layout->itemAt(i);
        if (QSpacerItem* spacer = item->spacerItem()) {
            if (spacer->expandingDirections().testFlag(Qt::Vertical)) {
                spacer->changeSize(0, 0, QSizePolicy::Minimum, QSizePolicy::Fixed);
            }
        } else {
            collapseVerticalSpacers(item->layout());
        }
    }
    layout->invalidate();
}
