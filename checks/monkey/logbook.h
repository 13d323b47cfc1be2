#ifndef CHECKS_MONKEY_LOGBOOK_H
#define CHECKS_MONKEY_LOGBOOK_H

#include <QCryptographicHash>
#include <QFile>
#include <QMap>
#include <QSet>
#include <QString>
#include <QStringList>

/// What a run does and finds. Every line goes to a file at once, so that it survives a crash.
class Logbook
{
public:
    /// A file that can't be written ends the program: a run that leaves no trace is worth nothing.
    explicit Logbook(const QString& file);

    void note(const QString& line);

    /// A rule was broken. The first complaint is the finding; what follows may be its consequence.
    void complain(const QString& what);
    QString finding() const { return m_finding; }

    /// Counts something of the summary.
    void count(const QString& what, int times = 1) { m_counts[what] += times; }
    QMap<QString, int> counts() const { return m_counts; }

    /// A thing that an operator could have used, and one that was.
    void offered(const QString& thing) { ++m_offered[thing]; }
    void used(const QString& thing) { m_used.insert(thing); }
    bool wasUsed(const QString& thing) const { return m_used.contains(thing); }
    int timesOffered(const QString& thing) const { return m_offered.value(thing); }
    /// Both as sorted lines "offered thing" and "used thing".
    QStringList inventory() const;

    /// The same for two runs that did the same.
    QString digest() const;

private:
    QFile m_file;
    QCryptographicHash m_hash{QCryptographicHash::Sha256};
    QString m_finding;
    QMap<QString, int> m_counts;
    QMap<QString, int> m_offered; ///< and how often
    QSet<QString> m_used;
};

#endif
