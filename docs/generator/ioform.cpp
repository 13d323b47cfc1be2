#include "docs/generator/ioform.h"

#include "page/io/assignment.h"

#include <QComboBox>
#include <QJsonArray>
#include <QLabel>

#include <limits>

namespace
{

/// The caption beside a signal's widget, which must be there.
NodeMember memberOf(const QWidget& page, const IoRowTemplate& signal, const QString& key, const QString& widget)
{
    const auto* name = page.findChild<QLabel*>(QStringLiteral("label_%1_name").arg(QLatin1String(signal.key)));
    if (name == nullptr || page.findChild<QWidget*>(widget) == nullptr) {
        qFatal("the page has no widget %s", qPrintable(widget));
    }
    NodeMember member;
    member.key = key;
    member.widget = widget;
    member.caption = name->text();
    return member;
}

QString comboName(const IoRowTemplate& signal, const char* what)
{
    return QStringLiteral("comboBox_%1_%2").arg(QLatin1String(signal.key), QLatin1String(what));
}

void describe(NodeMember* member, QJsonObject schema, const QString& words)
{
    schema.insert(QStringLiteral("description"), member->caption + QStringLiteral(": ") + words);
    member->sent = schema;
    member->published = schema;
}

NodeMember typeMember(const QWidget& page, const IoRowTemplate& signal)
{
    NodeMember member = memberOf(page, signal, signal.typeKey(), comboName(signal, "type"));
    const auto* entries = page.findChild<QComboBox*>(member.widget);
    QStringList words;
    QJsonArray types;
    for (int i = 0; i < entries->count(); ++i) {
        const int type = serverTypeOf(*signal.portKind, i);
        types.append(type);
        const QString entry = type == kRegisterType ? QStringLiteral("register") : entries->itemText(i);
        words.append(QStringLiteral("%1 %2").arg(type).arg(entry));
    }
    member.type = QStringLiteral("whole number, anything else is 0");
    member.range = words.join(QStringLiteral(", "));
    member.whenMissing = QStringLiteral("0");
    // Two types leave a gap, three are all numbers from 0 on.
    const QJsonObject schema = signal.twoWayType()
                                   ? QJsonObject{{"type", "integer"}, {"enum", types}}
                                   : QJsonObject{{"type", "integer"}, {"minimum", 0}, {"maximum", kRegisterType}};
    describe(&member, schema, QStringLiteral("kind of its port, ") + member.range);
    return member;
}

NodeMember portMember(const QWidget& page, const IoRowTemplate& signal)
{
    NodeMember member = memberOf(page, signal, signal.portKey(), comboName(signal, "port"));
    member.type = QStringLiteral("text, a port of that type or empty");
    member.whenMissing = QStringLiteral("empty");
    describe(&member, {{"type", "string"}}, QStringLiteral("port or register, empty for none"));
    return member;
}

NodeMember biasMember(const QWidget& page, const IoRowTemplate& signal)
{
    NodeMember member = memberOf(page, signal, signal.biasKey(), comboName(signal, "bias"));
    member.type = QStringLiteral("whole number, element of the register from 0");
    member.range = QStringLiteral("0 to one less than its length; 0 for a port");
    member.whenMissing = QStringLiteral("0");
    describe(&member, {{"type", "integer"}, {"minimum", 0}, {"maximum", std::numeric_limits<int>::max() - 1}},
             QStringLiteral("element of the register, from 0; 0 for a port"));
    return member;
}

NodeMember switchMember(const QWidget& page, const IoRowTemplate& signal)
{
    NodeMember member = memberOf(page, signal, signal.enabledKey(),
                                 QStringLiteral("pushButton_%1_enabled").arg(QLatin1String(signal.switchStem)));
    member.type = QStringLiteral("boolean");
    member.whenMissing = QStringLiteral("false");
    describe(&member, {{"type", "boolean"}}, QStringLiteral("in use"));
    return member;
}

} // namespace

QVector<NodeMember> ioMembers(const QWidget& page)
{
    QVector<NodeMember> members;
    for (const QVector<IoRowTemplate>* rows : {&outputRowTemplates(), &inputRowTemplates()}) {
        for (const IoRowTemplate& signal : *rows) {
            members << typeMember(page, signal) << portMember(page, signal) << biasMember(page, signal);
            if (signal.hasEnableSwitch()) {
                members << switchMember(page, signal);
            }
        }
    }
    return members;
}
