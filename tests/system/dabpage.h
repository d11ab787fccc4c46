#pragma once

#include "system/csysctrlpage.h"

#include "pagerect.h"

#include "kvwidget/kviconbutton.h"
#include "support/testunit.h"

#include <QtTest>

constexpr QPoint dabPoint(458, 196);
const double fast = 50.0; // an update of ten seconds lasts 200 ms
const QString runningText = QStringLiteral("DAB updata ...\nSDK 3.2.1");
const QString okText = QStringLiteral("DAB updata ok\nPlease reboot!");
const QString formText = QStringLiteral("DAB FW Update");

struct DabPage
{
    DabPage()
        : unit(fast)
    {
    }

    void open()
    {
        page.reset();
        auto *view = new KvWidget(&unit.screen());
        view->setGeometry(0, 0, 800, 480);
        host.reset(view);
        page.reset(new CSysCtrlPage(pageRect, view));
        view->show();
    }

    void plugWithFirmware()
    {
        unit.plug(QStringLiteral("usb0"));
        writeFile(unit.path(QStringLiteral("/media/usb0/dab_firmware.bin")), QByteArray(1234, 'f'));
    }

    void pull(const char *slot)
    {
        QString error;
        QVERIFY2(unit.unit().storage().pull(QString::fromLatin1(slot), &error), qPrintable(error));
    }

    KvIconButton *button() const
    {
        return page->findChild<KvIconButton *>(QStringLiteral("dabBtn"));
    }

    hardware::DabTuner &tuner() { return unit.unit().dabTuner(); }

    /// Waits for a line of the journal without handling any event.
    bool blindlyAwait(const QString &pattern)
    {
        return unit.unit().journal().waitFor(hardware::JournalPattern(pattern), 0, 20000) >= 0;
    }

    TestUnit unit;
    QScopedPointer<KvWidget> host;
    QScopedPointer<CSysCtrlPage> page;
};
