#ifndef RL_RLLASERONINSERTWIDGET_H
#define RL_RLLASERONINSERTWIDGET_H

#include "pendix/rl.h"

#include <memory>

namespace Ui
{
class RLLaserOnInsertWidget;
}

namespace pendix
{

/// Editor of LaserOn, for inserting and for changing: the parameter set, and either a normal start or a spot weld,
/// in which the laser fires in place for a time (0 to 5000 ms) before the robot moves on.
class RLLaserOnInsertWidget : public RLContentBase
{
    Q_OBJECT

public:
    RLLaserOnInsertWidget(const QString& name, QWidget* parent = nullptr);
    ~RLLaserOnInsertWidget() override;

    /// Reads a line of any function's name. A line that is no call changes nothing, an unknown parameter set keeps
    /// the selected one, a second argument selects the spot weld and sets its time, bounded to the range, when it
    /// is a whole number.
    void FillWith(const QString& line) override;
    QString ToString() override;
    /// The same as CheckReplace.
    bool CheckInsert() override;
    /// Whether a parameter set is selected.
    bool CheckReplace() override;

    bool isInPlaceMode() const;
    void updateInPlaceWaitVisible();

private:
    void initUI();
    void readParameters(const QStringList& parameters);

    QString m_name;
    std::unique_ptr<::Ui::RLLaserOnInsertWidget> ui;
};

} // namespace pendix

#endif
