#include "checks/monkey/sourcetexts.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

namespace
{

QRegularExpression pattern(const QString& text)
{
    static const QRegularExpression placeHolder(QStringLiteral("%\\d"));
    QStringList escaped;
    for (const QString& part : text.split(placeHolder)) {
        escaped.append(QRegularExpression::escape(part));
    }
    return QRegularExpression(QRegularExpression::anchoredPattern(escaped.join(QStringLiteral(".*"))),
                              QRegularExpression::DotMatchesEverythingOption);
}

QStringList sourcesIn(const QString& file)
{
    QFile device(file);
    if (!device.open(QIODevice::ReadOnly)) {
        qFatal("%s can't be read: %s", qPrintable(file), qPrintable(device.errorString()));
    }
    QStringList sources;
    QXmlStreamReader xml(&device);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == QLatin1String("source")) {
            sources.append(xml.readElementText());
        }
    }
    if (xml.hasError() || sources.isEmpty()) {
        qFatal("%s holds no texts: %s", qPrintable(file), qPrintable(xml.errorString()));
    }
    return sources;
}

} // namespace

SourceTexts::SourceTexts()
{
    for (const QString& file : QStringLiteral(TRANSLATION_FILES).split(QLatin1Char(','))) {
        // "Corvane_cn.ts" is that of "Corvane".
        QVector<Row>& rows = m_rows[QFileInfo(file).fileName().section(QLatin1Char('_'), 0, 0)];
        for (const QString& text : sourcesIn(file)) {
            rows.append({text, pattern(text)});
        }
    }
}

QString SourceTexts::find(const QString& plugin, const QString& shown) const
{
    for (const Row& row : m_rows.value(plugin)) {
        if (row.pattern.match(shown).hasMatch()) {
            return row.text;
        }
    }
    return {};
}
