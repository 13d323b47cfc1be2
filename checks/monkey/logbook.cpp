#include "checks/monkey/logbook.h"

Logbook::Logbook(const QString& file) : m_file(file)
{
    if (!m_file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        qFatal("%s can't be written: %s", qPrintable(file), qPrintable(m_file.errorString()));
    }
}

void Logbook::note(const QString& line)
{
    const QByteArray bytes = line.toUtf8() + '\n';
    m_hash.addData(bytes);
    m_file.write(bytes);
    m_file.flush();
}

void Logbook::complain(const QString& what)
{
    note(QStringLiteral("!!! %1").arg(what));
    if (m_finding.isEmpty()) {
        m_finding = what;
    }
}

QStringList Logbook::inventory() const
{
    QStringList lines;
    for (const QString& thing : m_offered.keys()) {
        lines.append(QStringLiteral("offered %1").arg(thing));
    }
    for (const QString& thing : m_used) {
        lines.append(QStringLiteral("used %1").arg(thing));
    }
    lines.sort();
    return lines;
}

QString Logbook::digest() const
{
    return QString::fromLatin1(m_hash.result().toHex().left(12));
}
