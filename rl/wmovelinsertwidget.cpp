#include "rl/wmovelinsertwidget.h"

WMoveLInsertWidget::WMoveLInsertWidget(QWidget* parent)
    : MotionEditor(kLsMoveL, Role::Insert,
                   {{tr("TargetPoint(robtarget): ")},
                    tr("Tool(T): "),
                    tr("Wobj(W): "),
                    tr("Speed(V): "),
                    tr("Zone(Z): "),
                    QString(),
                    QString()},
                   parent)
{
    setObjectName(QStringLiteral("WMoveLInsertWidget"));
}
