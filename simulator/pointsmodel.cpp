#include "simulator/pointsmodel.h"

#include <iterator>

namespace sim
{

namespace
{

constexpr int kFirstNumber = 1;
constexpr int kTool = kFirstNumber + static_cast<int>(std::size(kCoordinates));
constexpr int kWobj = kTool + 1;
constexpr int kColumns = kWobj + 1;

bool isNumber(int column)
{
    return column >= kFirstNumber && column < kTool;
}

QString cellText(const RobotPoint& point, int column)
{
    if (isNumber(column)) {
        return QString::number(point.pose.*kCoordinates[column - kFirstNumber].value, 'f', PointsModel::kDecimals);
    }
    return column == kTool ? point.tool : column == kWobj ? point.wobj : point.name;
}

QString titleOf(int column)
{
    if (isNumber(column)) {
        return QLatin1String(kCoordinates[column - kFirstNumber].name);
    }
    return column == kTool   ? PointsModel::tr("Tool")
           : column == kWobj ? PointsModel::tr("Wobj")
                             : PointsModel::tr("Name");
}

} // namespace

PointsModel::PointsModel(const SimulatedController* controller, QObject* parent)
    : QAbstractTableModel(parent), m_controller(controller), m_rows(controller->points().size())
{
    connect(controller, &SimulatedController::pointsChanged, this, &PointsModel::update);
}

void PointsModel::update(int place)
{
    if (place < m_rows) {
        emit dataChanged(index(place, 0), index(place, kColumns - 1));
        return;
    }
    beginInsertRows(QModelIndex(), place, place);
    m_rows = place + 1;
    endInsertRows();
}

int PointsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int PointsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant PointsModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || index.row() >= m_rows || index.column() >= kColumns) {
        return {};
    }
    if (role == Qt::TextAlignmentRole && isNumber(index.column())) {
        return static_cast<int>(Qt::AlignRight | Qt::AlignVCenter);
    }
    return role == Qt::DisplayRole ? cellText(m_controller->points().at(index.row()), index.column()) : QVariant();
}

QVariant PointsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 || section >= kColumns) {
        return {};
    }
    return titleOf(section);
}

} // namespace sim
