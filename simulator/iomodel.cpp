#include "simulator/iomodel.h"

#include "simulator/confignodes.h"
#include "simulator/registerlist.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>

namespace sim
{

namespace
{

QString titleOf(int column)
{
    switch (column) {
    case IoModel::Name:
        return IoModel::tr("Name");
    case IoModel::Kind:
        return IoModel::tr("Kind");
    case IoModel::Length:
        return IoModel::tr("Len");
    case IoModel::Access:
        return IoModel::tr("Access");
    case IoModel::UsedBy:
        return IoModel::tr("Used by");
    default:
        return QString::fromUtf8("\u2713");
    }
}

/// Grey, and still as legible as a text has to be: black on white becomes 5.7:1.
QColor fadedText()
{
    const QColor text = QGuiApplication::palette().color(QPalette::Text);
    const QColor base = QGuiApplication::palette().color(QPalette::Base);
    const auto mixed = [](int of, int with) { return (3 * of + 2 * with) / 5; };
    return {mixed(text.red(), base.red()), mixed(text.green(), base.green()), mixed(text.blue(), base.blue())};
}

/// Nothing else is set: a view takes the rest from its own font.
QFont struckOut()
{
    QFont font;
    font.setStrikeOut(true);
    return font;
}

} // namespace

IoModel::IoModel(SimulatedController* controller, QObject* parent)
    : QAbstractTableModel(parent), m_controller(controller)
{
    const Cell& cell = controller->cell();
    for (const QJsonValue entry : cell.registers) {
        m_ports.append({QLatin1String(kRegisterKind), nameOfRegister(entry)});
    }
    for (auto list = cell.io.constBegin(); list != cell.io.constEnd(); ++list) {
        for (const QString& name : list.value()) {
            m_ports.append({list.key(), name});
        }
    }
    m_inCell = QSet<Port>(m_ports.cbegin(), m_ports.cend());
    m_shown = shown();
    readUsers();
    connect(controller, &SimulatedController::dataChanged, this, &IoModel::readUsers);
    connect(controller, &SimulatedController::registersChanged, this, &IoModel::refresh);
}

void IoModel::readUsers()
{
    const QJsonValue node = m_controller->nodes().value(QLatin1String(node::kIo));
    if (node == m_node) {
        return;
    }
    m_node = node;
    const QHash<Port, QStringList> users = portUsers(node);
    QVector<Port> elsewhere;
    for (auto port = users.keyBegin(); port != users.keyEnd(); ++port) {
        if (!m_inCell.contains(*port)) {
            elsewhere.append(*port);
        }
    }
    std::sort(elsewhere.begin(), elsewhere.end());
    if (elsewhere != m_ports.mid(m_inCell.size())) {
        beginResetModel();
        m_ports = m_ports.mid(0, m_inCell.size()) + elsewhere;
        m_users = users;
        m_shown = shown();
        endResetModel();
        return;
    }
    m_users = users;
    refilter();
    if (!m_shown.isEmpty()) {
        emit dataChanged(index(0, UsedBy), index(m_shown.size() - 1, UsedBy));
    }
}

void IoModel::setFilter(const QString& text)
{
    m_filter = text;
    refilter();
}

void IoModel::setOnlyUsed(bool onlyUsed)
{
    m_onlyUsed = onlyUsed;
    refilter();
}

/// A list that stays as it is keeps its place in the view.
void IoModel::refilter()
{
    const QVector<int> now = shown();
    if (now != m_shown) {
        beginResetModel();
        m_shown = now;
        endResetModel();
    }
}

QVector<int> IoModel::shown() const
{
    QVector<int> places;
    for (int place = 0; place < m_ports.size(); ++place) {
        const bool isUsed = m_users.contains(m_ports.at(place));
        if ((isUsed || !m_onlyUsed) && (m_ports.at(place).second.contains(m_filter, Qt::CaseInsensitive) ||
                                        (isUsed && usersOf(place).contains(m_filter, Qt::CaseInsensitive)))) {
            places.append(place);
        }
    }
    return places;
}

void IoModel::refresh(int place)
{
    const auto found = std::lower_bound(m_shown.cbegin(), m_shown.cend(), place);
    if (found != m_shown.cend() && *found == place) {
        const int row = static_cast<int>(found - m_shown.cbegin());
        emit dataChanged(index(row, 0), index(row, ColumnCount - 1));
    }
}

int IoModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_shown.size();
}

int IoModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QString IoModel::usersOf(int place) const
{
    return m_users.value(m_ports.at(place)).join(QLatin1String(", "));
}

QString IoModel::text(int place, int column) const
{
    const auto member = [&](const char* name) {
        return isRegister(place) ? m_controller->registerAt(place).value(QLatin1String(name)).toVariant().toString()
                                 : QString();
    };
    switch (column) {
    case Name:
        return m_ports.at(place).second;
    case Access:
        return member(registermember::kAccess);
    case UsedBy:
        return usersOf(place);
    case Kind:
        return isRegister(place)         ? member(registermember::kType)
               : place < m_inCell.size() ? m_ports.at(place).first
                                         : tr("missing");
    case Length:
        return member(registermember::kLength);
    default:
        return {};
    }
}

/// A text that has no room in its column, and what is the matter with the port.
QString IoModel::toolTip(int place, int column) const
{
    if (column == UsedBy) {
        return usersOf(place);
    }
    if (isRegister(place) && !m_controller->isPublished(place)) {
        return tr("%1: the controller does not publish this register").arg(text(place, Name));
    }
    return place < m_inCell.size() ? text(place, column) : tr("%1: not in this cell").arg(text(place, Name));
}

QVariant IoModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_shown.size() || index.column() >= ColumnCount) {
        return {};
    }
    const int place = m_shown.at(index.row());
    const bool isWithdrawn = isRegister(place) && !m_controller->isPublished(place);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return text(place, index.column());
    case Qt::ToolTipRole:
        return toolTip(place, index.column());
    case Qt::CheckStateRole:
        return index.column() == Published && isRegister(place) ? QVariant(isWithdrawn ? Qt::Unchecked : Qt::Checked)
                                                                : QVariant();
    case Qt::ForegroundRole:
        // The access of a withdrawn register can be changed, and looks it.
        return isWithdrawn && index.column() != Access ? QVariant(fadedText()) : QVariant();
    case Qt::FontRole:
        return isWithdrawn && index.column() == Name ? QVariant(struckOut()) : QVariant();
    case Qt::TextAlignmentRole:
        return static_cast<int>((index.column() == Length ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    default:
        return {};
    }
}

bool IoModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || index.row() >= m_shown.size() || !isRegister(m_shown.at(index.row()))) {
        return false;
    }
    const int place = m_shown.at(index.row());
    if (index.column() == Published && role == Qt::CheckStateRole) {
        m_controller->setRegisterPublished(place, value.toInt() == Qt::Checked);
        return true;
    }
    if (index.column() == Access && role == Qt::EditRole) {
        return m_controller->setRegisterAccess(place, value.toString());
    }
    return false;
}

Qt::ItemFlags IoModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (index.isValid() && index.row() < m_shown.size() && isRegister(m_shown.at(index.row()))) {
        flags.setFlag(Qt::ItemIsUserCheckable, index.column() == Published);
        flags.setFlag(Qt::ItemIsEditable, index.column() == Access);
    }
    return flags;
}

QVariant IoModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount) {
        return {};
    }
    if (role == Qt::ToolTipRole && section == Published) {
        return tr("Whether the controller publishes the register");
    }
    if (role == Qt::ToolTipRole && section == Length) {
        return tr("How many elements the register has");
    }
    return role == Qt::DisplayRole ? titleOf(section) : QVariant();
}

} // namespace sim
