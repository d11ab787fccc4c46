#include "system/csysctrlpage.h"

#include "sysctrlpage.h"

#include "kvwidget/cboolbutton.h"
#include "kvwidget/kvbackgroundimage.h"
#include "kvwidget/kviconbutton.h"
#include "support/testmain.h"
#include "system/ctouchcheckpage.h"

#include <QApplication>
#include <QLabel>
#include <QtTest>

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

    void gpsResetClearsTheConfigurationAndReboots();

    void touchCheckOpensOverEverything();
    void touchCheckTwiceMakesTwoPagesAndTheNewestIsClosed();
    void touchPageThatIsGoneIsForgotten();
    void touchPageGoesWithThePage();
    void unknownIdDoesNothing();
};

namespace
{

const QRect pageRect(QPoint(0, 66), QPoint(799, 477));
const QPoint gpsPoint(106, 196);
const QPoint touchPoint(634, 196);

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
    auto *button = shown.icon(qPrintable(name));
    QCOMPARE(button->geometry(), QRect(left, 100, 140, 60));
    QCOMPARE(button->buttonID(), id);
    QCOMPARE(button->displayText(), text);
    QCOMPARE(button->property("showMode").value<KvIconButton::ShowMode>(),
             KvIconButton::ShowImageText);
    const auto sameAs = [](const QPixmap &pixmap, const char *path) {
        const QImage image = QPixmap(QString::fromLatin1(path)).toImage();
        return !image.isNull() && pixmap.toImage() == image;
    };
    const char normal[] = ":/images/pop/sw_popup_gray_nrm.png";
    QVERIFY(sameAs(button->property("normalImage").value<QPixmap>(), normal));
    QVERIFY(sameAs(button->property("pressImage").value<QPixmap>(), normal));
    QVERIFY(
        sameAs(button->property("overImage").value<QPixmap>(), ":/images/pop/sw_popup_psh.png"));
    QCOMPARE(button->property("disableImage").value<QPixmap>().isNull(), !hasDisabledFace);
    if (hasDisabledFace) {
        QVERIFY(sameAs(button->property("disableImage").value<QPixmap>(),
                       ":/images/pop/sw_popup_gray_dis.png"));
        QCOMPARE(int(button->property("disableMode").value<KvIconButton::DisableMode>()), 1);
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
    auto *button = shown.view->findChild<CBoolButton *>(name);
    QCOMPARE(button->geometry(), QRect(631, 10, 80, 62));
    QCOMPARE(button->parentWidget()->geometry(), row);
    QCOMPARE(button->buttonID(), id);
    QCOMPARE(button->property("onImage").value<QPixmap>().size(), QSize(80, 62));
    QCOMPARE(button->property("offImage").value<QPixmap>().size(), QSize(80, 62));
    QVERIFY(button->property("onImage").value<QPixmap>().toImage()
            != button->property("offImage").value<QPixmap>().toImage());
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
