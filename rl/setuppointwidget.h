#ifndef RL_SETUPPOINTWIDGET_H
#define RL_SETUPPOINTWIDGET_H

#include "common/business.h"

#include <QStringList>
#include <QWidget>

#include <memory>

class QComboBox;
class QDoubleSpinBox;
class QPushButton;

namespace Ui
{
class SetUpPointWidget;
}

/// One point argument of a motion: a robtarget's name, chosen from the controller's or typed, as it is or wrapped
/// in `Offs(point,x,y,z)` (offset in mm) or `RelTool(point,x,y,z,a,b,c)` (offset in mm, Euler angles in degrees).
/// Offsets range from -999999 to 999999 with six decimals; an instruction carries six significant digits of them.
/// Can store the robot's current position under a new name. A host call may take the widget away.
class SetUpPointWidget : public QWidget
{
    Q_OBJECT

public:
    /// Proposes the index-th free name, see init.
    explicit SetUpPointWidget(int index, QWidget* parent = nullptr);
    explicit SetUpPointWidget(QWidget* parent = nullptr);
    ~SetUpPointWidget() override;

    /// Reads the controller's points and proposes the index-th free name (1: the first). Hides the offsets.
    void init(int index);
    void setPointName(const QString& caption);
    /// What the caption takes, in pixels, and the least that it is given: points below each other line up by these.
    int captionWidth() const;
    void setCaptionRoom(int width);
    /// Reads the points again and proposes again.
    void refreshPointList();

    /// The argument as it stands in an instruction.
    QString getResult() const;
    /// Whether a line may hold that argument, see isPointArgument.
    bool isWritable() const;
    /// Fills the widget from an argument. An expression that can't be read, of another function or with another
    /// number of arguments changes nothing; an offset that is no number becomes 0.
    void setPointText(const QString& text);
    /// The typed name, when a point may be stored under it and the list does not hold it; else empty.
    QString newPointName() const;
    /// Stores the robot's current position under the new name, if there is one, see storePoint.
    void savePoint(const QString& tool, const QString& wobj);
    /// Stores the robot's current position under the name, unless it is empty, the controller has it by now, the
    /// operator's level is below 3, or the widget does not live to see these answers.
    void storePoint(const QString& name, const QString& tool, const QString& wobj) const;
    void resetSbx();

    /// Fills a list with the controller's points; a name that is not null becomes its text. Ignores null, and a list
    /// that is gone when the controller has answered.
    static void initPointListCbx(QComboBox* box, const QString& name);
    static void initInsertPointListCbx(QComboBox* box, int index);
    /// The index-th name "p1", "p2", ... that is free among the names; see freshName.
    static QString getNewPointPName(const QStringList& names, int index);
    static QString getNewName(const QStringList& names, const QString& prefix, int index);

private slots:
    void onBtnOffsClicked();
    void onBtnRelToolClicked();

private:
    enum class Mode { Plain, Offs, RelTool };
    struct ModeRow;
    static const ModeRow kModes[];

    const ModeRow* row(Mode mode) const;
    QPushButton* button(Mode mode) const;
    QVector<QDoubleSpinBox*> numbers() const;
    void toggle(Mode mode);
    void enter(const ModeRow& row);
    void setSelected(QPushButton* button, bool selected);
    void showRotation(bool shown);

    std::unique_ptr<Ui::SetUpPointWidget> ui;
    int m_index = 1;
    Mode m_mode = Mode::Plain;
    Business m_business;
};

#endif
