#include "rl/wmovelpropertywidget.h"

WMoveLPropertyWidget::WMoveLPropertyWidget(QWidget* parent)
    : MotionEditor(kLsMoveL, Role::Property,
                   {{tr("TargetPoint(robtarget): ")},
                    tr("Tool(T): "),
                    tr("Wobj(W): "),
                    tr("Speed(V): "),
                    tr("Zone(Z): "),
                    QString(),
                    QString()},
                   parent)
{
    setObjectName(QStringLiteral("WMoveLPropertyWidget"));
}
