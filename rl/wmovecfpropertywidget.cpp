#include "rl/wmovecfpropertywidget.h"

WMoveCFPropertyWidget::WMoveCFPropertyWidget(QWidget* parent)
    : MotionEditor(kLsMoveCF, Role::Property,
                   {{tr("AuxPoint1(robtarget): "), tr("AuxPoint2(robtarget): ")},
                    tr("Tool(T): "),
                    tr("Wobj(W): "),
                    tr("Speed(V): "),
                    tr("Zone(Z): "),
                    tr("RotType(rottype): "),
                    tr("RunDeg(rundeg): ")},
                   parent)
{
    setObjectName(QStringLiteral("WMoveCFPropertyWidget"));
}
