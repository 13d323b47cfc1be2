#ifndef RL_RLCUSTOMPROPRETYWIDGET_H
#define RL_RLCUSTOMPROPRETYWIDGET_H

#include "pendix/rl.h"

#include <memory>

namespace Ui
{
class RLCustomPropretyWidget;
}

namespace pendix
{

/// Generic editor to change an instruction that takes two values as they are typed. Exported for the host; the
/// package registers it for no instruction.
class Q_DECL_EXPORT RLCustomPropretyWidget : public RLContentBase
{
    Q_OBJECT

public:
    RLCustomPropretyWidget(const QString& name, QWidget* parent = nullptr);
    ~RLCustomPropretyWidget() override;

    /// Fills nothing: the line is only logged.
    void FillWith(const QString& line) override;
    /// The name, a blank, and the two texts with a comma between them.
    QString ToString() override;
    bool CheckReplace() override;

private:
    QString m_name;
    std::unique_ptr<::Ui::RLCustomPropretyWidget> ui;
};

} // namespace pendix

#endif
