#ifndef RL_CUSTOMLINE_H
#define RL_CUSTOMLINE_H

#include "common/logline.h"

#include <QString>

/// What the two generic editors have in common.
inline void logCustomFill(const QString& name, const QString& line)
{
    logLine(LogLevel::Debug) << "RLCustomInsertWidget::FillWith : " << name << " : " << line;
}

inline QString customLine(const QString& name, const QString& first, const QString& second)
{
    return name + QLatin1Char(' ') + first + QLatin1Char(',') + second;
}

#endif
