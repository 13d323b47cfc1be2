#include "pendix/log.h"

#include "pendixhost/host.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMutex>

#include <sys/stat.h>

#include <cstdio>
#include <map>

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

/// Says on the console that the lines of a file are lost.
void complain(const QString& fileName, const QString& reason)
{
    writeConsole(QStringLiteral("pendix: log file %1 can't be written: %2\n").arg(fileName, reason));
}

/// A log file that stays open between its lines. Unbuffered: each line is one write, and is in the file when the
/// process is killed right after it.
class LogFile
{
public:
    void append(const QString& fileName, const QByteArray& line)
    {
        if (!isStillThere(fileName)) {
            open(fileName);
        }
        if ((!m_file.isOpen() || m_file.write(line) != line.size()) && !m_complained) {
            m_complained = true;
            complain(fileName, m_file.errorString());
        }
    }

private:
    /// Whether the name still leads to the open file: somebody may delete, rename or rotate it.
    bool isStillThere(const QString& fileName) const
    {
        struct stat there {
        };
        return m_file.isOpen() && ::stat(QFile::encodeName(fileName).constData(), &there) == 0 &&
               there.st_ino == m_opened.st_ino && there.st_dev == m_opened.st_dev;
    }

    void open(const QString& fileName)
    {
        QDir().mkpath(QFileInfo(fileName).path());
        m_file.close();
        m_file.setFileName(fileName);
        if (m_file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered)) {
            ::fstat(m_file.handle(), &m_opened);
        }
    }

    QFile m_file;
    struct stat m_opened {
    };
    bool m_complained = false;
};

} // namespace

FLog::FLog(const QString& path, const QString& suffix) : m_path(path), m_suffix(suffix) {}

void FLog::write(const QString& line) const
{
    // Never destroyed: there are log lines until the process ends, also from other libraries' static objects.
    static auto* const mutex = new QMutex;
    static auto* const files = new std::map<QString, LogFile>;
    const QString fileName = m_suffix.isEmpty() ? m_path : m_path + QLatin1Char('.') + m_suffix;
    const QMutexLocker locker(mutex);
    (*files)[fileName].append(fileName, line.toUtf8());
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
