#ifndef RL_WMOVELPROPERTYWIDGET_H
#define RL_WMOVELPROPERTYWIDGET_H

#include "rl/motioneditor.h"

/// Changes an existing LsMoveL line: a straight weld to a target point.
class WMoveLPropertyWidget : public MotionEditor
{
    Q_OBJECT

public:
    explicit WMoveLPropertyWidget(QWidget* parent = nullptr);
};

#endif
