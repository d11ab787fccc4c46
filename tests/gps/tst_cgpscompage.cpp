#include "gps/gpscomage.h"

#include "gps/cgpsfwinfo.h"
#include "recordedsleeps.h"
#include "stdoutcapture.h"

#include "support/testmain.h"
#include "support/testunit.h"
#include "support/tracecapture.h"

#include "kvwidget/kvbackgroundimage.h"
#include "kvwidget/kviconbutton.h"

#include <QApplication>
#include <QLabel>
#include <QMetaMethod>
#include <QPointer>
#include <QProcess>
#include <QtTest>

#include <thread>

class TestCGpsComPage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void metaObject();
    void form_data();
    void form();
    void formStyles();
    void formStacking();
    void buttons();

    void findsTheFirstRootForEachFile();
    void takesBothFromTheFirstOfTwoRoots();
    void verifiesAndAsks();
    void onlyOneFileClosesAtOnce_data();
    void onlyOneFileClosesAtOnce();
    void invalidFilesClose_data();
    void invalidFilesClose();
    void unknownResultDoesNothing();

    void cancelReactsToAClick();
    void updateReactsToARelease();
    void updateIsQueued();
    void liftBesideAButtonDoesNothing_data();
    void liftBesideAButtonDoesNothing();
    void unknownIdIsIgnored();
    void updateUpgradesAndReboots();
    void pausesOfTheCheckAndTheUpdate();
    void updatingTextIsOnTheGlassBeforeTheThreadBlocks();
    void updateWithoutPathsOnlyBeeps();

    void stickPulledWhileVerifying();
    void stickPulledAfterVerification();
    void stickPulledWhileUpdating();
    void stickPluggedChangesNothing();

    void openingItTwiceMakesTwoPages();
    void deletedWhileTheWorkerRuns();
    void exitSlotClosesSetup();
    void traces();

private:
    void makePackage(const QString &slot, const char *file, const char *kind);
    void plugBoth();
    CGpsComPage *open();
    CGpsComPage *openVerified();

    QScopedPointer<TestUnit> m_unit;
    QPointer<CGpsComPage> m_page;
};

namespace
{

const char bootloader[] = "gps_bootloader.pkg";
const char firmware[] = "gps_firmware.pkg";
const QPoint updatePoint(62 + 159 + 70, 108 + 179 + 30);
const QPoint cancelPoint(62 + 377 + 70, 108 + 179 + 30);

template <typename Widget> Widget *find(const CGpsComPage *page, const char *name)
{
    auto *widget = page->findChild<Widget *>(QString::fromLatin1(name));
    if (widget == nullptr) {
        qFatal("The page has no %s.", name);
    }
    return widget;
}

bool shows(const CGpsComPage *page, const char *name)
{
    return find<QWidget>(page, name)->isVisible();
}

bool asks(const CGpsComPage *page)
{
    return shows(page, "popEnsure") && !shows(page, "popLoading");
}

QString updateReady(int ready)
{
    return QStringLiteral("mcu update ready %1").arg(ready);
}

} // namespace

void TestCGpsComPage::init()
{
    m_unit.reset(new TestUnit(20.0));
}

void TestCGpsComPage::cleanup()
{
    delete m_page;
    m_unit.reset();
}

void TestCGpsComPage::makePackage(const QString &slot, const char *file, const char *kind)
{
    const QString folder = m_unit->path(QStringLiteral("/sticks/")) + slot;
    QVERIFY(QDir().mkpath(folder));
    QCOMPARE(QProcess::execute(QStringLiteral(MAKE_GPS_PACKAGE),
                               {QString::fromLatin1(kind),
                                folder + QLatin1Char('/') + QString::fromLatin1(file),
                                QStringLiteral("GNSS 3.1")}),
             0);
}

void TestCGpsComPage::plugBoth()
{
    makePackage(QStringLiteral("usb0"), bootloader, "valid");
    makePackage(QStringLiteral("usb0"), firmware, "valid");
    m_unit->plug(QStringLiteral("usb0"));
}

/// As the main view does, and as the unit has it: on its one screen.
CGpsComPage *TestCGpsComPage::open()
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

CGpsComPage *TestCGpsComPage::openVerified()
{
    plugBoth();
    CGpsComPage *page = open();
    if (!QTest::qWaitFor([page] { return asks(page); })) {
        qFatal("The page does not ask.");
    }
    return page;
}

void TestCGpsComPage::metaObject()
{
    const QMetaObject &meta = CGpsComPage::staticMetaObject;
    QStringList methods;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        methods.append(QString::fromLatin1(meta.method(index).methodSignature()));
    }
    QCOMPARE(methods,
             QStringList({"sigExitVersionPage(bool)", "sigCheckSoftResult(int)", "returnSlot()",
                          "exitSlot()", "showSystemNewFwInfoSlot()", "updateSlot()",
                          "updateUdiskStateSlot(QString)", "softCheckResultSlot(int)"}));
}

void TestCGpsComPage::form_data()
{
    QTest::addColumn<QRect>("geometry");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("text");
    const QString info = QStringLiteral("infoPage");
    QTest::newRow("infoPage") << QRect(0, 0, 800, 480) << QStringLiteral("gpsFWInfoForm")
                              << QString();
    QTest::newRow("popLoading") << QRect(62, 166, 676, 164) << info << QString();
    QTest::newRow("label_1") << QRect(31, 54, 614, 40) << QStringLiteral("popLoading")
                             << QStringLiteral("Verifying...");
    QTest::newRow("popEnsure") << QRect(62, 108, 676, 280) << info << QString();
    QTest::newRow("label2") << QRect(31, 75, 614, 31) << QStringLiteral("popEnsure")
                            << QStringLiteral("Firmware verified Success");
    QTest::newRow("updateButton") << QRect(159, 179, 140, 60) << QStringLiteral("popEnsure")
                                  << QStringLiteral("Update");
    QTest::newRow("cancelButton") << QRect(377, 179, 140, 60) << QStringLiteral("popEnsure")
                                  << QStringLiteral("Cancel");
    QTest::newRow("topTip") << QRect(0, 0, 800, 66) << QStringLiteral("gpsFWInfoForm")
                            << QStringLiteral("GPS Firmware Upgrade");
}

void TestCGpsComPage::form()
{
    QFETCH(QRect, geometry);
    QFETCH(QString, parent);
    QFETCH(QString, text);
    plugBoth();
    const CGpsComPage *page = open();
    const auto *widget = find<QWidget>(page, QTest::currentDataTag());
    QCOMPARE(widget->geometry(), geometry);
    QCOMPARE(widget->parentWidget()->objectName(), parent);
    if (const auto *label = qobject_cast<const QLabel *>(widget)) {
        QCOMPARE(label->text(), text);
    }
    if (const auto *button = qobject_cast<const KvIconButton *>(widget)) {
        QCOMPARE(button->displayText(), text);
    }
}

void TestCGpsComPage::formStyles()
{
    plugBoth();
    const CGpsComPage *page = open();
    const auto style = [page](const char *name) { return find<QWidget>(page, name)->styleSheet(); };
    QCOMPARE(style("gpsFWInfoForm"),
             QStringLiteral("#gpsFWInfoForm{\nbackground-color: rgba(0, 0, 0, 255);\n"
                            "border-image: url(:/images/list/list_BG.png);\n}"));
    QCOMPARE(style("infoPage"),
             QStringLiteral("#infoPage{\nbackground-color: rgba(255, 255, 255, 0);\n"
                            "border-image: url(:/images/pop/shade.png);\n}"));
    QCOMPARE(style("popLoading"),
             QStringLiteral("#popLoading{\nbackground-color: rgba(0, 0, 0, 0);\n}"));
    QCOMPARE(style("popEnsure"),
             QStringLiteral("#popEnsure{\nbackground-color: rgba(0, 0, 0, 0);\n}"));
    QCOMPARE(style("label_1"),
             QStringLiteral("#label_1{\nbackground-color: rgba(0, 5, 0, 0);\n"
                            "\tcolor: rgb(255, 255, 255);\n}"));
    QCOMPARE(style("topTip"),
             QStringLiteral("#topTip{\n"
                            "border-image: url(:/images/top/header_list_frame-no line.png);\n"
                            "color: rgb(255, 255, 255);\n}"));
    QCOMPARE(page->styleSheet(), QStringLiteral("background-color:rgba(0, 0, 0, 255);"));
    QVERIFY(page->testAttribute(Qt::WA_StyledBackground));
    QCOMPARE(page->title(), QStringLiteral("setup system version"));
    QCOMPARE(page->geometry(), QRect(0, 0, 800, 480));
    QCOMPARE(find<QWidget>(page, "gpsFWInfoForm")->windowTitle(), QStringLiteral("Form"));

    QCOMPARE(find<QLabel>(page, "label_1")->font().pointSize(), 30);
    QCOMPARE(find<QLabel>(page, "label2")->font().pointSize(), 30);
    QCOMPARE(find<QLabel>(page, "label2")->maximumSize(), QSize(800, 36));
    const auto *topTip = find<QLabel>(page, "topTip");
    QCOMPARE(topTip->font().pointSize(), 38);
    QCOMPARE(topTip->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(topTip->indent(), 33);
    QCOMPARE(topTip->maximumSize(), QSize(800, 100));
    QVERIFY(!topTip->wordWrap());
    QCOMPARE(find<QWidget>(page, "popEnsure")->minimumSize(), QSize(676, 280));
    for (const char *name : {"popLoading", "popEnsure"}) {
        const auto *image = find<KvBackgroundImage>(page, name);
        QVERIFY(image->fitPixmapSize());
        QCOMPARE(image->pixmap().size(), image->size());
    }
}

void TestCGpsComPage::formStacking()
{
    plugBoth();
    const CGpsComPage *page = open();
    QCOMPARE(find<QWidget>(page, "infoPage")->children().last()->objectName(),
             QStringLiteral("popLoading"));
    const QObjectList onForm = find<QWidget>(page, "gpsFWInfoForm")->children();
    QCOMPARE(onForm.last()->objectName(), QStringLiteral("infoPage"));
    QCOMPARE(onForm.at(onForm.size() - 2)->objectName(), QStringLiteral("topTip"));
}

void TestCGpsComPage::buttons()
{
    plugBoth();
    const CGpsComPage *page = open();
    const auto check = [page](const char *name, const char *id, const char *image) {
        const auto *button = find<KvIconButton>(page, name);
        const QPixmap normal(QStringLiteral(":/images/pop/%1").arg(QLatin1String(image)));
        const QPixmap over(QStringLiteral(":/images/pop/sw_popup_psh.png"));
        QCOMPARE(button->buttonID(), QString::fromLatin1(id));
        QCOMPARE(int(button->showMode()), 1);
        QCOMPARE(int(button->disableMode()), 3);
        QVERIFY(!normal.isNull());
        QCOMPARE(button->normalImage().toImage(), normal.toImage());
        QCOMPARE(button->pressImage().toImage(), normal.toImage());
        QCOMPARE(button->overImage().toImage(), over.toImage());
        QCOMPARE(button->normalTextColor(), QColor(Qt::white));
        QCOMPARE(button->pressTextColor(), QColor(Qt::white));
        QCOMPARE(button->textSize(), 32);
    };
    check("updateButton", "idUpdateBtn", "sw_popup_blue_nrm.png");
    check("cancelButton", "idCancelBtn", "sw_popup_gray_nrm.png");
}

void TestCGpsComPage::findsTheFirstRootForEachFile()
{
    makePackage(QStringLiteral("usb1"), firmware, "valid");
    makePackage(QStringLiteral("sd0"), bootloader, "valid");
    makePackage(QStringLiteral("usb0"), firmware, "valid");
    makePackage(QStringLiteral("usb0"), bootloader, "valid");
    for (const char *slot : {"usb1", "sd0", "usb0"}) {
        m_unit->plug(QString::fromLatin1(slot));
    }
    CGpsComPage *page = open();
    const TraceCapture capture;
    QCOMPARE(page->checkUpdateFileExist(QString::fromLatin1(bootloader)),
             QStringLiteral("/media/sd0/gps_bootloader.pkg"));
    QCOMPARE(page->checkUpdateFileExist(QString::fromLatin1(firmware)),
             QStringLiteral("/media/usb1/gps_firmware.pkg"));
    QCOMPARE(page->checkUpdateFileExist(QStringLiteral("other")), QString());
    const QStringList texts = capture.texts();
    QCOMPARE(texts.mid(0, 3),
             QStringList({
                 "CGpsComPage::checkUpdateFileExist filePath:  \"/media/usb1/gps_bootloader.pkg\"",
                 "CGpsComPage::checkUpdateFileExist filePath:  \"/media/sd0/gps_bootloader.pkg\"",
                 "CGpsComPage::checkUpdateFileExist filePath:  \"/media/usb1/gps_firmware.pkg\"",
             }));
    QCOMPARE(texts.size(), 2 + 1 + 3);
}

void TestCGpsComPage::takesBothFromTheFirstOfTwoRoots()
{
    plugBoth();
    makePackage(QStringLiteral("usb1"), bootloader, "bad-sum");
    makePackage(QStringLiteral("usb1"), firmware, "bad-sum");
    m_unit->plug(QStringLiteral("usb1"));
    const TraceCapture capture;
    const CGpsComPage *page = open();
    QVERIFY(capture.texts().contains(QStringLiteral(
        "CGpsComPage::showSystemNewFwInfoSlot :  \"/media/usb0/gps_bootloader.pkg\"")));
    QVERIFY(capture.texts().contains(QStringLiteral(
        "CGpsComPage::showSystemNewFwInfoSlot :  \"/media/usb0/gps_firmware.pkg\"")));
    QTRY_VERIFY(asks(page));
}

void TestCGpsComPage::verifiesAndAsks()
{
    plugBoth();
    const CGpsComPage *page = open();
    QVERIFY(shows(page, "popLoading"));
    QVERIFY(!shows(page, "popEnsure"));
    QCOMPARE(find<QLabel>(page, "label_1")->text(), QStringLiteral("Verifying..."));
    QCOMPARE(m_unit->journal(QStringLiteral("update ready")),
             QStringList({updateReady(0), updateReady(1)}));
    QTRY_VERIFY(asks(page));
    QCOMPARE(m_unit->journal(QStringLiteral("/^threads /")).first(),
             QStringLiteral("threads start threadGpsUpdateId"));
    // Up to here nothing else was asked of the platform.
    QVERIFY(m_unit->journal(QStringLiteral("beep")).isEmpty());
}

void TestCGpsComPage::onlyOneFileClosesAtOnce_data()
{
    QTest::addColumn<bool>("hasBootloader");
    QTest::addColumn<bool>("hasFirmware");
    QTest::newRow("no file") << false << false;
    QTest::newRow("boot loader only") << true << false;
    QTest::newRow("firmware only") << false << true;
}

void TestCGpsComPage::onlyOneFileClosesAtOnce()
{
    QFETCH(bool, hasBootloader);
    QFETCH(bool, hasFirmware);
    if (hasBootloader) {
        makePackage(QStringLiteral("usb0"), bootloader, "valid");
    }
    if (hasFirmware) {
        makePackage(QStringLiteral("usb0"), firmware, "valid");
    }
    if (hasBootloader || hasFirmware) {
        m_unit->plug(QStringLiteral("usb0"));
    }
    const CGpsComPage *page = open();
    // Shown and raised, but for the pop-up.
    QVERIFY(!shows(page, "gpsFWInfoForm"));
    QVERIFY(!shows(page, "infoPage"));
    QTRY_VERIFY(m_page.isNull());
    QCOMPARE(m_unit->journal(QStringLiteral("/^(log|mcu) /")),
             QStringList({updateReady(0), QStringLiteral("log INFO CGpsComPage returnSlot"),
                          updateReady(0)}));
    QVERIFY(m_unit->journal(QStringLiteral("threads start")).isEmpty());
}

void TestCGpsComPage::invalidFilesClose_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("kind");
    QTest::newRow("boot loader, sum") << QByteArray(bootloader) << QByteArray("bad-sum");
    QTest::newRow("firmware, CRC") << QByteArray(firmware) << QByteArray("bad-header-crc");
    QTest::newRow("firmware, empty") << QByteArray(firmware) << QByteArray("size-0");
    QTest::newRow("firmware, endless") << QByteArray(firmware) << QByteArray("length-ffffffff");
}

void TestCGpsComPage::invalidFilesClose()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, kind);
    plugBoth();
    makePackage(QStringLiteral("usb0"), file.constData(), kind.constData());
    const TraceCapture capture;
    open();
    QTRY_VERIFY(m_page.isNull());
    QVERIFY(capture.texts().contains(QStringLiteral("softCheckResultSlot state:  1")));
    QCOMPARE(m_unit->journal(QStringLiteral("update ready")),
             QStringList({updateReady(0), updateReady(1), updateReady(0)}));
}

void TestCGpsComPage::unknownResultDoesNothing()
{
    CGpsComPage *page = openVerified();
    page->softCheckResultSlot(2);
    QTest::qWait(50);
    QVERIFY(!m_page.isNull());
    QVERIFY(asks(page));
}

void TestCGpsComPage::cancelReactsToAClick()
{
    openVerified();
    m_unit->press(cancelPoint);
    QTest::qWait(20);
    QVERIFY(!m_page.isNull());
    m_unit->release(cancelPoint);
    QTRY_VERIFY(m_page.isNull());
    QCOMPARE(m_unit->journal(QStringLiteral("/^log /")),
             QStringList({QStringLiteral("log INFO CGpsComPage systemNewInfoSlot, idCancelBtn"),
                          QStringLiteral("log INFO CGpsComPage returnSlot")}));
    QCOMPARE(m_unit->journal(QStringLiteral("update ready")).last(), updateReady(0));
}

void TestCGpsComPage::liftBesideAButtonDoesNothing_data()
{
    QTest::addColumn<QPoint>("button");
    QTest::newRow("Cancel") << cancelPoint;
    QTest::newRow("Update") << updatePoint;
}

void TestCGpsComPage::liftBesideAButtonDoesNothing()
{
    QFETCH(QPoint, button);
    openVerified();
    m_unit->press(button);
    m_unit->move(QPoint(400, 450));
    m_unit->release(QPoint(400, 450));
    QTest::qWait(50);
    QVERIFY(!m_page.isNull());
    QVERIFY(asks(m_page));
    QVERIFY(m_unit->journal(QStringLiteral("/^(log|mcu beep)/")).isEmpty());
}

void TestCGpsComPage::updateReactsToARelease()
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

void TestCGpsComPage::updateIsQueued()
{
    const CGpsComPage *page = openVerified();
    QVERIFY(QFile::remove(m_unit->path(QStringLiteral("/dev/ttyS3"))));
    auto *button = find<KvIconButton>(page, "updateButton");
    emit button->btnReleased(button->buttonID());
    QVERIFY(asks(page));
    QTRY_VERIFY(!asks(page));
}

void TestCGpsComPage::unknownIdIsIgnored()
{
    const CGpsComPage *page = openVerified();
    auto *info = page->findChild<CGpsFwInfo *>();
    info->systemNewInfoSlot(QStringLiteral("idupdatebtn"));
    QVERIFY(asks(page));
    QCOMPARE(m_unit->journal(QStringLiteral("/^log /")),
             QStringList(QStringLiteral("log INFO CGpsComPage systemNewInfoSlot, idupdatebtn")));
}

void TestCGpsComPage::updateUpgradesAndReboots()
{
    openVerified();
    const qint64 before = m_unit->unit().journal().end();
    m_unit->tap(updatePoint);
    QTRY_VERIFY_WITH_TIMEOUT(!m_unit->journal(QStringLiteral("mcu reboot")).isEmpty(), 60000);
    QCOMPARE(m_unit->unit().versions().gps(), QStringLiteral("GNSS 3.1"));
    QStringList lines =
        m_unit->unit().journal().lines(QStringLiteral("/^(log|mcu|gps|shell) /"), before);
    QCOMPARE(lines,
             QStringList({
                 QStringLiteral("log INFO CGpsComPage systemNewInfoSlot, idUpdateBtn"),
                 QStringLiteral("mcu beep 0"),
                 QStringLiteral("gps service stopped"),
                 QStringLiteral("shell sync"),
                 QStringLiteral("mcu reboot"),
             }));
}

void TestCGpsComPage::pausesOfTheCheckAndTheUpdate()
{
    m_unit.reset(); // Its gate scales time.
    m_unit.reset(new TestUnit);
    openVerified();

    QVector<qint64> checking;
    std::thread worker([&checking] {
        const RecordedSleeps sleeps;
        CGpsComPage::threadPoolCallback(0);
        checking = sleeps.all();
    });
    worker.join();
    QCOMPARE(checking, QVector<qint64>({1000000}));

    // Without a line the upgrade itself ends at once.
    QVERIFY(QFile::remove(m_unit->path(QStringLiteral("/dev/ttyS3"))));
    const RecordedSleeps sleeps;
    m_unit->tap(updatePoint);
    QTRY_VERIFY(!m_unit->journal(QStringLiteral("mcu reboot")).isEmpty());
    QCOMPARE(sleeps.all(), QVector<qint64>({3000000, 200000, 300000}));
}

void TestCGpsComPage::updatingTextIsOnTheGlassBeforeTheThreadBlocks()
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
    // The queued call comes ahead of the event that would paint.
    QCoreApplication::sendPostedEvents(m_page, QEvent::MetaCall);
    QVERIFY(!m_unit->journal(QStringLiteral("mcu reboot")).isEmpty());
    QCOMPARE(m_unit->journal(QStringLiteral("/^(painted|gps)/")),
             QStringList({QStringLiteral("painted GPS Firmware Updating..."),
                          QStringLiteral("gps service stopped")}));
}

void TestCGpsComPage::updateWithoutPathsOnlyBeeps()
{
    CGpsComPage *page = new CGpsComPage(nullptr);
    page->updateSlot();
    QCOMPARE(m_unit->journal(QStringLiteral("mcu beep")).size(), 1);
    QVERIFY(m_unit->journal(QStringLiteral("/^(gps|shell) /")).isEmpty());
    delete page;
}

void TestCGpsComPage::stickPulledWhileVerifying()
{
    plugBoth();
    CGpsComPage *page = open();
    QString error;
    QVERIFY(m_unit->unit().storage().pull(QStringLiteral("usb0"), &error));
    QTRY_COMPARE(m_unit->journal(QStringLiteral("update ready")),
                 QStringList({updateReady(0), updateReady(1), updateReady(0)}));
    Q_UNUSED(page);
    // Whether the worker was faster or not: the page asks, or it has closed itself.
    QTRY_VERIFY(m_page.isNull() || asks(m_page));
}

void TestCGpsComPage::stickPulledAfterVerification()
{
    const CGpsComPage *page = openVerified();
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

void TestCGpsComPage::stickPulledWhileUpdating()
{
    openVerified();
    // Between the two transfers, by a thread beside the one that is blocked.
    std::thread world([this] {
        const hardware::JournalPattern received(QStringLiteral("bootloader received"));
        m_unit->unit().journal().waitFor(received, 0, 60000);
        QString error;
        m_unit->unit().storage().pull(QStringLiteral("usb0"), &error);
    });
    m_unit->tap(updatePoint);
    QTRY_VERIFY_WITH_TIMEOUT(!m_unit->journal(QStringLiteral("mcu reboot")).isEmpty(), 60000);
    world.join();
    QVERIFY(m_unit->journal(QStringLiteral("firmware received")).isEmpty());
    QTRY_COMPARE(m_unit->journal(QStringLiteral("update ready")).last(), updateReady(0));
}

void TestCGpsComPage::stickPluggedChangesNothing()
{
    const CGpsComPage *page = openVerified();
    const QStringList before = m_unit->journal(QStringLiteral("update ready"));
    m_unit->plug(QStringLiteral("usb1"));
    QTest::qWait(50);
    QCOMPARE(m_unit->journal(QStringLiteral("update ready")), before);
    QVERIFY(asks(page));
}

void TestCGpsComPage::openingItTwiceMakesTwoPages()
{
    m_unit.reset();
    m_unit.reset(new TestUnit(4.0));
    plugBoth();
    QPointer<CGpsComPage> first;
    {
        const StdoutCapture output;
        first = open();
        QTRY_VERIFY(output.text().contains("check select() for"));
    }
    // The first page's worker still has its second to wait.
    const QPointer<CGpsComPage> second = open();
    QTRY_VERIFY(asks(second));
    QTRY_COMPARE(m_unit->journal(QStringLiteral("threads end")).size(), 2);
    // Both have reported to the page that was made last.
    QTest::qWait(50);
    QVERIFY(shows(first, "popLoading"));
    delete first;
    QVERIFY(asks(second));
}

void TestCGpsComPage::deletedWhileTheWorkerRuns()
{
    plugBoth();
    delete open();
    // The task's second of waiting is over too.
    QCOMPARE(m_unit->journal(QStringLiteral("/^(threads|mcu) /")),
             QStringList({
                 updateReady(0),
                 updateReady(1),
                 QStringLiteral("threads start threadGpsUpdateId"),
                 QStringLiteral("threads join threadGpsUpdateId"),
                 QStringLiteral("threads end threadGpsUpdateId"),
                 updateReady(0),
             }));
    QCoreApplication::processEvents();
}

void TestCGpsComPage::exitSlotClosesSetup()
{
    CGpsComPage *page = openVerified();
    page->exitSlot();
    QTRY_VERIFY(m_page.isNull());
    QCOMPARE(m_unit->journal(QStringLiteral("/^(log|framework close)/")),
             QStringList({QStringLiteral("log INFO CGpsComPage exitSlot"),
                          QStringLiteral("framework close setup")}));
}

void TestCGpsComPage::traces()
{
    plugBoth();
    const TraceCapture capture;
    const CGpsComPage *page = open();
    QTRY_VERIFY(asks(page));
    delete m_page;
    const QString enter = QStringLiteral("threadPoolCallback check software enter...\n");
    const QString exit = QStringLiteral("threadPoolCallback check software exit...");
    QStringList texts = capture.texts();
    // The worker's come at any time.
    QCOMPARE(texts.count(enter), 1);
    QCOMPARE(texts.count(exit), 1);
    texts.removeAll(enter);
    texts.removeAll(exit);
    QCOMPARE(texts,
             QStringList({
                 "CGpsComPage::CGpsComPage",
                 "CGpsFwInfo",
                 "CGpsComPage::checkUpdateFileExist filePath:  \"/media/usb0/gps_bootloader.pkg\"",
                 "CGpsComPage::checkUpdateFileExist filePath:  \"/media/usb0/gps_firmware.pkg\"",
                 "CGpsComPage::showSystemNewFwInfoSlot :  \"/media/usb0/gps_bootloader.pkg\"",
                 "CGpsComPage::showSystemNewFwInfoSlot :  \"/media/usb0/gps_firmware.pkg\"",
                 "softCheckResultSlot state:  0",
                 "CGpsComPage::~CGpsComPage",
             }));
}

FACTORY_TEST_MAIN(TestCGpsComPage)
#include "tst_cgpscompage.moc"
