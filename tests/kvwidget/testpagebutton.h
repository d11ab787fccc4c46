#pragma once

#include "touchscreen.h"

// A button as the test pages have them: where it lies, and in which colours a test sees it.

constexpr QRect place(100, 100, 210, 60);
const QPoint onButton = place.center();
constexpr QPoint besideButton(50, 50);
const QPoint faceCorner = place.topLeft() + QPoint(2, 2);

constexpr QColor normalColor(0, 0, 255);
constexpr QColor pressColor(255, 0, 0);
