#ifndef RL_WMOVECPROPERTYWIDGET_H
#define RL_WMOVECPROPERTYWIDGET_H

#include "rl/motioneditor.h"

/// Changes an existing LsMoveC line: a weld along an arc through a middle point.
class WMoveCPropertyWidget : public MotionEditor
{
    Q_OBJECT

public:
    explicit WMoveCPropertyWidget(QWidget* parent = nullptr);
};

#endif
