#ifndef RL_RLPARASETINSERTWIDGET_H
#define RL_RLPARASETINSERTWIDGET_H

#include "pendix/rl.h"

#include <memory>

namespace Ui
{
class RLParaSetInsertWidget;
}

namespace pendix
{

/// Editor of LsParaSet, for inserting and for changing: the parameter set to switch to, and whether at once, with a
/// ramp over a time (0 to 1000 ms) or with a ramp over the way.
class RLParaSetInsertWidget : public RLContentBase
{
    Q_OBJECT

public:
    RLParaSetInsertWidget(const QString& name, QWidget* parent = nullptr);
    ~RLParaSetInsertWidget() override;

    /// Reads a line of any function's name. A line that is no call, or has no arguments, changes nothing; an
    /// unknown parameter set keeps the selected one; a line with one argument keeps the ramp.
    void FillWith(const QString& line) override;
    QString ToString() override;
    bool CheckInsert() override;
    bool CheckReplace() override;

private:
    void initUI();
    void showRampTime(const QString& ramp);
    void readRamp(const QStringList& parameters);

    QString m_name;
    std::unique_ptr<::Ui::RLParaSetInsertWidget> ui;
};

} // namespace pendix

#endif
