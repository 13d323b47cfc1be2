#ifndef SIMULATOR_JOURNAL_H
#define SIMULATOR_JOURNAL_H

#include <QDateTime>
#include <QJsonArray>
#include <QJsonValue>
#include <QObject>
#include <QString>

#include <vector>

namespace sim
{

enum class EntryKind { Read, Command, Answer, Message, Log, HostCall, Notice };

/// All kinds in the order of the enumeration, and their names for a person.
constexpr int kEntryKinds = 7;
QString entryKindName(EntryKind kind);

/// One thing that happened between plug-in, pendant and controller.
struct JournalEntry {
    int number = 0; ///< from 1
    QDateTime time;
    EntryKind kind = EntryKind::Notice;
    QString level;   ///< of an operator message, log line or notice
    QString subject; ///< what was read, which command, who spoke
    QString text;    ///< value, payload, answer or words; of a long value read only the beginning
    QJsonValue value = QJsonValue::Undefined; ///< that value, shared with its owner
    int repeats = 1;                          ///< the same read so many times in a row
    QString plugin;                           ///< for which plug-in a command was sent
    QString sender;                           ///< class of the object that sent it
    bool untold = false;                      ///< a command after which the operator was told nothing
};

/// Everything that happens, in order. A command counts as told when an operator message of its plug-in follows
/// its answer before the next command and before control returns to the event loop; any other is marked.
class Journal : public QObject
{
    Q_OBJECT

public:
    explicit Journal(QObject* parent = nullptr);

    int size() const { return static_cast<int>(m_entries.size()); }
    const JournalEntry& at(int index) const { return m_entries.at(static_cast<std::size_t>(index)); }

    /// Equal reads in a row become one entry that counts them.
    void addRead(const QString& subject, const QJsonValue& value);
    /// Returns the index of the entry, for addAnswer.
    int addCommand(const QString& plugin, const QString& name, const QJsonValue& argument, const QString& sender);
    void addAnswer(int command, const QJsonArray& answer);
    void addMessage(const QString& source, const QString& level, const QString& text);
    void addLog(const QString& subject, const QString& level, const QString& text);
    void addHostCall(const QString& subject, const QString& text);
    void addNotice(const QString& level, const QString& text);

    /// Number, time, kind, level, remark, sender, subject and the whole text, parted by tabs: one line per entry.
    QString line(int index) const;

    /// The words for what is special about an entry (told nothing, read several times) and for who sent it; empty
    /// for nothing.
    static QString remark(const JournalEntry& entry);
    static QString origin(const JournalEntry& entry);
    static QString wholeText(const JournalEntry& entry);
    static QString compact(const QJsonValue& value);

signals:
    void appended(int index);
    void changed(int index);

private:
    int append(JournalEntry entry);
    int append(EntryKind kind, const QString& level, const QString& subject, const QString& text);
    void closeCommand();

    std::vector<JournalEntry> m_entries;
    int m_answered = -1; ///< command whose answer came and after which nobody has spoken yet
};

} // namespace sim

#endif
