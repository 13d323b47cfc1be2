#ifndef RL_WMOVECFINSERTWIDGET_H
#define RL_WMOVECFINSERTWIDGET_H

#include "rl/motioneditor.h"

/// Composes a new LsMoveCF line: a weld along a full circle through two points.
class WMoveCFInsertWidget : public MotionEditor
{
    Q_OBJECT

public:
    explicit WMoveCFInsertWidget(QWidget* parent = nullptr);
};

#endif
