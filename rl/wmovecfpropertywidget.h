#ifndef RL_WMOVECFPROPERTYWIDGET_H
#define RL_WMOVECFPROPERTYWIDGET_H

#include "rl/motioneditor.h"

/// Changes an existing LsMoveCF line: a weld along a full circle through two points.
class WMoveCFPropertyWidget : public MotionEditor
{
    Q_OBJECT

public:
    explicit WMoveCFPropertyWidget(QWidget* parent = nullptr);
};

#endif
