#include "common/logline.h"

#include "common/names.h"

#include <QDateTime>

namespace
{

struct LevelStyle {
    const char* colour;
    const char* tag;
};

/// By LogLevel, in the order of the enumeration.
constexpr LevelStyle kStyles[] = {
    {"\033[36m", "[I|%1]"}, {"\033[33m", "[W|%1]"}, {"\033[31m", "[E|%1]"},
    {"\033[35m", "[S|%1]"}, {"\033[32m", "[D|%1]"},
};

QString logPath()
{
    return QStringLiteral("./log/pendix/%1/%1").arg(QLatin1String(names::kPlugin));
}

std::unique_ptr<pendix::QLog> openLog(LogLevel level)
{
    const LevelStyle& style = kStyles[static_cast<int>(level)];
    const QString colour = QString::fromLatin1(style.colour);
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("MM/dd hh:mm:ss.zzz"));
    const QString tag = QString::fromLatin1(style.tag).arg(time);
    if (level == LogLevel::Debug) {
        return std::make_unique<pendix::QLog>(colour, tag, QString());
    }
    return std::make_unique<pendix::QFLog>(colour, tag, QString(), logPath(), QStringLiteral("log"));
}

} // namespace

LogLine::LogLine(LogLevel level) : m_log(openLog(level)) {}
