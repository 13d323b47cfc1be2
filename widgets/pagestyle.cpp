#include "widgets/pagestyle.h"

#include "widgets/uiscale.h"

#include <QFrame>
#include <QLayout>
#include <QSpacerItem>

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

constexpr int kPanelFontPoints = 10;

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

void setPanelFrameStyle(QFrame* frame)
{
    if (frame == nullptr) {
        return;
    }
    const int textHeight = UiScale::lineHeight(UiScale::contentFont(frame, kPanelFontPoints));
    const int rowHeight = qMax(textHeight + UiScale::pxLayout(4, frame), 22);
    const int radius = qMax(UiScale::pxLayout(6, frame), 4);
    const int arrowWidth = qMax(UiScale::pxLayout(22, frame), 18);
    const QString comboSheet = tarvoComboBoxStyleSheet(frame, rowHeight, radius, arrowWidth, true);
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
