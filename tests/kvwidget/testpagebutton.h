#pragma once

#include "kvwidget/kviconbutton.h"
#include "touchscreen.h"

#include <QtTest>

// A button as the test pages have them: where it lies, and in which colours a test sees it.

const QRect place(100, 100, 210, 60);
const QPoint onButton = place.center();
const QPoint besideButton(50, 50);
const QPoint faceCorner = place.topLeft() + QPoint(2, 2);

const QColor normalColor(0, 0, 255);
const QColor pressColor(255, 0, 0);

/// Test data: the modes in which both kinds of button show their image, alone or with their text;
/// -1 is for a button whose mode is not set.
inline void addShowModes()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("textSeen");
    QTest::newRow("none set") << -1 << false;
    QTest::newRow("image") << int(KvIconButton::ShowImage) << false;
    QTest::newRow("image and text") << int(KvIconButton::ShowImageText) << true;
}
