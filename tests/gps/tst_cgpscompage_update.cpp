#include "gps/gpscomage.h"

#include "gps/cgpsfwinfo.h"
#include "gpspage.h"

#include "support/testmain.h"

#include "kvwidget/kviconbutton.h"
#include "mcu/cmsgclass.h"

#include <QLabel>
#include <QPointer>
#include <QtTest>

class TestCGpsComPageUpdate : public QObject, private GpsPageTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void cancelReactsToAClick();
    void updateReactsToARelease();
    void unknownIdIsIgnored();
    void updateUpgradesAndReboots();
    void updatingTextIsOnTheGlassBeforeTheThreadBlocks();
    void updateWithoutPathsOnlyBeeps();

    void stickPulledWhileVerifying();
    void stickPulledAfterVerification();
    void stickPluggedChangesNothing();
};

void TestCGpsComPageUpdate::init()
{
    switchOn();
}

void TestCGpsComPageUpdate::cleanup()
{
    switchOff();
}

void TestCGpsComPageUpdate::cancelReactsToAClick()
{
    openVerified();
    m_unit->press(cancelPoint);
    QTest::qWait(20);
    QVERIFY(!m_page.isNull());
    m_unit->release(cancelPoint);
    QTRY_VERIFY(m_page.isNull());
    QCOMPARE(m_unit->journal(QStringLiteral("/^log /")),
             QStringList({QStringLiteral("log INFO CGpsComPage systemNewInfoSlot, idCancelBtn\\n"),
                          QStringLiteral("log INFO CGpsComPage returnSlot\\n")}));
    QCOMPARE(m_unit->journal(QStringLiteral("update ready")).last(), updateReady(0));
}

void TestCGpsComPageUpdate::updateReactsToARelease()
{
    const CGpsComPage *page = openVerified();
    QPointer<QLabel> label = find<QLabel>(page, "label_1");
    // A missing port ends the upgrade at once.
    QVERIFY(QFile::remove(m_unit->path(QStringLiteral("/dev/ttyS3"))));
    auto *button = find<KvIconButton>(page, "updateButton");
    emit button->btnClicked(button->buttonID());
    m_unit->press(updatePoint);
    QTest::qWait(20);
    QVERIFY(asks(page));
    m_unit->release(updatePoint);
    QTRY_COMPARE(m_unit->journal(QStringLiteral("mcu reboot")).size(), 1);
    QCOMPARE(label->text(), QStringLiteral("GPS Firmware Updating..."));
    QVERIFY(shows(page, "popLoading"));
    QVERIFY(!shows(page, "popEnsure"));
}

void TestCGpsComPageUpdate::unknownIdIsIgnored()
{
    const CGpsComPage *page = openVerified();
    auto *info = page->findChild<CGpsFwInfo *>();
    info->systemNewInfoSlot(QStringLiteral("idupdatebtn"));
    QVERIFY(asks(page));
    QCOMPARE(m_unit->journal(QStringLiteral("/^log /")),
             QStringList(QStringLiteral("log INFO CGpsComPage systemNewInfoSlot, idupdatebtn\\n")));
}

void TestCGpsComPageUpdate::updateUpgradesAndReboots()
{
    switchOn(4); // Time for both to be in time with their answers.
    openVerified();
    const qint64 before = m_unit->unit().journal().end();
    m_unit->tap(updatePoint);
    QTRY_VERIFY_WITH_TIMEOUT(!m_unit->journal(QStringLiteral("mcu reboot")).isEmpty(), 60000);
    QCOMPARE(m_unit->unit().versions().gps(), QStringLiteral("GNSS 3.1"));
    QStringList lines =
        m_unit->unit().journal().lines(QStringLiteral("/^(log|mcu|gps|shell) /"), before);
    QCOMPARE(lines,
             QStringList({
                 QStringLiteral("log INFO CGpsComPage systemNewInfoSlot, idUpdateBtn\\n"),
                 QStringLiteral("mcu beep 0"),
                 QStringLiteral("gps service stopped"),
                 QStringLiteral("shell sync"),
                 QStringLiteral("mcu reboot"),
             }));
}

void TestCGpsComPageUpdate::updatingTextIsOnTheGlassBeforeTheThreadBlocks()
{
    /// Notes what the pop-up's label paints, and when.
    class PaintWatch : public QObject
    {
    public:
        explicit PaintWatch(hardware::Journal &journal)
            : m_journal(journal)
        {
        }

        bool eventFilter(QObject *watched, QEvent *event) override
        {
            if (event->type() == QEvent::Paint) {
                m_journal.write(QStringLiteral("painted"), static_cast<QLabel *>(watched)->text());
            }
            return false;
        }

    private:
        hardware::Journal &m_journal;
    };

    const CGpsComPage *page = openVerified();
    PaintWatch watch(m_unit->unit().journal());
    find<QLabel>(page, "label_1")->installEventFilter(&watch);
    QVERIFY(QFile::remove(m_unit->path(QStringLiteral("/dev/ttyS3"))));
    page->findChild<CGpsFwInfo *>()->systemNewInfoSlot(QStringLiteral("idUpdateBtn"));
    QVERIFY(m_unit->journal(QStringLiteral("beep")).isEmpty());
    // The queued call comes ahead of the event that would paint.
    QCoreApplication::sendPostedEvents(m_page, QEvent::MetaCall);
    QVERIFY(!m_unit->journal(QStringLiteral("mcu reboot")).isEmpty());
    QCOMPARE(m_unit->journal(QStringLiteral("/^(painted|gps)/")),
             QStringList({QStringLiteral("painted GPS Firmware Updating..."),
                          QStringLiteral("gps service stopped")}));
}

void TestCGpsComPageUpdate::updateWithoutPathsOnlyBeeps()
{
    CGpsComPage *page = new CGpsComPage(nullptr);
    page->updateSlot();
    QCOMPARE(m_unit->journal(QStringLiteral("mcu beep")).size(), 1);
    QVERIFY(m_unit->journal(QStringLiteral("/^(gps|shell) /")).isEmpty());
    delete page;
}

void TestCGpsComPageUpdate::stickPulledWhileVerifying()
{
    switchOn(1); // A second, before the worker's result comes.
    plugBoth();
    open();
    // The worker has read both files.
    QTRY_COMPARE(m_unit->journal(QStringLiteral("gate fopen(")).size(), 2);
    QTest::qWait(200);
    QString error;
    QVERIFY(m_unit->unit().storage().pull(QStringLiteral("usb0"), &error));
    QTRY_COMPARE(m_unit->journal(QStringLiteral("update ready")),
                 QStringList({updateReady(0), updateReady(1), updateReady(0)}));
    QVERIFY(shows(m_page, "popLoading"));
    // What was found is told all the same, and that there is nothing to update from is not.
    QTRY_VERIFY(m_page.isNull() || asks(m_page));
    QVERIFY(!m_page.isNull());
}

void TestCGpsComPageUpdate::stickPulledAfterVerification()
{
    const CGpsComPage *page = openVerified();
    emit CMsgClass::getInstance()->sigDevRootPath(QString());
    QCOMPARE(m_unit->journal(QStringLiteral("update ready")).last(), updateReady(1));
    QString error;
    QVERIFY(m_unit->unit().storage().pull(QStringLiteral("usb0"), &error));
    QTRY_COMPARE(m_unit->journal(QStringLiteral("update ready")).last(), updateReady(0));
    QVERIFY(asks(page));
    m_unit->tap(updatePoint);
    // The upgrade fails for want of the file, and the unit restarts all the same.
    QTRY_VERIFY_WITH_TIMEOUT(!m_unit->journal(QStringLiteral("mcu reboot")).isEmpty(), 60000);
    QCOMPARE(m_unit->journal(QStringLiteral("gps service stopped")).size(), 1);
    QVERIFY(m_unit->journal(QStringLiteral("bootloader received")).isEmpty());
    QCOMPARE(m_unit->unit().versions().gps(), QStringLiteral("GNSS 1.04.2"));
}

void TestCGpsComPageUpdate::stickPluggedChangesNothing()
{
    const CGpsComPage *page = openVerified();
    const QStringList before = m_unit->journal(QStringLiteral("update ready"));
    m_unit->plug(QStringLiteral("usb1"));
    QTest::qWait(50);
    QCOMPARE(m_unit->journal(QStringLiteral("update ready")), before);
    QVERIFY(asks(page));
}

FACTORY_TEST_MAIN(TestCGpsComPageUpdate)
#include "tst_cgpscompage_update.moc"
