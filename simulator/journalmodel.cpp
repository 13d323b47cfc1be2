#include "simulator/journalmodel.h"

#include <QBrush>
#include <QColor>
#include <QJsonDocument>

#include <algorithm>

namespace sim
{

namespace
{

/// A cell shows one line; laying out a whole node for it would cost more than everything else in the table.
constexpr int kLongestCell = 300;
/// A tooltip must fit on the screen; the whole is in the detail.
constexpr int kLongestToolTip = 800;
constexpr int kToolTipLines = 20;

bool holdsJson(EntryKind kind)
{
    return kind == EntryKind::Read || kind == EntryKind::Command || kind == EntryKind::Answer;
}

QString indented(const JournalEntry& entry)
{
    if (!holdsJson(entry.kind)) {
        return entry.text;
    }
    const QString text = Journal::wholeText(entry);
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    return document.isNull() ? text : QString::fromUtf8(document.toJson()).trimmed();
}

/// What identifies the entry comes first: a narrow column shows nothing else.
QString what(const JournalEntry& entry)
{
    QStringList head;
    if (entry.kind != EntryKind::Notice) {
        head.append(entry.subject);
    }
    head.append(entry.level);
    if (entry.repeats > 1) {
        head.append(JournalModel::tr("(%1 times)").arg(QString::number(entry.repeats)));
    }
    head.removeAll(QString());
    const QString text = entry.text.left(kLongestCell);
    return head.isEmpty() ? text : head.join(QLatin1Char(' ')) + QLatin1String(": ") + text;
}

/// Rich text, since Qt wraps no other in a tooltip.
QString toolTip(const QString& detail)
{
    QString text = detail.section(QLatin1Char('\n'), 0, kToolTipLines - 1).left(kLongestToolTip);
    if (text.size() < detail.size()) {
        text += QLatin1String(" ...");
    }
    return QStringLiteral("<p style=\"white-space: pre-wrap\">%1</p>").arg(text.toHtmlEscaped());
}

QVariant colourOf(const JournalEntry& entry, int role)
{
    if (role == Qt::BackgroundRole && entry.untold) {
        return QBrush(QColor(255, 214, 140));
    }
    if (role != Qt::ForegroundRole) {
        return {};
    }
    if (entry.untold) {
        return QBrush(Qt::black);
    }
    switch (entry.kind) {
    case EntryKind::Command:
        return QBrush(QColor(0, 70, 160));
    case EntryKind::Answer:
        return QBrush(QColor(0, 110, 60));
    case EntryKind::Message:
        return QBrush(QColor(140, 0, 90));
    case EntryKind::Notice:
        return QBrush(QColor(160, 60, 0));
    default:
        return {};
    }
}

} // namespace

JournalModel::JournalModel(const Journal* journal, QObject* parent)
    : QAbstractTableModel(parent), m_journal(journal), m_shown(kEntryKinds, true)
{
    for (int entry = 0; entry < journal->size(); ++entry) {
        m_rows.push_back(entry);
    }
    connect(journal, &Journal::appended, this, &JournalModel::add);
    connect(journal, &Journal::changed, this, &JournalModel::refresh);
}

void JournalModel::setShown(EntryKind kind, bool shown)
{
    const auto position = static_cast<std::size_t>(kind);
    if (m_shown[position] == shown) {
        return;
    }
    beginResetModel();
    m_shown[position] = shown;
    m_rows.clear();
    for (int entry = 0; entry < m_journal->size(); ++entry) {
        if (isShown(m_journal->at(entry).kind)) {
            m_rows.push_back(entry);
        }
    }
    endResetModel();
}

int JournalModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

int JournalModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString JournalModel::cell(int entry, int column) const
{
    const JournalEntry& item = m_journal->at(entry);
    switch (column) {
    case Number:
        return QString::number(item.number);
    case Time:
        return item.time.toString(QStringLiteral("HH:mm:ss"));
    case Kind:
        return item.untold ? untoldMark() : entryKindName(item.kind);
    default:
        return what(item);
    }
}

QString JournalModel::untoldMark()
{
    return tr("cmd, untold");
}

QString JournalModel::detail(int row) const
{
    const JournalEntry& entry = m_journal->at(entryOf(row));
    const QString blank(QLatin1Char(' '));
    QStringList head = {QString::number(entry.number), entry.time.toString(QStringLiteral("HH:mm:ss.zzz")),
                        entryKindName(entry.kind), entry.level, entry.subject};
    head.removeAll(QString());
    QStringList lines = {head.join(blank)};
    lines.append({Journal::remark(entry), Journal::origin(entry)});
    lines.removeAll(QString());
    lines.append(indented(entry));
    return lines.join(QLatin1Char('\n'));
}

QVariant JournalModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount()) {
        return {};
    }
    const int entry = entryOf(index.row());
    if (role == Qt::DisplayRole) {
        return cell(entry, index.column());
    }
    if (role == Qt::ToolTipRole) {
        return toolTip(detail(index.row()));
    }
    return colourOf(m_journal->at(entry), role);
}

QVariant JournalModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= ColumnCount) {
        return {};
    }
    const QString titles[ColumnCount] = {tr("No."), tr("Time"), tr("Kind"), tr("What")};
    return titles[section];
}

void JournalModel::add(int entry)
{
    if (!isShown(m_journal->at(entry).kind)) {
        return;
    }
    const int row = rowCount();
    beginInsertRows(QModelIndex(), row, row);
    m_rows.push_back(entry);
    endInsertRows();
}

void JournalModel::refresh(int entry)
{
    const auto found = std::lower_bound(m_rows.cbegin(), m_rows.cend(), entry);
    if (found != m_rows.cend() && *found == entry) {
        const int row = static_cast<int>(found - m_rows.cbegin());
        emit dataChanged(index(row, 0), index(row, ColumnCount - 1));
    }
}

} // namespace sim
