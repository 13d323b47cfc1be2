#include "simulator/portusers.h"

#include "simulator/confignodes.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QRegularExpression>
#include <QVector>

namespace sim
{

namespace
{

QString tr(const char* text)
{
    return QCoreApplication::translate("sim::PortUsers", text);
}

/// One laser-welding signal: its name and the members that hold its row. A signal without a switch is always on.
struct WeldSignal {
    QString name;
    QHash<int, QString> kinds; ///< of its port, by the number in the member type
    QString type;
    QString port;
    QString bias;
    QString enabled; ///< empty: it has no switch
};

/// From "kind of its port, 0 DO, 2 register".
QHash<int, QString> kindsIn(const QString& words)
{
    static const QRegularExpression numbered(QStringLiteral("(\\d+) (\\w+)"));
    QHash<int, QString> kinds;
    for (auto match = numbered.globalMatch(words); match.hasNext();) {
        const QRegularExpressionMatch kind = match.next();
        kinds.insert(kind.captured(1).toInt(), kind.captured(2));
    }
    return kinds;
}

/// The signals in the order of the schema. What is said of a member begins with the name of its signal, which tells
/// better than the member's own name to whom it belongs.
QVector<WeldSignal> readSignals()
{
    const QJsonObject schema = SchemaValidator::of(QLatin1String(node::kIo)).schema();
    const QJsonObject members = schema.value(QLatin1String("properties")).toObject();
    QVector<WeldSignal> found;
    QHash<QString, int> places;
    for (const QJsonValue entry : schema.value(QLatin1String("required")).toArray()) {
        const QString member = entry.toString();
        const QString description = members.value(member)[QLatin1String("description")].toString();
        const int colon = description.indexOf(QLatin1Char(':'));
        const QString name = description.left(colon);
        if (!places.contains(name)) {
            places.insert(name, found.size());
            found.append({name, {}, {}, {}, {}, {}});
        }
        WeldSignal& signal = found[places.value(name)];
        if (member.endsWith(QLatin1String("_type"))) {
            signal.type = member;
            signal.kinds = kindsIn(description.mid(colon));
        } else if (member.endsWith(QLatin1String("_port"))) {
            signal.port = member;
        } else if (member.endsWith(QLatin1String("_bias"))) {
            signal.bias = member;
        } else {
            signal.enabled = member;
        }
    }
    return found;
}

} // namespace

QHash<Port, QStringList> portUsers(const QJsonValue& ioNode)
{
    static const QVector<WeldSignal> all = readSignals();
    const QJsonObject members = ioNode.toObject();
    QHash<Port, QStringList> users;
    for (const WeldSignal& signal : all) {
        const QString port = members.value(signal.port).toString();
        const QString kind = signal.kinds.value(members.value(signal.type).toInt(-1));
        if (port.isEmpty()) {
            continue;
        }
        QString user = signal.name;
        if (kind == QLatin1String(kRegisterKind)) {
            user += QStringLiteral(" [%1]").arg(members.value(signal.bias).toDouble() + 1, 0, 'f', 0);
        }
        const bool isOff = !signal.enabled.isEmpty() && !members.value(signal.enabled).toBool();
        users[{kind, port}].append(isOff ? tr("%1 (off)").arg(user) : user);
    }
    return users;
}

} // namespace sim
