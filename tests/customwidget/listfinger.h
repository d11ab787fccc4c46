#pragma once

#include "fingerlist.h"

#include <QScrollBar>

inline int value(FingerList &finger)
{
    return finger.list().verticalScrollBar()->value();
}

/// Ends a gesture with the last point at that height, without a click.
inline void leaveLastPointAt(FingerList &finger, int y)
{
    finger.press(y - 20);
    finger.move(y);
    finger.release(y);
    finger.list().verticalScrollBar()->setValue(0);
    finger.takeNews();
}
