#ifndef RL_WMOVELINSERTWIDGET_H
#define RL_WMOVELINSERTWIDGET_H

#include "rl/motioneditor.h"

/// Composes a new LsMoveL line: a straight weld to a target point.
class WMoveLInsertWidget : public MotionEditor
{
    Q_OBJECT

public:
    explicit WMoveLInsertWidget(QWidget* parent = nullptr);
};

#endif
