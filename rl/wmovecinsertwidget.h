#ifndef RL_WMOVECINSERTWIDGET_H
#define RL_WMOVECINSERTWIDGET_H

#include "rl/motioneditor.h"

/// Composes a new LsMoveC line: a weld along an arc through a middle point.
class WMoveCInsertWidget : public MotionEditor
{
    Q_OBJECT

public:
    explicit WMoveCInsertWidget(QWidget* parent = nullptr);
};

#endif
