#include "rl/wmovecinsertwidget.h"

WMoveCInsertWidget::WMoveCInsertWidget(QWidget* parent)
    : MotionEditor(kLsMoveC, Role::Insert,
                   {{tr("AuxPoint(robtarget): "), tr("TargetPoint(robtarget): ")},
                    tr("Tool(T): "),
                    tr("Wobj(W): "),
                    tr("Speed(V): "),
                    tr("Zone(Z): "),
                    QString(),
                    QString()},
                   parent)
{
    setObjectName(QStringLiteral("WMoveCInsertWidget"));
}
