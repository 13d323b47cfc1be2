#include "rl/wmovecpropertywidget.h"

WMoveCPropertyWidget::WMoveCPropertyWidget(QWidget* parent)
    : MotionEditor(kLsMoveC, Role::Property,
                   {{tr("AuxPoint(robtarget): "), tr("TargetPoint(robtarget): ")},
                    tr("Tool(T): "),
                    tr("Wobj(W): "),
                    tr("Speed(V): "),
                    tr("Zone(Z): "),
                    QString(),
                    QString()},
                   parent)
{
    setObjectName(QStringLiteral("WMoveCPropertyWidget"));
}
