#include "gpspage.h"

#include "support/packages.h"

#include <QtTest>

QString updateReady(int ready)
{
    return QStringLiteral("mcu update ready %1").arg(ready);
}

bool shows(const CGpsComPage *page, const char *name)
{
    return find<QWidget>(page, name)->isVisible();
}

bool asks(const CGpsComPage *page)
{
    return shows(page, "popEnsure") && !shows(page, "popLoading");
}

void GpsPageTest::switchOn(int timeFactor)
{
    m_unit.reset(); // Its gate scales time.
    m_unit.reset(new TestUnit(timeFactor));
}

void GpsPageTest::switchOff()
{
    delete m_page;
    m_unit.reset();
}

void GpsPageTest::makePackage(const QString &slot, const char *file, const char *kind)
{
    const QString folder = m_unit->path(QStringLiteral("/sticks/")) + slot;
    makeGpsPackage(folder + QLatin1Char('/') + QString::fromLatin1(file), QString::fromLatin1(kind),
                   QStringLiteral("GNSS 3.1"));
}

void GpsPageTest::plugBoth()
{
    makePackage(QStringLiteral("usb0"), bootloader, "valid");
    makePackage(QStringLiteral("usb0"), firmware, "valid");
    m_unit->plug(QStringLiteral("usb0"));
}

CGpsComPage *GpsPageTest::open()
{
    m_page = new CGpsComPage(nullptr);
    const QRect geometry = m_page->geometry();
    m_page->show();
    m_page->raise();
    m_page->setParent(&m_unit->screen());
    m_page->setGeometry(geometry);
    m_page->show();
    return m_page;
}

CGpsComPage *GpsPageTest::openVerified()
{
    plugBoth();
    CGpsComPage *page = open();
    if (!QTest::qWaitFor([page] { return asks(page); })) {
        qFatal("The page does not ask.");
    }
    return page;
}
