#include "tests/interface/nodeforms.h"

#include "page/buttonmonitorpage/buttonmonitorpage.h"
#include "page/weldsettingfields.h"
#include "page/weldsettingpage.h"

#include <QGridLayout>
#include <QLabel>
#include <QSpinBox>

#include <algorithm>

namespace
{

/// The layout below this one that holds the widget itself; null when none does.
QLayout* layoutOf(QLayout* layout, QWidget* widget)
{
    if (layout->indexOf(widget) >= 0) {
        return layout;
    }
    for (int i = 0; i < layout->count(); ++i) {
        QLayout* below = layout->itemAt(i)->layout();
        if (QLayout* found = below != nullptr ? layoutOf(below, widget) : nullptr) {
            return found;
        }
    }
    return nullptr;
}

/// The labels in the widget's row of a grid, or in its line of widgets.
QVector<QLabel*> labelsBeside(QWidget* widget)
{
    QLayout* layout = layoutOf(widget->parentWidget()->layout(), widget);
    const auto* grid = qobject_cast<QGridLayout*>(layout);
    const auto rowOf = [grid, layout](QWidget* cell) {
        int row = 0;
        int column = 0;
        int rows = 0;
        int columns = 0;
        if (grid != nullptr) {
            grid->getItemPosition(layout->indexOf(cell), &row, &column, &rows, &columns);
        }
        return row;
    };
    QVector<QLabel*> labels;
    for (int i = 0; i < layout->count(); ++i) {
        auto* label = qobject_cast<QLabel*>(layout->itemAt(i)->widget());
        if (label != nullptr && rowOf(label) == rowOf(widget)) {
            labels.append(label);
        }
    }
    return labels;
}

NodeMember readMember(const QWidget& page, const FieldSpec& spec)
{
    NodeMember member;
    member.spec = spec;
    auto* widget = page.findChild<QWidget*>(QLatin1String(spec.widget));
    member.isHidden = widget->isHidden();
    for (const QLabel* label : labelsBeside(widget)) {
        const bool isUnit = label->property("type") == QLatin1String("unit");
        (isUnit ? member.unit : member.caption) = label->text();
    }
    if (const auto* number = qobject_cast<QSpinBox*>(widget)) {
        member.minimum = number->minimum();
        member.maximum = number->maximum();
    }
    return member;
}

template <typename Page, int N>
NodeForm readForm(const names::node::Node& node, const names::command::Command& save, const FieldSpec (&specs)[N])
{
    const Page page(nullptr);
    NodeForm form{&node, &save, {}};
    for (const FieldSpec& spec : specs) {
        form.members.append(readMember(page, spec));
    }
    return form;
}

} // namespace

QVector<NodeForm> nodeForms()
{
    return {readForm<WeldSettingPage>(names::node::kWeldSetting, names::command::kSetWeldSetting, kSettingFields)};
}

QVector<MonitorValue> monitorValues()
{
    ButtonMonitorPage monitor(nullptr);
    const QList<QDoubleSpinBox*> widgets = monitor.findChildren<QDoubleSpinBox*>();
    QVector<MonitorValue> values;
    for (const char* key : names::monitor::kAll) {
        // Which widget shows it, the dialog itself tells.
        monitor.onWelderStateChanged(QVariantMap{{key, 1.0}});
        const auto shown = std::find_if(widgets.begin(), widgets.end(),
                                        [](const QDoubleSpinBox* widget) { return widget->value() == 1.0; });
        if (shown == widgets.end()) {
            qFatal("the monitor does not show %s", key);
        }
        values.append({key, labelsBeside(*shown).last()->text(), (*shown)->minimum(), (*shown)->maximum()});
    }
    return values;
}
