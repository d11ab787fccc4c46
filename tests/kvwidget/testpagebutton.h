#pragma once

#include "touchscreen.h"

// A button as the test pages have them: where it lies, and in which colours a test sees it.

const QRect place(100, 100, 210, 60);
const QPoint onButton = place.center();
const QPoint besideButton(50, 50);
const QPoint faceCorner = place.topLeft() + QPoint(2, 2);

const QColor normalColor(0, 0, 255);
const QColor pressColor(255, 0, 0);
