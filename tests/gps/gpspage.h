#pragma once

#include "gps/gpscomage.h"

#include "support/testunit.h"

#include <QPointer>
#include <QScopedPointer>

const char bootloader[] = "gps_bootloader.pkg";
const char firmware[] = "gps_firmware.pkg";
constexpr QPoint updatePoint(62 + 159 + 70, 108 + 179 + 30);
constexpr QPoint cancelPoint(62 + 377 + 70, 108 + 179 + 30);

/// The journal's line.
QString updateReady(int ready);

/// The form's widget of that name; ends the test program when there is none.
template <typename Widget> Widget *find(const CGpsComPage *page, const char *name)
{
    auto *widget = page->findChild<Widget *>(QString::fromLatin1(name));
    if (widget == nullptr) {
        qFatal("The page has no %s.", name);
    }
    return widget;
}

bool shows(const CGpsComPage *page, const char *name);
/// Whether it asks if the update is to begin.
bool asks(const CGpsComPage *page);

/// What tests of the page have alike: a unit, and the page on its screen.
class GpsPageTest
{
protected:
    /// For when only pauses are to be shortened.
    static const int hasty = 20;

    /// Switches a unit on, in place of the former one.
    void switchOn(int timeFactor = hasty);
    /// Page and unit have gone then.
    void switchOff();

    void makePackage(const QString &slot, const char *file, const char *kind);
    /// A stick with both files.
    void plugBoth();

    /// As the main view does, and as the unit has it: on its one screen.
    CGpsComPage *open();
    /// With both files, and waits until it asks.
    CGpsComPage *openVerified();

    QScopedPointer<TestUnit> m_unit;
    QPointer<CGpsComPage> m_page;
};
