#include "simulator/journal.h"

#include "simulator/clock.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

#include <utility>

namespace sim
{

namespace
{

constexpr int kLongestRead = 2000;

constexpr const char* kKindNames[kEntryKinds] = {
    QT_TRANSLATE_NOOP("sim::Journal", "read"),   QT_TRANSLATE_NOOP("sim::Journal", "command"),
    QT_TRANSLATE_NOOP("sim::Journal", "answer"), QT_TRANSLATE_NOOP("sim::Journal", "message"),
    QT_TRANSLATE_NOOP("sim::Journal", "log"),    QT_TRANSLATE_NOOP("sim::Journal", "host call"),
    QT_TRANSLATE_NOOP("sim::Journal", "notice"),
};

} // namespace

QString entryKindName(EntryKind kind)
{
    return Journal::tr(kKindNames[static_cast<int>(kind)]);
}

Journal::Journal(QObject* parent) : QObject(parent) {}

QString Journal::compact(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Undefined:
        return tr("(nothing)");
    case QJsonValue::Object:
        return QString::fromUtf8(QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact));
    case QJsonValue::Array:
        return QString::fromUtf8(QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact));
    default:
        // A document holds objects and arrays only; the brackets around a single value go again.
        return QString::fromUtf8(QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact)).mid(1).chopped(1);
    }
}

int Journal::append(JournalEntry entry)
{
    entry.number = size() + 1;
    entry.time = now();
    m_entries.push_back(std::move(entry));
    const int index = size() - 1;
    emit appended(index);
    return index;
}

int Journal::append(EntryKind kind, const QString& level, const QString& subject, const QString& text)
{
    JournalEntry entry;
    entry.kind = kind;
    entry.level = level;
    entry.subject = subject;
    entry.text = text;
    return append(std::move(entry));
}

void Journal::addRead(const QString& subject, const QJsonValue& value)
{
    // Pages read whole nodes over and over: the text of a long one is made anew when somebody asks for it.
    const QString text = compact(value);
    const bool isLong = text.size() > kLongestRead;
    if (!m_entries.empty()) {
        JournalEntry& last = m_entries.back();
        const bool same = isLong ? last.value == value : last.text == text;
        if (last.kind == EntryKind::Read && last.subject == subject && same) {
            ++last.repeats;
            emit changed(size() - 1);
            return;
        }
    }
    JournalEntry entry;
    entry.kind = EntryKind::Read;
    entry.subject = subject;
    entry.text = text.left(kLongestRead);
    if (isLong) {
        entry.value = value;
    }
    append(std::move(entry));
}

int Journal::addCommand(const QString& plugin, const QString& name, const QJsonValue& argument, const QString& sender)
{
    closeCommand();
    JournalEntry entry;
    entry.kind = EntryKind::Command;
    entry.subject = name;
    entry.text = compact(argument);
    entry.plugin = plugin;
    entry.sender = sender;
    return append(std::move(entry));
}

void Journal::addAnswer(int command, const QJsonArray& answer)
{
    closeCommand();
    append(EntryKind::Answer, {}, at(command).subject, compact(answer));
    m_answered = command;
    // Whoever has not spoken when control is back in the event loop has said nothing about this command.
    QTimer::singleShot(0, this, [this, command] {
        if (m_answered == command) {
            closeCommand();
        }
    });
}

void Journal::closeCommand()
{
    if (m_answered < 0) {
        return;
    }
    const int command = m_answered;
    m_answered = -1;
    m_entries.at(static_cast<std::size_t>(command)).untold = true;
    emit changed(command);
}

void Journal::addMessage(const QString& source, const QString& level, const QString& text)
{
    if (m_answered >= 0 && at(m_answered).plugin == source) {
        m_answered = -1;
    }
    append(EntryKind::Message, level, source, text);
}

void Journal::addLog(const QString& subject, const QString& level, const QString& text)
{
    append(EntryKind::Log, level, subject, text);
}

void Journal::addHostCall(const QString& subject, const QString& text)
{
    append(EntryKind::HostCall, {}, subject, text);
}

void Journal::addNotice(const QString& level, const QString& text)
{
    append(EntryKind::Notice, level, tr("simulator"), text);
}

QString Journal::wholeText(const JournalEntry& entry)
{
    return entry.value.isUndefined() ? entry.text : compact(entry.value);
}

QString Journal::remark(const JournalEntry& entry)
{
    if (entry.untold) {
        return tr("[operator was told nothing]");
    }
    return entry.repeats > 1 ? tr("[%1 times]").arg(QString::number(entry.repeats)) : QString();
}

QString Journal::origin(const JournalEntry& entry)
{
    return entry.sender.isEmpty() ? QString() : tr("for %1 from %2").arg(entry.plugin, entry.sender);
}

QString Journal::line(int index) const
{
    const JournalEntry& entry = at(index);
    return QStringList{QString::number(entry.number),
                       entry.time.toString(QStringLiteral("HH:mm:ss.zzz")),
                       entryKindName(entry.kind),
                       entry.level,
                       remark(entry),
                       origin(entry),
                       entry.subject,
                       wholeText(entry)}
        .join(QLatin1Char('\t'));
}

} // namespace sim
