#include "common/parametersetnames.h"

QStringList parameterSetNames()
{
    constexpr int kSets = 30;
    QStringList names;
    for (int set = 1; set <= kSets; ++set) {
        names.append(QStringLiteral("LsData%1").arg(set));
    }
    return names;
}
