#include "system/csysctrlpage.h"

#include "sysctrlpage.h"

#include "kvwidget/kvbackgroundimage.h"
#include "support/testmain.h"

#include <QSignalSpy>
#include <QtTest>

class TestCSysCtrlPageCertification : public QObject
{
    Q_OBJECT

private slots:
    void certificationIsSavedBeforeTheRebootAndShownAfterIt();
    void certificationShadeIsOnTheGlassBeforeTheSleep();
    void otherSwitchesDoNothing_data();
    void otherSwitchesDoNothing();
};

namespace
{

constexpr QPoint certificationPoint(671, 107);

/// Writes into the journal whenever a widget of that class is painted.
class PaintWatch : public QObject
{
public:
    PaintWatch(hardware::Journal &journal, const char *className)
        : m_journal(journal)
        , m_className(className)
    {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && watched->inherits(m_className)) {
            m_journal.write(QStringLiteral("test"), QStringLiteral("painted"));
        }
        return false;
    }

private:
    hardware::Journal &m_journal;
    const char *m_className;
};

qint64 brightness(const QImage &image)
{
    qint64 sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            sum += qGray(image.pixel(x, y));
        }
    }
    return sum;
}

} // namespace

void TestCSysCtrlPageCertification::certificationIsSavedBeforeTheRebootAndShownAfterIt()
{
    OpenedPage shown(10.0);
    shown.open();
    QElapsedTimer clock;
    clock.start();
    shown.unit.tap(certificationPoint);
    QVERIFY2(clock.elapsed() >= 99, "one second of a unit that runs ten times as fast");
    QCOMPARE(shown.journal(),
             QStringList({"settings sysctrl/certification = true", "shell sync", "mcu reboot"}));

    shown.open();
    QVERIFY(shown.certification()->state());
    shown.unit.tap(certificationPoint);
    QCOMPARE(shown.journal().mid(3),
             QStringList({"settings sysctrl/certification = false", "shell sync", "mcu reboot"}));
    shown.open();
    QVERIFY(!shown.certification()->state());
}

void TestCSysCtrlPageCertification::certificationShadeIsOnTheGlassBeforeTheSleep()
{
    OpenedPage shown(10.0);
    shown.open();
    QCoreApplication::processEvents();
    const QImage before = glass(shown.unit);
    QCOMPARE(before.size(), QSize(800, 480));
    const PaintWatch watch(shown.unit.unit().journal(), "KvBackgroundImage");
    // What waits for the event loop comes too late to be seen.
    connect(shown.page.data(), &CSysCtrlPage::sigShowMaskBg, &watch, [&shown, &watch] {
        QMetaObject::invokeMethod(
            const_cast<PaintWatch *>(&watch),
            [&shown] {
                shown.unit.unit().journal().write(QStringLiteral("test"), QStringLiteral("event"));
            },
            Qt::QueuedConnection);
    });
    QImage atReboot;
    connect(&shown.unit.unit().mcu(), &hardware::Mcu::rebootRequested, &watch,
            [&] { atReboot = glass(shown.unit); });

    shown.page->boolBtnReleasedSlot(QStringLiteral("idCertification"), true);

    QCOMPARE(shown.journal(),
             QStringList({"settings sysctrl/certification = true", "shell sync", "test painted",
                          "mcu reboot"}));
    QVERIFY(brightness(atReboot) < brightness(before) * 8 / 10);
    QCOMPARE(shown.view->findChild<KvBackgroundImage *>()->geometry(), QRect(0, 0, 800, 480));
    QCoreApplication::processEvents();
    QVERIFY(shown.journal().contains(QStringLiteral("test event")));
}

void TestCSysCtrlPageCertification::otherSwitchesDoNothing_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("driver") << QStringLiteral("idDriverMode");
    QTest::newRow("dimmer") << QStringLiteral("idDimmerSwitch");
    QTest::newRow("other case") << QStringLiteral("idcertification");
    QTest::newRow("empty") << QString();
}

void TestCSysCtrlPageCertification::otherSwitchesDoNothing()
{
    QFETCH(QString, id);
    OpenedPage shown;
    shown.open();
    const QSignalSpy shades(shown.page.data(), &CSysCtrlPage::sigShowMaskBg);
    shown.page->boolBtnReleasedSlot(id, true);
    QCOMPARE(shown.journal(), QStringList());
    QCOMPARE(shades.count(), 0);
}

FACTORY_TEST_MAIN(TestCSysCtrlPageCertification)
#include "tst_csysctrlpage_certification.moc"
