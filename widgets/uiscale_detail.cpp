#include "widgets/uiscale_detail.h"

#include "widgets/uiscale.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSet>

#include <cstring>

namespace UiScale
{

namespace
{

/// True for what the dense rules leave alone: what lies in the page's header, which lays itself out.
bool isInHeader(const QWidget* parent)
{
    for (const QWidget* widget = parent; widget != nullptr; widget = widget->parentWidget()) {
        if (widget->objectName() == QLatin1String("frame_config_header")) {
            return true;
        }
    }
    return false;
}

/// Calls rule for every T below page that is not part of the header.
template <typename T, typename Rule>
void forEachBodyWidget(const QWidget* page, Rule rule)
{
    for (T* widget : page->findChildren<T*>()) {
        if (!isInHeader(widget->parentWidget())) {
            rule(widget);
        }
    }
}

void limitToRow(QWidget* widget, int rowHeight)
{
    widget->setMinimumHeight(0);
    widget->setMaximumHeight(rowHeight);
}

void compactLabel(QLabel* label, int rowHeight)
{
    label->setWordWrap(false);
    label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label->setMaximumHeight(rowHeight);
    if (label->property("type").toString() == QLatin1String("unit")) {
        label->setMinimumHeight(0);
    } else {
        label->setMinimumSize(0, 0);
        label->setMaximumWidth(QWIDGETSIZE_MAX);
    }
}

/// Spin boxes and combo boxes hold line edits of their own, which must fit their owner, not the form.
bool isInnerEditor(const QLineEdit* edit)
{
    const QWidget* owner = edit->parentWidget();
    return qobject_cast<const QAbstractSpinBox*>(owner) != nullptr || qobject_cast<const QComboBox*>(owner) != nullptr;
}

void compactLineEdit(QLineEdit* edit, int rowHeight, int minimumWidth)
{
    if (isInnerEditor(edit)) {
        return;
    }
    edit->setMinimumWidth(minimumWidth);
    limitToRow(edit, rowHeight);
    edit->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void compactFrame(QFrame* frame)
{
    // Labels, tables and stacks are frames as well; meant are only the form's own panels.
    if (std::strcmp(frame->metaObject()->className(), "QFrame") != 0) {
        return;
    }
    static const QSet<QString> wideFrames = {
        QStringLiteral("frame"),    QStringLiteral("frame_16"), QStringLiteral("frame_2"),  QStringLiteral("frame_3"),
        QStringLiteral("frame_17"), QStringLiteral("frame_19"), QStringLiteral("frame_20"),
    };
    constexpr int kHeightLimitKept = 400; // a panel with a limit from here on is meant to be that tall
    if (frame->maximumHeight() >= 1 && frame->maximumHeight() < kHeightLimitKept) {
        frame->setMaximumHeight(QWIDGETSIZE_MAX);
    }
    const bool wide = wideFrames.contains(frame->objectName());
    frame->setSizePolicy(wide ? QSizePolicy::Expanding : QSizePolicy::Minimum, QSizePolicy::Minimum);
}

} // namespace

void applyWeldParamDetailPage(QWidget* page, const QWidget* w)
{
    if (page == nullptr) {
        return;
    }
    applyExpandingPage(page);
    const int rowHeight = detailFormRowHeight(w);
    const int editWidth = pxLayout(140, w);

    forEachBodyWidget<QLabel>(page, [=](QLabel* label) { compactLabel(label, rowHeight); });
    forEachBodyWidget<QAbstractSpinBox>(page, [=](QAbstractSpinBox* box) { limitToRow(box, rowHeight); });
    forEachBodyWidget<QComboBox>(page, [=](QComboBox* box) { limitToRow(box, rowHeight); });
    forEachBodyWidget<QLineEdit>(page, [=](QLineEdit* edit) { compactLineEdit(edit, rowHeight, editWidth); });
    forEachBodyWidget<QGroupBox>(
        page, [](QGroupBox* box) { box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Minimum); });
    forEachBodyWidget<QFrame>(page, compactFrame);

    for (QGridLayout* grid : page->findChildren<QGridLayout*>()) {
        if (!isInHeader(grid->parentWidget())) {
            grid->setVerticalSpacing(pxLayout(4, w));
            grid->setHorizontalSpacing(pxLayout(6, w));
        }
    }
}

} // namespace UiScale
