#ifndef SIMULATOR_IOMODEL_H
#define SIMULATOR_IOMODEL_H

#include "simulator/portusers.h"
#include "simulator/simulatedcontroller.h"

#include <QAbstractTableModel>

namespace sim
{

/// The controller's registers and I/O points as a table, and which laser-welding signals use them; at its end the ports
/// that a signal uses and the cell does not have. A register can be
/// changed here: its tick says whether the controller publishes it, its access is a word to be edited. Filtering is
/// done here and not in a proxy, which would map every row of a long list once more.
class IoModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Published, Name, Kind, Length, Access, UsedBy, ColumnCount };

    explicit IoModel(SimulatedController* controller, QObject* parent = nullptr);

    /// Shows only what has the text in its name or its users, in whatever case; an empty text is in all of them.
    void setFilter(const QString& text);
    /// Shows only what a signal uses.
    void setOnlyUsed(bool onlyUsed);

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    bool isRegister(int place) const { return place < m_controller->cell().registers.size(); }
    QString text(int place, int column) const;
    QString toolTip(int place, int column) const;
    QString usersOf(int place) const;
    QVector<int> shown() const;
    void readUsers();
    void refilter();
    void refresh(int place);

    SimulatedController* m_controller;
    QSet<Port> m_inCell;   ///< the ports that the cell has
    QVector<Port> m_ports; ///< the registers in the order of the cell, its I/O points, then what is in use besides
    QJsonValue m_node;     ///< from which the users were read
    QHash<Port, QStringList> m_users;
    QString m_filter;
    bool m_onlyUsed = false;
    QVector<int> m_shown; ///< places in m_ports, in rising order
};

} // namespace sim

#endif
