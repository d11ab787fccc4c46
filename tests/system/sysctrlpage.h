#pragma once

#include "system/csysctrlpage.h"

#include "factorydebug/factorydebugview.h"
#include "kvwidget/cboolbutton.h"
#include "kvwidget/kviconbutton.h"
#include "support/testunit.h"

#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QtTest>
#include <QWindow>

const QString logFile = QStringLiteral("/media/flash/userdata/log_service/system.log");

constexpr QPoint menuEntry(630, 280); // its middle, on the screen

/// The page in its view on the unit's screen, opened by touch.
struct OpenedPage
{
    explicit OpenedPage(double timeFactor = 1.0)
        : unit(timeFactor)
    {
    }

    void open()
    {
        view.reset();
        view.reset(
            new FactoryDebugView(unit.framework().layer(kvappframework::UI_HERARCHY_ACTIVITY)));
        view->show();
        unit.tap(menuEntry);
        page = view->findChild<CSysCtrlPage *>();
        QVERIFY(page != nullptr);
    }

    void openWithLogsAndStick()
    {
        writeFile(unit.path(logFile), "log");
        unit.plug(QStringLiteral("usb0"));
        open();
    }

    KvIconButton *icon(const char *name) const
    {
        return view->findChild<KvIconButton *>(QString::fromLatin1(name));
    }

    CBoolButton *certification() const
    {
        return view->findChild<CBoolButton *>(QStringLiteral("CertificationBtn"));
    }

    QStringList journal() const
    {
        return unit.journal(QStringLiteral("/^((settings|shell|gps|test) |mcu (reboot|beep))/"));
    }

    TestUnit unit;
    QScopedPointer<FactoryDebugView> view;
    QPointer<CSysCtrlPage> page;
};

/// What the window system has of the screen's window now, without painting anything.
inline QImage glass(TestUnit &unit)
{
    return QGuiApplication::primaryScreen()
        ->grabWindow(unit.screen().winId())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}
