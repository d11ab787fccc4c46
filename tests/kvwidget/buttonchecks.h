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

/// Test data: a property, a value that it does not have yet, and whether that can be seen.
inline void addPropertyColumns()
{
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("seen");
}

/// That a form may set the property: it keeps the value, is painted anew, and emits nothing.
template <typename Button> void checkProperty()
{
    QFETCH(QByteArray, property);
    QFETCH(QVariant, value);
    QFETCH(bool, seen);
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    QVERIFY(!repaintsAfter(button, [] {}));
    bool declared = false;
    const bool painted =
        repaintsAfter(button, [&] { declared = button.setProperty(property, value); });
    QVERIFY(declared);
    QVERIFY(painted || !seen);
    const QVariant kept = button.property(property);
    if (value.userType() == QMetaType::QPixmap) {
        QCOMPARE(kept.value<QPixmap>().size(), value.value<QPixmap>().size());
    } else if (value.userType() == QMetaType::Int) {
        // What is kept may be an enumerator.
        QCOMPARE(kept.toInt(), value.toInt());
    } else {
        QCOMPARE(kept, value);
    }
    QCOMPARE(button.heard, QStringList());
}

/// That a style sheet colours \a button there, where no image of it lies. Turns the screen on.
inline void checkStyleSheetPaints(TouchScreen &screen, QWidget &button, const QPoint &besideImage)
{
    button.setStyleSheet(QStringLiteral("background-color: rgb(10, 20, 30);"));
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(besideImage), QColor(10, 20, 30));
}
