#ifndef CHECKS_MONKEY_MONKEY_H
#define CHECKS_MONKEY_MONKEY_H

#include "checks/monkey/virtualtime.h"
#include "checks/monkey/watchedhost.h"
#include "checks/support/dice.h"
#include "simulator/pendantwindow.h"

#include <QPointer>
#include <QTemporaryDir>

/// A random operator, at a machine to which anything may happen: works whatever the pendant shows, changes level,
/// power, line, nodes, registers and answers, and acts again while the pendant waits for an answer, to whatever call.
/// It knows no page by name, so a new page or editor needs nothing here.
class Monkey
{
public:
    Monkey(sim::PendantWindow* window, sim::SimulatedController* controller, WatchedHost* host, Logbook* logbook,
           Dice* dice);

    /// Acts that many times, fewer when a rule is broken.
    void run(int actions);

private:
    struct ActionRow {
        const char* name;
        int weight;
        QString (Monkey::*act)();
    };
    static const ActionRow kActions[];

    const ActionRow& anyOf(const ActionRow* begin, const ActionRow* end);
    void act(const ActionRow& row);
    bool actWhileWaiting();
    void interfere();
    void takeInventory();
    /// What takes the operator's input: the open popup or dialog, else the window.
    QWidget* stage() const;

    enum class Room { Page, Navigation, Program, Inspector, Keys, Frame };
    QVector<QWidget*> usableIn(Room room) const;
    QVector<QWidget*> mostCuriousOf(const QVector<QWidget*>& widgets) const;
    QString useOneOf(QVector<QWidget*> widgets);

    QString useWidget();
    QString useAgain();
    QString finish();
    QString pressKey();
    QString clickAnywhere();
    QString openPage();
    QString openProgram();
    QString spoilProgramFile();
    QString chooseFile();
    QString showAgain();
    QString changeLevel();
    QString changePower();
    QString changeLine();
    QString changeValue();
    QString changeAnswer();
    QJsonObject mixedUp(QJsonObject node);
    QString changeNode();
    QString changeRegister();
    QString letTimePass();
    QString resize();
    QString paint();

    sim::PendantWindow* m_window;
    sim::SimulatedController* m_controller;
    WatchedHost* m_host;
    Logbook* m_logbook;
    Dice* m_dice;
    const QJsonObject m_soundNodes;    ///< as the cell has them
    const QJsonArray m_soundRegisters; ///< the same
    QTemporaryDir m_programs;          ///< where the pendant's programs are kept
    QPointer<QWidget> m_lastUsed;
    int m_left = 0; ///< actions that are still to be done
    int m_leftWhileWaiting = 0;
};

#endif
