#include "pendix/log.h"

#include "pendixhost/host.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <cstdio>

namespace pendix
{

namespace
{

constexpr char kColourReset[] = "\033[0m";

void writeConsole(const QString& line)
{
    const QByteArray bytes = line.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stderr);
}

/// Says once per file, on the console, that its lines are lost.
void complainOnce(const QString& fileName, const QString& reason)
{
    static QSet<QString> complained;
    if (!complained.contains(fileName)) {
        complained.insert(fileName);
        writeConsole(QStringLiteral("pendix: log file %1 can't be written: %2\n").arg(fileName, reason));
    }
}

} // namespace

FLog::FLog(const QString& path, const QString& suffix) : m_path(path), m_suffix(suffix) {}

void FLog::write(const QString& line) const
{
    const QString fileName = m_suffix.isEmpty() ? m_path : m_path + QLatin1Char('.') + m_suffix;
    QDir().mkpath(QFileInfo(fileName).path());
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append)) {
        complainOnce(fileName, file.errorString());
        return;
    }
    const QByteArray bytes = line.toUtf8();
    if (file.write(bytes) != bytes.size() || !file.flush()) {
        complainOnce(fileName, file.errorString());
    }
}

QLog::QLog(const QString& colour, const QString& tag, const QString& end) : m_colour(colour), m_tag(tag), m_end(end) {}

QLog::~QLog()
{
    finish(nullptr);
}

void QLog::finish(const FLog* file) const
{
    if (m_finished) {
        return;
    }
    QString text = m_tag + QLatin1Char(' ');
    for (const QString& item : m_items) {
        text += item + QLatin1Char(' ');
    }
    text += m_end;
    writeConsole(m_colour.isEmpty() ? text + QLatin1Char('\n')
                                    : m_colour + text + QLatin1String(kColourReset) + QLatin1Char('\n'));
    if (file != nullptr) {
        file->write(text + QLatin1Char('\n'));
    }
    if (Host* host = installedHost()) {
        host->log({m_colour, m_tag, m_items, file != nullptr ? file->path() : QString()});
    } else {
        qWarning("pendix: log statement without an installed host");
    }
}

QFLog::QFLog(const QString& colour, const QString& tag, const QString& end, const QString& path, const QString& suffix)
    : QLog(colour, tag, end), m_file(path, suffix)
{
}

QFLog::~QFLog()
{
    finish(&m_file);
    m_finished = true;
}

} // namespace pendix
