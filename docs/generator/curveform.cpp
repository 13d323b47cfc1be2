#include "docs/generator/curveform.h"

#include "page/curves/curvetable.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QJsonArray>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>

namespace
{

template <typename Widget>
const Widget* widgetOf(const QWidget& page, const char* name)
{
    const auto* widget = page.findChild<Widget*>(QLatin1String(name));
    if (widget == nullptr) {
        qFatal("the page has no widget %s", name);
    }
    return widget;
}

QString curveTitle(const QWidget& page, const QWidget* within)
{
    const auto* tabs = page.findChild<QTabWidget*>();
    for (int i = 0; i < tabs->count(); ++i) {
        if (tabs->widget(i)->isAncestorOf(within)) {
            return tabs->tabText(i);
        }
    }
    qFatal("%s is on no tab", qPrintable(within->objectName()));
}

NodeMember countMember(const QWidget& page, const CurveSpec& curve)
{
    const auto* counts = widgetOf<QComboBox>(page, curve.nodeCount);
    const int least = counts->itemText(0).toInt();
    const int greatest = counts->itemText(counts->count() - 1).toInt();
    NodeMember member;
    member.key = QLatin1String(curve.countKey);
    member.widget = QLatin1String(curve.nodeCount);
    member.caption = curveTitle(page, counts) + QStringLiteral(": Node Number");
    member.type = QStringLiteral("whole number, anything else is 0");
    member.range = QStringLiteral("%1 to %2, the number of nodes").arg(least).arg(greatest);
    member.whenMissing = QStringLiteral("as it was shown; nodes without it: no row");
    member.published = {
        {"type", "integer"}, {"minimum", least}, {"maximum", greatest}, {"description", member.caption}};
    member.sent = member.published;
    return member;
}

NodeMember nodesMember(const QWidget& page, const CurveSpec& curve)
{
    const auto* table = widgetOf<QTableWidget>(page, curve.table);
    const auto* counts = widgetOf<QComboBox>(page, curve.nodeCount);
    const auto* port = qobject_cast<QDoubleSpinBox*>(table->cellWidget(0, curvetable::PortValue));
    const auto* value = qobject_cast<QSpinBox*>(table->cellWidget(0, curvetable::PhysicalValue));
    const QString portTitle = table->horizontalHeaderItem(curvetable::PortValue)->text();
    const QString valueTitle = table->horizontalHeaderItem(curvetable::PhysicalValue)->text().trimmed();
    const QString decimals = port->decimals() == 2 ? QStringLiteral("two") : QString::number(port->decimals());
    NodeMember member;
    member.key = QLatin1String(curve.nodesKey);
    member.widget = QLatin1String(curve.table);
    member.caption = curveTitle(page, table) + QStringLiteral(": one pair for each node");
    member.type = QStringLiteral("array of pairs of numbers; what is no pair is skipped");
    member.range =
        QStringLiteral("[%1: %2 to %3, %4 decimals; %5: %6 to %7, whole]")
            .arg(portTitle, QString::number(port->minimum()), QString::number(port->maximum(), 'f', port->decimals()),
                 decimals, valueTitle, QString::number(value->minimum()), QString::number(value->maximum()));
    member.whenMissing = QStringLiteral("as it was shown; zeros for another number of nodes");
    const QJsonObject portValue{{"type", "number"},
                                {"minimum", port->minimum()},
                                {"maximum", port->maximum()},
                                {"description", QStringLiteral("%1, at most %2 decimals").arg(portTitle, decimals)}};
    const QJsonObject physicalValue{
        {"type", "integer"}, {"minimum", value->minimum()}, {"maximum", value->maximum()}, {"description", valueTitle}};
    const QJsonObject pair{
        {"type", "array"}, {"items", QJsonArray{portValue, physicalValue}}, {"minItems", 2}, {"maxItems", 2}};
    member.published = {{"type", "array"},
                        {"items", pair},
                        {"minItems", counts->itemText(0).toInt()},
                        {"maxItems", counts->itemText(counts->count() - 1).toInt()},
                        {"description", member.caption}};
    member.sent = member.published;
    return member;
}

/// An object with the two members of each of some curves, neither without the other.
QJsonObject pairsSchema(const QVector<NodeMember>& members)
{
    QJsonObject properties;
    QJsonObject dependencies;
    for (int i = 0; i < members.size(); i += 2) {
        const NodeMember& count = members.at(i);
        const NodeMember& nodes = members.at(i + 1);
        properties.insert(count.key, count.sent);
        properties.insert(nodes.key, nodes.sent);
        dependencies.insert(count.key, QJsonArray{nodes.key});
        dependencies.insert(nodes.key, QJsonArray{count.key});
    }
    return {{"type", "object"}, {"properties", properties}, {"dependencies", dependencies}};
}

QJsonObject oneCurveSchema(const NodeMember& count, const NodeMember& nodes)
{
    return {{"type", "object"},
            {"properties", QJsonObject{{count.key, count.sent}, {nodes.key, nodes.sent}}},
            {"required", QJsonArray{count.key, nodes.key}},
            {"additionalProperties", false}};
}

} // namespace

NodeForm curveNode(const QWidget& page)
{
    NodeForm form{&names::node::kWeldCurve, {}, {}, {}};
    for (const CurveSpec& curve : kCurveSpecs) {
        const NodeMember count = countMember(page, curve);
        const NodeMember nodes = nodesMember(page, curve);
        form.members << count << nodes;
        form.sent.insert(curve.save->name, oneCurveSchema(count, nodes));
    }
    form.published = pairsSchema(form.members);
    QJsonObject any = form.published;
    form.published.insert("additionalProperties", true);
    any.insert("additionalProperties", false);
    any.insert("minProperties", 2);
    any.insert("maxProperties", 2);
    any.insert("description", "The two members of one curve");
    form.sent.insert(names::command::kComputeCurve.name, any);
    return form;
}
