#pragma once

#include "update/userupdatedialog.h"

#include "kvwidget/popupview.h"
#include "support/packages.h"
#include "support/testunit.h"

#include <QtTest>

using Dialog = UserUpdateDialog;

// A check lasts 0.15 s, and a pop-up 3 s.
const double speed = 10;

const QString package = QStringLiteral("/ORRERY_PACK.BIN");
constexpr QRect screen(0, 0, 800, 480);

/// A unit, and dialogs on its screen.
class Desk
{
public:
    Desk()
        : unit(speed)
        , host(&unit.screen())
    {
        host.setGeometry(screen);
        host.show();
    }

    /// Plugs the slot's own stick, with a package on it.
    void plugPackage(const QString &slot, const QStringList &options = QStringList())
    {
        makeUpdatePackage(unit.path(QStringLiteral("/sticks/") + slot + package), options);
        unit.plug(slot);
    }

    Dialog *open(int type)
    {
        auto *dialog = new Dialog(screen, static_cast<Dialog::DeviceType>(type), &host);
        dialog->show();
        return dialog;
    }

    /// Uses another table of slots: "<slot> <media type> <controller>" each.
    void useSlots(const QStringList &table)
    {
        QByteArray text;
        for (const QString &row : table) {
            const QStringList fields = row.split(QLatin1Char(' '));
            text += QStringLiteral("[%1]\nmediaType = %2\ncontroller = %3\nmountRoot = /media/%1\n")
                        .arg(fields.at(0), fields.at(1), fields.at(2))
                        .toUtf8();
        }
        writeFile(unit.path(QStringLiteral("/slots.ini")), text);
        QString error;
        QVERIFY2(unit.unit().storage().open(&error), qPrintable(error));
    }

    void useSdFirst()
    {
        useSlots({QStringLiteral("sd0 1 0"), QStringLiteral("sd1 1 1"), QStringLiteral("usb0 2 0"),
                  QStringLiteral("usb1 2 1")});
    }

    QStringList handOver() const
    {
        return unit.journal(QStringLiteral("/^(update data|vendor|mcu|platform)/"));
    }

    TestUnit unit;
    QWidget host;
};

inline QString text(const Dialog *dialog)
{
    return dialog->findChild<PopupView *>()->text();
}
