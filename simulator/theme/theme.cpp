#include "simulator/theme/theme.h"

#include <QFile>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QScreen>

/// The bundle lies in a static library, whose linker would drop it unasked. Qt wants this outside of any namespace.
static void openThemeBundle()
{
    Q_INIT_RESOURCE(theme);
}

namespace sim
{

namespace
{

constexpr double kReferenceDpi = 96.0;

/// Qt enlarges point sizes with the density. The pages take half of that growth back in their own sheets; so does the
/// theme, or its texts would not fit beside theirs.
double screenPointRatio()
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    const double scale = screen != nullptr ? qMax(1.0, screen->logicalDotsPerInchX() / kReferenceDpi) : 1.0;
    return (1.0 + (scale - 1.0) / 2.0) / scale;
}

QString withScaledPoints(const QString& font, double ratio)
{
    static const QRegularExpression points(QStringLiteral("\\b(\\d+)pt\\b"));
    const QRegularExpressionMatch match = points.match(font);
    if (!match.hasMatch()) {
        return font;
    }
    const int scaled = qMax(1, qRound(match.captured(1).toInt() * ratio));
    return QString(font).replace(match.capturedStart(1), match.capturedLength(1), QString::number(scaled));
}

} // namespace

Theme::Theme(const QByteArray& json, double pointRatio)
{
    const QJsonObject kinds = QJsonDocument::fromJson(json).object();
    for (auto kind = kinds.begin(); kind != kinds.end(); ++kind) {
        const QJsonObject roles = kind.value().toObject();
        for (auto role = roles.begin(); role != roles.end(); ++role) {
            QString text = role.value().toString();
            if (kind.key() == QLatin1String("font")) {
                text = withScaledPoints(text, pointRatio);
            } else if (kind.key() == QLatin1String("image")) {
                text = QFile::exists(text) ? QStringLiteral("url(%1)").arg(text) : QString();
            }
            if (!text.isEmpty()) {
                m_values.insert(QStringLiteral("$%1$%2").arg(kind.key(), role.key()), text);
            }
        }
    }
}

const Theme& Theme::own()
{
    static const Theme theme = [] {
        openThemeBundle();
        QFile file(QStringLiteral(":/theme/theme.json"));
        const bool isOpen = file.open(QIODevice::ReadOnly);
        Q_ASSERT(isOpen);
        return Theme(isOpen ? file.readAll() : QByteArray(), screenPointRatio());
    }();
    return theme;
}

std::optional<QString> Theme::value(const QString& token) const
{
    const auto found = m_values.find(token);
    return found == m_values.end() ? std::nullopt : std::optional(*found);
}

} // namespace sim
