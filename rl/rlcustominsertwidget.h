#ifndef RL_RLCUSTOMINSERTWIDGET_H
#define RL_RLCUSTOMINSERTWIDGET_H

#include "pendix/rl.h"

#include <memory>

namespace Ui
{
class RLCustomInsertWidget;
}

namespace pendix
{

/// Generic editor to insert an instruction that takes two values as they are typed. Exported for the host; the
/// package registers it for no instruction.
class Q_DECL_EXPORT RLCustomInsertWidget : public RLContentBase
{
    Q_OBJECT

public:
    RLCustomInsertWidget(const QString& name, QWidget* parent = nullptr);
    ~RLCustomInsertWidget() override;

    /// Fills nothing: the line is only logged.
    void FillWith(const QString& line) override;
    /// The name, a blank, and the two texts with a comma between them.
    QString ToString() override;
    bool CheckInsert() override;

private:
    QString m_name;
    std::unique_ptr<::Ui::RLCustomInsertWidget> ui;
};

} // namespace pendix

#endif
