#include "system/csysctrlpage.h"

#include "pagerect.h"
#include "sysctrlpage.h"

#include "kvwidget/kvbackgroundimage.h"
#include "support/testmain.h"
#include "system/ctouchcheckpage.h"

#include <QApplication>
#include <QtTest>

class TestCSysCtrlPage : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void rowsWithoutASizeAreNotToBeSeen();
    void endsWithTheFormsSize();
    void gpsResetClearsTheConfigurationAndReboots();
    void touchCheckTwiceMakesTwoPagesAndTheNewestIsClosed();
    void touchPageThatIsGoneIsForgotten();
    void unknownIdDoesNothing();
};

namespace
{

constexpr QPoint gpsPoint(106, 196);

QList<CTouchCheckPage *> touchPages()
{
    QList<CTouchCheckPage *> pages;
    const QWidgetList all = QApplication::topLevelWidgets();
    for (QWidget *widget : all) {
        if (auto *page = qobject_cast<CTouchCheckPage *>(widget)) {
            pages.append(page);
        }
    }
    return pages;
}

void deleteDeferred()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

void TestCSysCtrlPage::cleanup()
{
    qDeleteAll(touchPages());
}

void TestCSysCtrlPage::rowsWithoutASizeAreNotToBeSeen()
{
    OpenedPage shown;
    shown.open();
    for (const char *name : {"labDriveMode", "labDimmer", "driverModeBtn", "dimmerSwitchBtn"}) {
        const auto *widget = shown.view->findChild<QWidget *>(QString::fromLatin1(name));
        QVERIFY2(widget->visibleRegion().isEmpty(), name);
    }
}

void TestCSysCtrlPage::endsWithTheFormsSize()
{
    OpenedPage shown;
    shown.open();
    QCOMPARE(shown.page->geometry(), QRect(pageRect.topLeft(), QSize(800, 422)));
}

void TestCSysCtrlPage::gpsResetClearsTheConfigurationAndReboots()
{
    OpenedPage shown(10.0);
    shown.unit.unit().settings().setValue(QStringLiteral("gps/almanac"), 7);
    shown.open();
    QElapsedTimer clock;
    clock.start();
    shown.unit.tap(gpsPoint);
    QVERIFY2(clock.elapsed() >= 99, "one second of a unit that runs ten times as fast");
    QCOMPARE(shown.journal().mid(1),
             QStringList({"gps configuration cleared", "settings gps/almanac removed", "shell sync",
                          "mcu reboot"}));
    QVERIFY(!shown.unit.unit().settings().value(QStringLiteral("gps/almanac")).isValid());
    QVERIFY(shown.view->findChild<KvBackgroundImage *>() == nullptr);
}

void TestCSysCtrlPage::touchCheckTwiceMakesTwoPagesAndTheNewestIsClosed()
{
    OpenedPage shown;
    shown.open();
    shown.page->btnReleasedSlot(QStringLiteral("idTouchBtn"));
    const QPointer<CTouchCheckPage> first = touchPages().constFirst();
    shown.page->btnReleasedSlot(QStringLiteral("idTouchBtn"));
    QCOMPARE(touchPages().size(), 2);

    shown.page->exitTouchPageSlot();
    deleteDeferred();
    QCOMPARE(touchPages(), QList<CTouchCheckPage *>({first}));

    // Nothing is known of the first any more, also when it asks itself.
    first->backBtnClickSlot(QString());
    deleteDeferred();
    QCOMPARE(touchPages().size(), 1);
}

void TestCSysCtrlPage::touchPageThatIsGoneIsForgotten()
{
    OpenedPage shown;
    shown.open();
    shown.page->btnReleasedSlot(QStringLiteral("idTouchBtn"));
    delete touchPages().constFirst();
    shown.page->exitTouchPageSlot();
    shown.view.reset();
    deleteDeferred();
    QCOMPARE(touchPages().size(), 0);
}

void TestCSysCtrlPage::unknownIdDoesNothing()
{
    OpenedPage shown;
    shown.openWithLogsAndStick();
    for (const char *id : {"", "idOther", "idcpbtn", "idCpBtn "}) {
        shown.page->btnReleasedSlot(QString::fromLatin1(id));
    }
    QCOMPARE(shown.journal(), QStringList());
    QCOMPARE(touchPages().size(), 0);
}

FACTORY_TEST_MAIN(TestCSysCtrlPage)
#include "tst_csysctrlpage.moc"
