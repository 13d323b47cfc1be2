#ifndef PENDIX_LOG_H
#define PENDIX_LOG_H

#include <QDebug>
#include <QString>
#include <QStringList>

namespace pendix
{

/// The file half of a log statement: appends finished lines to "path.suffix". A file that can't be
/// opened (its folder is created when missing) swallows its lines; the console half goes on.
class FLog
{
public:
    FLog(const QString& path, const QString& suffix);
    QString path() const { return m_path; }
    void write(const QString& line) const;

private:
    QString m_path;
    QString m_suffix;
};

/// One statement on the console. Items are streamed like into qDebug(), texts unquoted; one blank
/// follows each item. The line is written when the object is destroyed.
class QLog
{
public:
    /// colour: terminal escape that starts the line; tag: text after it; end: text that closes the line.
    QLog(const QString& colour, const QString& tag, const QString& end);
    virtual ~QLog();

    template <typename T>
    QLog& operator<<(const T& item)
    {
        QString text;
        QDebug(&text).nospace().noquote() << item;
        m_items.append(text);
        return *this;
    }

private:
    Q_DISABLE_COPY(QLog)
    friend class QFLog;
    void finish(const FLog* file) const;

    QString m_colour;
    QString m_tag;
    QString m_end;
    QStringList m_items;
    bool m_finished = false;
};

/// One statement on the console and in a log file.
class QFLog : public QLog
{
public:
    QFLog(const QString& colour, const QString& tag, const QString& end, const QString& path, const QString& suffix);
    ~QFLog() override;

private:
    FLog m_file;
};

} // namespace pendix

#endif
