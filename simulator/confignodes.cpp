#include "simulator/confignodes.h"

namespace sim
{

QStringList nodeNames()
{
    return {QLatin1String(node::kSetting), QLatin1String(node::kIo), QLatin1String(node::kParameters),
            QLatin1String(node::kMatch), QLatin1String(node::kCurves)};
}

QStringList valueNames()
{
    return {QLatin1String(node::kVirtualWelding), QLatin1String(node::kRedLight)};
}

std::optional<SchemaFault> nodesFault(const QJsonObject& root)
{
    const QString nodes = QStringLiteral("nodes");
    for (const QString& name : nodeNames()) {
        const QJsonValue node = root.value(nodes)[name];
        if (node.isNull()) {
            continue;
        }
        if (const auto fault = SchemaValidator::of(name).fault(node)) {
            return SchemaFault{JsonPath() / nodes / name / fault->path, fault->text};
        }
    }
    return std::nullopt;
}

} // namespace sim
