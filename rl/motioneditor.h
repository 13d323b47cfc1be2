#ifndef RL_MOTIONEDITOR_H
#define RL_MOTIONEDITOR_H

#include "common/business.h"

#include "pendix/rl.h"

#include <QStringList>
#include <QVector>

class QComboBox;
class QDoubleSpinBox;
class QGridLayout;
class SetUpPointWidget;

/// What tells the three welding moves apart.
struct MotionSpec {
    const char* instruction;
    const char* firstPoint;  ///< object name of its first point widget
    const char* secondPoint; ///< of its second one; null: it has one
    bool isCircle;           ///< takes a run angle and a rotation type after its points
};

constexpr MotionSpec kLsMoveL = {"LsMoveL", "wgtTargetPoint", nullptr, false};
constexpr MotionSpec kLsMoveC = {"LsMoveC", "wgtAuxPoint", "wgtTargetPoint", false};
constexpr MotionSpec kLsMoveCF = {"LsMoveCF", "wgtAuxPoint1", "wgtAuxPoint2", true};

/// The texts beside the fields, translated in the context of the editor that shows them.
struct MotionCaptions {
    QStringList points;
    QString tool;
    QString wobj;
    QString speed;
    QString zone;
    QString rotType; ///< of a circle
    QString runDeg;  ///< of a circle
};

/// The form and the behaviour of all motion editors. A new line gets the controller's active tool and work object,
/// its first zone, no speed of its own ("NULL") and free point names; what an argument names and no list holds
/// leaves the list as it is. The run angle is in degrees, -359 to 3600, with four decimals.
///
/// An insert editor stores the line's new points at the robot's current position in ToString, so call it once per
/// insertion; below operator level 3 it stores none, nor while an earlier call has not returned. A property editor
/// reads an existing line in FillWith. Each agrees to its own purpose from level 3 on, unless a point's text would
/// make another line of it (see isPointArgument), and leaves the other check to the base.
///
/// A host call may take the editor away. ToString returns its line all the same, but stores nothing more, and a check
/// does not agree.
class MotionEditor : public pendix::RLContentBase
{
    Q_OBJECT

public:
    enum class Role { Insert, Property };

    ~MotionEditor() override;

    void FillWith(const QString& line) override;
    QString ToString() override;
    bool CheckInsert() override;
    bool CheckReplace() override;

protected:
    MotionEditor(const MotionSpec& spec, Role role, const MotionCaptions& captions, QWidget* parent);

    bool event(QEvent* event) override;

private:
    /// Begins the names of all points at one place, behind the widest caption.
    void alignPoints();
    void createForm(const MotionCaptions& captions);
    QComboBox* createList();
    /// Where a caption begins, and how many columns it takes; its field behind it takes as many.
    struct Place {
        int row;
        int column;
        int width;
    };
    void addField(QWidget* field, const char* name, const char* labelName, const QString& caption, const Place& place);
    void initUI(const MotionCaptions& captions);
    void readParameters(const QStringList& parameters);
    QString line() const;
    void storeNewPoints();
    bool mayBeWritten() const;

    const MotionSpec& m_spec;
    Role m_role;
    QVector<SetUpPointWidget*> m_points;
    QGridLayout* m_fields = nullptr;
    QComboBox* m_tool = nullptr;
    QComboBox* m_wobj = nullptr;
    QComboBox* m_speed = nullptr;
    QComboBox* m_zone = nullptr;
    QComboBox* m_rotType = nullptr; ///< null unless a circle
    QDoubleSpinBox* m_runDeg = nullptr;
    Business m_business;
};

#endif
