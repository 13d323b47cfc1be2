#include "common/registerlengths.h"

#include "common/registerfilter.h"

namespace registerlengths
{

namespace
{

QHash<QString, int>& table()
{
    static QHash<QString, int> lengths;
    return lengths;
}

} // namespace

void renew(const QJsonValue& metadata)
{
    table() = registerfilter::lengths(metadata);
}

int lengthOf(const QString& name)
{
    return table().value(name, 1);
}

} // namespace registerlengths
