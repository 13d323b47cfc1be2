#ifndef SIMULATOR_SIMULATEDCONTROLLER_H
#define SIMULATOR_SIMULATEDCONTROLLER_H

#include "simulator/answerplan.h"
#include "simulator/cellfile.h"
#include "simulator/weldcommands.h"

#include <QHash>
#include <QObject>
#include <QVariantMap>

class QTimer;

namespace sim
{

/// The robot controller behind the simulated pendant: its welding service, its robot's power, position and
/// points, and the line to it. Nothing here welds anything. While the line is down, values are undefined and commands
/// stay unanswered.
class SimulatedController : public QObject
{
    Q_OBJECT

public:
    static constexpr int kHighestLevel = 5;

    explicit SimulatedController(Cell cell, QObject* parent = nullptr);

    /// The cell: signals, registers, tools and the like. Its nodes, values, points and position are those at the
    /// start; the font zoom and what was done to the registers are those of now.
    const Cell& cell() const { return m_cell; }
    /// The nodes as they stand now.
    QJsonObject nodes() const { return m_data.nodes; }
    QJsonObject values() const { return m_data.values; }
    bool weldEnabled() const { return m_data.weldEnabled; }
    const Consumables& consumables() const { return m_data.consumables; }
    bool monitoring() const { return m_data.monitoring; }
    /// What the monitor stream delivers at this moment; empty while it is off or the line is down.
    QVariantMap monitorValues() const;
    /// The clock by which wire, gas and monitor stream run; to be set before anything runs.
    void setClock(const Consumables::Clock& clock) { m_data.consumables.setClock(clock); }
    QVector<RobotPoint> points() const { return m_points; }
    Pose position() const { return m_position; }
    /// Stores the current position as a point of that name; an existing one only with overwrite. Returns why it was
    /// not stored, empty when it was.
    QString addPoint(const QString& name, bool overwrite, const QString& tool, const QString& wobj);
    /// The registers that it publishes, as they stand now.
    QJsonArray registers() const;
    /// One of the cell's registers, published or not, as it stands now; empty for a place that is none.
    QJsonObject registerAt(int place) const;
    bool isPublished(int place) const;
    /// Changes a register at that place of the cell's list, as something that is done at the controller. A place that
    /// is none, and an access that no cell may give, change nothing.
    void setRegisterPublished(int place, bool published);
    /// Returns whether the register has that access now.
    bool setRegisterAccess(int place, const QString& access);
    /// Replaces the nodes, as something that happens at the machine.
    void setNodes(const QJsonObject& nodes);

    bool isConnected() const { return m_connected; }
    bool isPowered() const { return m_powered; }
    int operatorLevel() const { return m_level; }
    double fontZoom() const { return m_cell.hostSettings.value(QLatin1String(kFontZoom)).toDouble(1.0); }

    /// What the controller publishes under a name or a dotted path; undefined if there is no such value.
    QJsonValue published(const QString& name) const;
    /// A single value as it is, connected or not; false for an unknown name.
    bool value(const QString& name) const { return m_data.values.value(name).toBool(); }
    /// Sets a single value, as something that happens at the machine.
    void setValue(const QString& name, bool value);

    AnswerPlan plan(const QString& command) const { return m_plans.value(command); }
    void setPlan(const QString& command, AnswerPlan plan);

    struct Execution {
        QJsonArray answer;
        QStringList remarks; ///< what a reader of the journal should know: unknown commands, refusals
    };
    /// Executes a command object. With a delay in a command's plan this spins the event loop for that time;
    /// when the line goes down or the program ends meanwhile, nothing is done and nothing answered. A command that is
    /// sent again meanwhile takes effect after the first one, never before it.
    Execution execute(const QString& plugin, const QJsonObject& command);

public slots:
    /// Down: a wire that runs is stopped, since nobody can tell any more whether its key is still held.
    void setConnected(bool connected);
    void setPowered(bool powered);
    void setOperatorLevel(int level);       ///< bounded to 0..5
    void setFontZoom(double zoom);          ///< the pendant's setting, bounded to what a cell may give
    void setPosition(const Pose& position); ///< each number bounded to its limit

signals:
    void connectionChanged(bool connected);
    /// The line went down while the wire was running.
    void wireCutOff();
    void monitoringChanged(bool on);
    void poweredChanged(bool powered);
    void operatorLevelChanged(int level);
    void fontZoomChanged(double zoom);
    void planChanged(const QString& command);
    void positionChanged();
    /// A point could not be stored, and why.
    void pointRefused(const QString& name, const QString& reason);
    /// The point at that place of the list was added or replaced.
    void pointsChanged(int place);
    /// The register at that place of the cell's list changed, or whether it is published.
    void registersChanged(int place);
    /// Nodes, values, points, registers or the weld enable changed.
    void dataChanged();
    /// A command did its work and the nodes were brought up to date.
    void nodesStored();

private:
    void executeOne(const QString& plugin, const QString& name, const QJsonValue& argument, Execution* execution);
    void carryOut(const CommandRow& row, AnswerKind kind, const QString& plugin, const QJsonValue& argument,
                  Execution* execution);
    bool inItsTime(const QString& command, int delayMs, const std::function<void()>& work);
    int placeOf(const QString& point) const;
    QString obstacleTo(const QString& name, bool overwrite, const QString& tool, const QString& wobj) const;

    Cell m_cell;
    WeldData m_data;
    QVector<RobotPoint> m_points;
    Pose m_position;
    QHash<QString, AnswerPlan> m_plans;
    QHash<QString, const QTimer*> m_waiting; ///< by command, the one that was sent last
    bool m_connected = true;
    bool m_powered = false;
    int m_level = kHighestLevel;
};

} // namespace sim

#endif
