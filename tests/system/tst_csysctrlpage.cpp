#include "system/csysctrlpage.h"

#include "factorydebug/factorydebugview.h"
#include "kvwidget/cboolbutton.h"
#include "kvwidget/kvbackgroundimage.h"
#include "kvwidget/kviconbutton.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "system/ctouchcheckpage.h"

#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QSignalSpy>
#include <QtTest>
#include <QWindow>

#include <thread>

class TestCSysCtrlPage : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();

    void button_data();
    void button();
    void switchButton_data();
    void switchButton();
    void labels();
    void rowsWithoutASizeAreNotToBeSeen();
    void backgroundIsBlack();

    void certificationShowsTheStoredState_data();
    void certificationShowsTheStoredState();
    void certificationIsNeitherToldNorSavedOnOpening();
    void certificationIsSavedBeforeTheRebootAndShownAfterIt();
    void certificationShadeIsOnTheGlassBeforeTheSleep();
    void otherSwitchesDoNothing_data();
    void otherSwitchesDoNothing();

    void gpsResetClearsTheConfigurationAndReboots();

    void copyButtonFaces_data();
    void copyButtonFaces();
    void copyButtonFollowsTheStorage();
    void withoutLogFolderTheCopyButtonStartsDisabledUntilAStorageEvent();
    void copyWithoutLogFolderOnlyMakesTheTarget();
    void copyShowsThatItRunsAndIsReadyAgain();
    void copyToAFullStickGoesOn();
    void copyToAStickThatWasJustPulledRunsNothing();
    void checkOutTellsWhetherItCopied();

    void touchCheckOpensOverEverything();
    void touchCheckTwiceMakesTwoPagesAndTheNewestIsClosed();
    void touchPageThatIsGoneIsForgotten();
    void touchPageGoesWithThePage();
    void unknownIdDoesNothing();
};

namespace
{

const QRect pageRect(QPoint(0, 66), QPoint(799, 477));
const QString logFile = QStringLiteral("/media/flash/userdata/log_service/system.log");
const QString certificationKey = QStringLiteral("sysctrl/certification");

// Middles of what is to be touched, on the screen.
const QPoint menuEntry(630, 280);
const QPoint certificationPoint(671, 107);
const QPoint gpsPoint(106, 196);
const QPoint copyPoint(282, 196);
const QPoint touchPoint(634, 196);

/// The page in its view on the unit's screen, opened by touch.
struct Page
{
    explicit Page(double timeFactor = 1.0)
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

/// What the window system has of the screen's window now, without painting anything.
QImage glass(TestUnit &unit)
{
    return QGuiApplication::primaryScreen()
        ->grabWindow(unit.screen().winId())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

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

void TestCSysCtrlPage::cleanup()
{
    qDeleteAll(touchPages());
}

void TestCSysCtrlPage::button_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("left");
    QTest::addColumn<bool>("hasDisabledFace");
    QTest::newRow("gps") << "gpsRstBtn"
                         << "idGpsRstBtn"
                         << "GPS RESET" << 36 << false;
    QTest::newRow("copy") << "copyBtn"
                          << "idCpBtn"
                          << "SYSTEMLOG" << 212 << true;
    // The DAB service's version stands on the button at once.
    QTest::newRow("dab") << "dabBtn"
                         << "idDabBtn"
                         << "DAB FW Updata \nSDK 3.2.1" << 388 << true;
    QTest::newRow("touch") << "touchBtn"
                           << "idTouchBtn"
                           << "Touch Check" << 564 << true;
}

void TestCSysCtrlPage::button()
{
    QFETCH(QString, name);
    QFETCH(QString, id);
    QFETCH(QString, text);
    QFETCH(int, left);
    QFETCH(bool, hasDisabledFace);
    Page shown;
    shown.open();
    const KvIconButton *button = shown.icon(qPrintable(name));
    QCOMPARE(button->geometry(), QRect(left, 100, 140, 60));
    QCOMPARE(button->buttonID(), id);
    QCOMPARE(button->displayText(), text);
    QCOMPARE(button->showMode(), KvIconButton::ShowImageText);
    const auto sameAs = [](const QPixmap &pixmap, const char *path) {
        const QImage image = QPixmap(QString::fromLatin1(path)).toImage();
        return !image.isNull() && pixmap.toImage() == image;
    };
    const char normal[] = ":/images/pop/sw_popup_gray_nrm.png";
    QVERIFY(sameAs(button->normalImage(), normal));
    QVERIFY(sameAs(button->pressImage(), normal));
    QVERIFY(sameAs(button->overImage(), ":/images/pop/sw_popup_psh.png"));
    QCOMPARE(button->disableImage().isNull(), !hasDisabledFace);
    if (hasDisabledFace) {
        QVERIFY(sameAs(button->disableImage(), ":/images/pop/sw_popup_gray_dis.png"));
        QCOMPARE(int(button->disableMode()), 1);
    }
}

void TestCSysCtrlPage::switchButton_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("id");
    QTest::addColumn<QRect>("row");
    QTest::newRow("driver") << "driverModeBtn"
                            << "idDriverMode" << QRect(0, 167, 0, 0);
    QTest::newRow("dimmer") << "dimmerSwitchBtn"
                            << "idDimmerSwitch" << QRect(0, 84, 0, 0);
    QTest::newRow("certification") << "CertificationBtn"
                                   << "idCertification" << QRect(0, 0, 800, 83);
}

void TestCSysCtrlPage::switchButton()
{
    QFETCH(QString, name);
    QFETCH(QString, id);
    QFETCH(QRect, row);
    Page shown;
    shown.open();
    const auto *button = shown.view->findChild<CBoolButton *>(name);
    QCOMPARE(button->geometry(), QRect(631, 10, 80, 62));
    QCOMPARE(button->parentWidget()->geometry(), row);
    QCOMPARE(button->buttonID(), id);
    QCOMPARE(button->onImage().size(), QSize(80, 62));
    QCOMPARE(button->offImage().size(), QSize(80, 62));
    QVERIFY(button->onImage().toImage() != button->offImage().toImage());
}

void TestCSysCtrlPage::labels()
{
    Page shown;
    shown.open();
    const auto label = [&shown](const char *name) {
        return shown.view->findChild<QLabel *>(QString::fromLatin1(name));
    };
    QCOMPARE(label("label_3")->text(), QStringLiteral("Certification"));
    QCOMPARE(label("label_3")->geometry(), QRect(34, 0, 350, 83));
    QCOMPARE(label("label_3")->font().pointSize(), 30);
    QCOMPARE(label("label_3")->palette().color(QPalette::WindowText), QColor(240, 240, 240));
    QCOMPARE(label("labDriveMode")->text(), QStringLiteral("DriverRight"));
    QCOMPARE(label("labDriveMode")->geometry(), QRect(34, 0, 300, 83));
    QCOMPARE(label("labDimmer")->text(), QStringLiteral("DimmerSwitch"));
    QCOMPARE(label("labDimmer")->geometry(), QRect(34, 0, 300, 83));
}

void TestCSysCtrlPage::rowsWithoutASizeAreNotToBeSeen()
{
    Page shown;
    shown.open();
    for (const char *name : {"labDriveMode", "labDimmer", "driverModeBtn", "dimmerSwitchBtn"}) {
        const auto *widget = shown.view->findChild<QWidget *>(QString::fromLatin1(name));
        QVERIFY2(widget->visibleRegion().isEmpty(), name);
    }
}

void TestCSysCtrlPage::backgroundIsBlack()
{
    Page shown;
    shown.open();
    QVERIFY(shown.page->testAttribute(Qt::WA_StyledBackground));
    // The form's own size has the last word.
    QCOMPARE(shown.page->geometry(), QRect(pageRect.topLeft(), QSize(800, 422)));
    const QImage image = shown.page->grab().toImage();
    QCOMPARE(image.pixelColor(10, 300), QColor(Qt::black));
    // Beside the label and beside the round corner of a button: nothing paints a box of its own.
    QCOMPARE(image.pixelColor(200, 130), QColor(Qt::black));
    QCOMPARE(image.pixelColor(799, 411), QColor(Qt::black));
}

void TestCSysCtrlPage::certificationShowsTheStoredState_data()
{
    QTest::addColumn<QVariant>("stored");
    QTest::addColumn<bool>("on");
    QTest::newRow("never stored") << QVariant() << false; // as in defaults.ini
    QTest::newRow("off") << QVariant(false) << false;
    QTest::newRow("on") << QVariant(true) << true;
    QTest::newRow("on, read back as a text") << QVariant(QStringLiteral("true")) << true;
}

void TestCSysCtrlPage::certificationShowsTheStoredState()
{
    QFETCH(QVariant, stored);
    QFETCH(bool, on);
    Page shown;
    if (stored.isValid()) {
        shown.unit.unit().settings().setValue(certificationKey, stored);
    }
    shown.open();
    QCOMPARE(shown.certification()->state(), on);
}

void TestCSysCtrlPage::certificationIsNeitherToldNorSavedOnOpening()
{
    Page shown;
    shown.unit.unit().settings().setValue(certificationKey, true);
    const int before = shown.journal().size();
    shown.open();
    QCoreApplication::processEvents();
    QVERIFY(shown.certification()->state());
    QCOMPARE(shown.journal().size(), before);
}

void TestCSysCtrlPage::certificationIsSavedBeforeTheRebootAndShownAfterIt()
{
    Page shown(10.0);
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

void TestCSysCtrlPage::certificationShadeIsOnTheGlassBeforeTheSleep()
{
    Page shown(10.0);
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

void TestCSysCtrlPage::otherSwitchesDoNothing_data()
{
    QTest::addColumn<QString>("id");
    QTest::newRow("driver") << QStringLiteral("idDriverMode");
    QTest::newRow("dimmer") << QStringLiteral("idDimmerSwitch");
    QTest::newRow("other case") << QStringLiteral("idcertification");
    QTest::newRow("empty") << QString();
}

void TestCSysCtrlPage::otherSwitchesDoNothing()
{
    QFETCH(QString, id);
    Page shown;
    shown.open();
    const QSignalSpy shades(shown.page.data(), &CSysCtrlPage::sigShowMaskBg);
    shown.page->boolBtnReleasedSlot(id, true);
    QCOMPARE(shown.journal(), QStringList());
    QCOMPARE(shades.count(), 0);
}

void TestCSysCtrlPage::gpsResetClearsTheConfigurationAndReboots()
{
    Page shown(10.0);
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

void TestCSysCtrlPage::copyButtonFaces_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("disabled");
    QTest::newRow("disabled") << 0 << "SYSTEMLOG" << true;
    QTest::newRow("ready") << 1 << "SYSTEMLOG" << false;
    QTest::newRow("copying") << 2 << "COPYING..." << false;
    QTest::newRow("any other") << 3 << "SYSTEMLOG" << true;
    QTest::newRow("negative") << -1 << "SYSTEMLOG" << true;
}

void TestCSysCtrlPage::copyButtonFaces()
{
    QFETCH(int, state);
    QFETCH(QString, text);
    QFETCH(bool, disabled);
    Page shown;
    shown.open();
    shown.page->setmCopyBtnState(disabled ? 2 : 0);
    shown.page->setmCopyBtnState(state);
    QCOMPARE(shown.icon("copyBtn")->displayText(), text);
    QCOMPARE(shown.icon("copyBtn")->disableState(), disabled);
    QCOMPARE(shown.icon("copyBtn")->isEnabled(), !disabled);
}

void TestCSysCtrlPage::copyButtonFollowsTheStorage()
{
    Page shown;
    writeFile(shown.unit.path(logFile), "log");
    shown.open();
    QVERIFY(shown.icon("copyBtn")->disableState());
    shown.unit.plug(QStringLiteral("usb0"));
    QTRY_VERIFY(!shown.icon("copyBtn")->disableState());
    QString error;
    QVERIFY(shown.unit.unit().storage().pull(QStringLiteral("usb0"), &error));
    QTRY_VERIFY(shown.icon("copyBtn")->disableState());
    QVERIFY(!shown.icon("copyBtn")->isEnabled());

    shown.unit.tap(copyPoint);
    QCOMPARE(shown.journal(), QStringList());
}

void TestCSysCtrlPage::withoutLogFolderTheCopyButtonStartsDisabledUntilAStorageEvent()
{
    Page shown;
    shown.unit.plug(QStringLiteral("usb0"));
    shown.open();
    QVERIFY(shown.icon("copyBtn")->disableState());
    QVERIFY(!shown.icon("copyBtn")->isEnabled());

    shown.unit.plug(QStringLiteral("usb1"));
    QTRY_VERIFY(!shown.icon("copyBtn")->disableState());
    QVERIFY(shown.icon("copyBtn")->isEnabled());
}

void TestCSysCtrlPage::copyWithoutLogFolderOnlyMakesTheTarget()
{
    Page shown;
    shown.open();
    shown.unit.plug(QStringLiteral("usb0"));
    QTRY_VERIFY(!shown.icon("copyBtn")->disableState());
    shown.unit.tap(copyPoint);
    QCOMPARE(shown.journal(), QStringList("shell mkdir -p /media/usb0/QM_SYSTEMLOG"));
    QCOMPARE(shown.icon("copyBtn")->displayText(), QStringLiteral("SYSTEMLOG"));
    QVERIFY(!shown.icon("copyBtn")->disableState());
}

void TestCSysCtrlPage::copyShowsThatItRunsAndIsReadyAgain()
{
    Page shown;
    shown.openWithLogsAndStick();
    QCoreApplication::processEvents();
    const QImage ready = glass(shown.unit);
    QImage running;
    // The unit's own sync tells when the copy is all but done.
    writeFile(shown.unit.path(QStringLiteral("/bin/sync")),
              "#!/bin/sh\ntouch \"$UNIT/synced\"\nsleep 0.3\n");
    std::thread observer([&shown, &running] {
        shown.unit.unit().journal().waitFor(hardware::JournalPattern(QStringLiteral("shell sync")),
                                            0, 20000);
        running = glass(shown.unit);
    });

    shown.page->btnReleasedSlot(QStringLiteral("idCpBtn"));
    observer.join();

    QCOMPARE(shown.journal(),
             QStringList({
                 "shell mkdir -p /media/usb0/QM_SYSTEMLOG",
                 "shell cp -rf /media/flash/userdata/log_service//*  /media/usb0/QM_SYSTEMLOG/",
                 "shell cp -rf /media/flash/nvm/dfb_crash.dump  /media/usb0/QM_SYSTEMLOG/",
                 "shell sync",
             }));
    const QRect buttonOnGlass(212, 166, 140, 60);
    QVERIFY(running.copy(buttonOnGlass) != ready.copy(buttonOnGlass));
    QCOMPARE(glass(shown.unit).copy(buttonOnGlass), ready.copy(buttonOnGlass));
    QCOMPARE(shown.icon("copyBtn")->displayText(), QStringLiteral("SYSTEMLOG"));
    QVERIFY(!shown.icon("copyBtn")->disableState());
}

void TestCSysCtrlPage::copyToAFullStickGoesOn()
{
    Page shown;
    shown.openWithLogsAndStick();
    QString error;
    QVERIFY(shown.unit.unit().storage().setFull(QStringLiteral("usb0"), true, &error));
    shown.unit.tap(copyPoint);
    QCOMPARE(shown.journal().last(), QStringLiteral("shell sync"));
    QCOMPARE(readFile(shown.unit.path(QStringLiteral("/media/usb0/QM_SYSTEMLOG/system.log"))),
             QByteArray());
    QCOMPARE(shown.icon("copyBtn")->displayText(), QStringLiteral("SYSTEMLOG"));
    QVERIFY(!shown.icon("copyBtn")->disableState());
}

void TestCSysCtrlPage::copyToAStickThatWasJustPulledRunsNothing()
{
    Page shown;
    shown.openWithLogsAndStick();
    // From another thread: the page has not heard of it yet.
    std::thread([&shown] {
        QString error;
        shown.unit.unit().storage().pull(QStringLiteral("usb0"), &error);
    }).join();
    QVERIFY(!shown.icon("copyBtn")->disableState());
    shown.page->btnReleasedSlot(QStringLiteral("idCpBtn"));
    QCOMPARE(shown.journal(), QStringList());
    QCOMPARE(shown.icon("copyBtn")->displayText(), QStringLiteral("SYSTEMLOG"));
    QTRY_VERIFY(shown.icon("copyBtn")->disableState());
}

void TestCSysCtrlPage::checkOutTellsWhetherItCopied()
{
    Page shown;
    shown.openWithLogsAndStick();
    QCOMPARE(shown.page->checkOutSystemLog2UDisk("/media/usb0"), 1);
    QCOMPARE(shown.page->checkOutSystemLog2UDisk("/media/usb1"), 0);
    QCOMPARE(shown.page->checkOutSystemLog2UDisk(""), 0);
    QVERIFY(QDir(shown.unit.path(QStringLiteral("/media/flash/userdata/log_service")))
                .removeRecursively());
    QCOMPARE(shown.page->checkOutSystemLog2UDisk("/media/usb0"), 0);
}

void TestCSysCtrlPage::touchCheckOpensOverEverything()
{
    Page shown;
    shown.open();
    shown.unit.tap(touchPoint);
    QCOMPARE(touchPages().size(), 1);
    QVERIFY(touchPages().first()->isVisible());
    QVERIFY(touchPages().first()->isWindow());
    QCOMPARE(touchPages().first()->size(), QSize(800, 480));
}

void TestCSysCtrlPage::touchCheckTwiceMakesTwoPagesAndTheNewestIsClosed()
{
    Page shown;
    shown.open();
    shown.page->btnReleasedSlot(QStringLiteral("idTouchBtn"));
    const QPointer<CTouchCheckPage> first = touchPages().first();
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
    Page shown;
    shown.open();
    shown.page->btnReleasedSlot(QStringLiteral("idTouchBtn"));
    delete touchPages().first();
    shown.page->exitTouchPageSlot();
    shown.view.reset();
    deleteDeferred();
    QCOMPARE(touchPages().size(), 0);
}

void TestCSysCtrlPage::touchPageGoesWithThePage()
{
    Page shown;
    shown.open();
    shown.page->btnReleasedSlot(QStringLiteral("idTouchBtn"));
    const int widgets = QApplication::topLevelWidgets().size();
    shown.view->buttonClicked(QStringLiteral("return"));
    QVERIFY(shown.page.isNull());
    deleteDeferred();
    QCOMPARE(touchPages().size(), 0);
    // The page and its hidden back button.
    QCOMPARE(QApplication::topLevelWidgets().size(), widgets - 2);
}

void TestCSysCtrlPage::unknownIdDoesNothing()
{
    Page shown;
    shown.openWithLogsAndStick();
    for (const char *id : {"", "idOther", "idcpbtn", "idCpBtn "}) {
        shown.page->btnReleasedSlot(QString::fromLatin1(id));
    }
    QCOMPARE(shown.journal(), QStringList());
    QCOMPARE(touchPages().size(), 0);
}

FACTORY_TEST_MAIN(TestCSysCtrlPage)
#include "tst_csysctrlpage.moc"
