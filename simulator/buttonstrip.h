#ifndef SIMULATOR_BUTTONSTRIP_H
#define SIMULATOR_BUTTONSTRIP_H

#include "simulator/buttonlists.h"

#include <QPointer>
#include <QScrollArea>

class QGridLayout;
class QVBoxLayout;

namespace sim
{

/// The pendant's casing beside the screen with the plug-ins' buttons: first lists in the left column, second lists in
/// the right one, each list's rows below those of the lists before it. Not there while there are no buttons. A button's
/// object name is "pendantButton_<plugin>_<column>_<row>", both counted from 1.
class ButtonStrip : public QScrollArea
{
    Q_OBJECT

public:
    explicit ButtonStrip(const ButtonLists* lists, QWidget* parent = nullptr);

signals:
    /// It came or went, and takes or leaves its room.
    void shownChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    /// The buttons of one list.
    struct Group {
        QString plugin;
        QString name;
        QWidget* widget;
        QGridLayout* grid;
    };

    void add(const ButtonList& list);
    void setOn(const QString& plugin, const QString& name, bool on);
    void withdraw(const QString& plugin);
    QWidget* createGroup(const ButtonList& list, QGridLayout* grid);
    void retire(const QVector<QPointer<QWidget>>& groups);
    void alignColumns();
    void fit();

    QVBoxLayout* m_column;
    QVector<Group> m_groups;
};

} // namespace sim

#endif
