#include "docs/generator/nodeforms.h"

#include "docs/generator/curveform.h"
#include "docs/generator/ioform.h"
#include "page/buttonmonitorpage/buttonmonitorpage.h"
#include "page/characteristicscurvepage.h"
#include "page/weldiopage.h"
#include "page/weldsettingfields.h"
#include "page/weldsettingpage.h"

#include <QGridLayout>
#include <QJsonArray>
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

/// What the form says of a widget, whatever it is bound to.
NodeMember memberOf(const QWidget& page, const char* widgetName)
{
    NodeMember member;
    member.widget = QLatin1String(widgetName);
    auto* widget = page.findChild<QWidget*>(member.widget);
    member.isHidden = widget->isHidden();
    for (const QLabel* label : labelsBeside(widget)) {
        const bool isUnit = label->property("type") == QLatin1String("unit");
        (isUnit ? member.unit : member.caption) = label->text();
    }
    return member;
}

QString described(const NodeMember& member)
{
    return member.unit.isEmpty() ? member.caption : member.caption + QStringLiteral(", ") + member.unit;
}

void addNumber(const QWidget& page, bool isTruncated, NodeMember* member)
{
    const auto* number = page.findChild<QSpinBox*>(member->widget);
    member->type = isTruncated ? QStringLiteral("number, its fraction is cut off") : QStringLiteral("whole number");
    member->range = QStringLiteral("%1 to %2").arg(number->minimum()).arg(number->maximum());
    member->whenMissing = QString::number(qBound(number->minimum(), 0, number->maximum()));
    member->sent = {{"type", "integer"}, {"minimum", number->minimum()}, {"maximum", number->maximum()}};
    member->published = member->sent;
}

/// The one place that knows the rows of the forms.
NodeMember memberOf(const QWidget& page, const FieldSpec& spec)
{
    NodeMember member = memberOf(page, spec.widget);
    member.key = QLatin1String(spec.key);
    switch (spec.read) {
    case Read::Integer:
    case Read::Truncated:
        addNumber(page, spec.read == Read::Truncated, &member);
        break;
    case Read::Bool:
        member.type = QStringLiteral("boolean");
        member.whenMissing = QStringLiteral("false");
        member.sent = {{"type", "boolean"}};
        member.published = member.sent;
        break;
    case Read::Text:
        member.type = QStringLiteral("text");
        member.whenMissing = QStringLiteral("empty");
        member.sent = {{"type", "string"}};
        member.published = member.sent;
        break;
    case Read::Choice:
        member.type = QStringLiteral("whole number, an entry of the list");
        member.range = QStringLiteral("0 to %1").arg(spec.entries - 1);
        member.whenMissing = QString::number(taken(spec, QJsonValue::Undefined).toInt());
        member.sent = {{"type", "integer"}, {"minimum", 0}, {"maximum", spec.entries - 1}};
        member.published = member.sent;
        break;
    case Read::Fixed:
        member.isRead = false;
        member.type = QStringLiteral("not read");
        member.range = QStringLiteral("always sent as %1").arg(spec.standard);
        member.sent = {{"const", spec.standard}};
        break;
    }
    const QString words = described(member);
    member.sent.insert(QStringLiteral("description"), words);
    member.published.insert(QStringLiteral("description"),
                            member.isRead ? words : words + QStringLiteral("; not read"));
    return member;
}

template <int N>
QVector<NodeMember> membersOf(const QWidget& page, const FieldSpec (&specs)[N])
{
    QVector<NodeMember> members;
    for (const FieldSpec& spec : specs) {
        members.append(memberOf(page, spec));
    }
    return members;
}

enum class Direction { Published, Sent };

QJsonObject objectSchema(const QVector<NodeMember>& members, Direction direction)
{
    const bool isSent = direction == Direction::Sent;
    QJsonObject properties;
    QJsonArray required;
    for (const NodeMember& member : members) {
        properties.insert(member.key, isSent ? member.sent : member.published);
        if (isSent || member.isRead) {
            required.append(member.key);
        }
    }
    return {{"type", "object"}, {"properties", properties}, {"required", required}, {"additionalProperties", !isSent}};
}

/// A node that one command saves as a whole.
NodeForm flatNode(const names::node::Node& node, const names::command::Command& save,
                  const QVector<NodeMember>& members)
{
    return {&node,
            members,
            objectSchema(members, Direction::Published),
            {{save.name, objectSchema(members, Direction::Sent)}}};
}

} // namespace

QVector<NodeForm> nodeForms()
{
    const WeldSettingPage setting(nullptr);
    const WeldioPage io(nullptr, nullptr);
    const CharacteristicsCurvePage curves(nullptr, nullptr);
    return {flatNode(names::node::kWeldSetting, names::command::kSetWeldSetting, membersOf(setting, kSettingFields)),
            flatNode(names::node::kWeldIo, names::command::kSetWeldIo, ioMembers(io)), curveNode(curves)};
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
