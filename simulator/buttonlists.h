#ifndef SIMULATOR_BUTTONLISTS_H
#define SIMULATOR_BUTTONLISTS_H

#include "pendix/hostui.h"

#include <QObject>
#include <QVector>

namespace sim
{

/// The pendant buttons that a plug-in has given under one name.
struct ButtonList {
    QString plugin;
    QString name;
    QList<pendix::PhysicalButton> first;
    QList<pendix::PhysicalButton> second;
    bool on = false; ///< nobody can press what was never switched on
};

/// All pendant buttons that there are. What a plug-in gives under a name takes the place of what it gave under it
/// before, and stays switched on or off.
class ButtonLists : public QObject
{
    Q_OBJECT

public:
    explicit ButtonLists(QObject* parent = nullptr) : QObject(parent) {}

    /// In the order in which their names were first given.
    const QVector<ButtonList>& all() const { return m_lists; }

    void give(const ButtonList& list);
    /// False: there is no such list.
    bool setOn(const QString& plugin, const QString& name, bool on);
    /// Takes away all that a plug-in gave, so that nothing of it can be called any more.
    void withdraw(const QString& plugin);

signals:
    void given(const sim::ButtonList& list);
    void switched(const QString& plugin, const QString& name, bool on);
    void withdrawn(const QString& plugin);

private:
    ButtonList* find(const QString& plugin, const QString& name);

    QVector<ButtonList> m_lists;
};

} // namespace sim

#endif
