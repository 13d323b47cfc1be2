#include "checks/monkey/operatormessages.h"

#include "pendix/hostui.h"

#include <QRegularExpression>

namespace operatormessages
{

namespace
{

struct Row {
    pendix::enThrowLogLevel level;
    const char* text; ///< %1, %2, ... stand for any text
};

constexpr Row kRows[] = {
    {pendix::information, "Saved successfully"},
    {pendix::information, "Cancel successful"},
    {pendix::error, "Save failed. Please check the parameter configuration."},
    {pendix::error, "The detected time of the light output is later than the light output inspection time; "
                    "saving failed!"},
    {pendix::error, "Do not modify while powered on!"},
    {pendix::error, "Laser weld startup faild!"},
    {pendix::warning, "Insufficient user permissions!"},
    {pendix::information, "Switch to VirtualWelding"},
    {pendix::information, "Switch to RealWdlding"},
    {pendix::error, "Switch work mode failed"},
    {pendix::information, "Feed wire successfully"},
    {pendix::error, "Feed wire failed. Please check logs."},
    {pendix::information, "Retract wire successfully"},
    {pendix::error, "Retract wire failed. Please check logs."},
    {pendix::information, "Open gas successfully"},
    {pendix::error, "Open gas failed. Please check logs."},
    {pendix::information, "Seam tracking started"},
    {pendix::information, "Seam tracking stopped"},
    {pendix::warning, "Switch the sensor on first"},
};

QRegularExpression pattern(const char* text)
{
    static const QRegularExpression placeHolder(QStringLiteral("%\\d"));
    const QStringList parts = QString::fromLatin1(text).split(placeHolder);
    QStringList escaped;
    for (const QString& part : parts) {
        escaped.append(QRegularExpression::escape(part));
    }
    return QRegularExpression(QRegularExpression::anchoredPattern(escaped.join(QStringLiteral(".*"))),
                              QRegularExpression::DotMatchesEverythingOption);
}

} // namespace

QString known(int level, const QString& shown)
{
    for (const Row& row : kRows) {
        if (row.level == level && pattern(row.text).match(shown).hasMatch()) {
            return QString::fromLatin1(row.text);
        }
    }
    return {};
}

QStringList all()
{
    QStringList texts;
    for (const Row& row : kRows) {
        texts.append(QString::fromLatin1(row.text));
    }
    return texts;
}

} // namespace operatormessages
