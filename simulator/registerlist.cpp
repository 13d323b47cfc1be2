#include "simulator/registerlist.h"

namespace sim
{

QJsonArray readRegisters(NameCheck& check, const QJsonValue& value, const JsonPath& path)
{
    QJsonArray registers = value.toArray();
    const QString name = QLatin1String(registermember::kName);
    QSet<QString> known;
    for (int i = 0; !check.fault() && i < registers.size(); ++i) {
        check.another(check.name(registers.at(i)[name], path / i / name), path / i / name, &known);
    }
    return registers;
}

QString nameOfRegister(const QJsonValue& entry)
{
    return entry[QLatin1String(registermember::kName)].toString();
}

QString accessOf(const QJsonValue& entry)
{
    return entry[QLatin1String(registermember::kAccess)].toString();
}

QStringList accessWords()
{
    const JsonPath access = JsonPath() / QStringLiteral("registers") / 0 / QLatin1String(registermember::kAccess);
    const QJsonArray known =
        SchemaValidator::of(QStringLiteral("cell")).rulesAt(access).value(QLatin1String("enum")).toArray();
    QStringList words;
    for (const QJsonValue word : known) {
        words.append(word.toString());
    }
    return words;
}

} // namespace sim
