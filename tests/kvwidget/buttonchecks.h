#pragma once

#include "support/runcheck.h"
#include "touchscreen.h"

#include <QPointer>
#include <QtTest>

/// Whether that was a pure blue before a disabled widget dimmed it: clearly darker, still there.
inline bool isDimmedBlue(const QColor &color)
{
    return color.blue() > 50 && color.blue() < 150;
}

/// That a slot of \a signal, which a tap there brings about, may delete the button.
template <typename Button, typename Signal>
void checkSlotMayDelete(Signal signal, const QPoint &onButton)
{
    TouchScreen screen;
    const QPointer<Button> button(new Button(&screen));
    QObject::connect(button, signal, &screen, [&] { delete button; });
    QVERIFY(screen.turnOn());
    screen.tap(onButton);
    QVERIFY(button.isNull());
}

/// That a style sheet colours \a button there, where no image of it lies. Turns the screen on.
inline void checkStyleSheetPaints(TouchScreen &screen, QWidget &button, const QPoint &besideImage)
{
    button.setStyleSheet(QStringLiteral("background-color: rgb(10, 20, 30);"));
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(besideImage), QColor(10, 20, 30));
}
