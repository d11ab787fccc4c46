#include "simulator/window/screen.h"

#include "simulator/window/bootscreen.h"
#include "simulator/window/homescreen.h"
#include "simulator/window/slottile.h"

#include "hardware/storage/storage.h"
#include "support/testmain.h"

#include <QLabel>
#include <QtTest>

using namespace simulator;

class TestScreen : public QObject
{
    Q_OBJECT

private slots:
    void showsTheHomeScreenAtFirst();
    void bootScreenCoversEverything();
    void homeScreenSaysThatItIsSimulated();
    void homeScreenShowsTheStorage();
    void touchedSlotTellsWhatItShowed();
    void slotLooksPressedUnderTheFinger();
    void failureStandsUntilTheNextTouchOrChange();
    void anyNumberOfSlotsFits_data();
    void anyNumberOfSlotsFits();
};

namespace
{

/// What is written on the slots.
QStringList slotFaces(const HomeScreen &home)
{
    QStringList faces;
    const auto tiles = home.findChildren<SlotTile *>();
    for (const SlotTile *tile : tiles) {
        faces.append(tile->text() + ", " + tile->state() + ", " + tile->action());
    }
    return faces;
}

QStringList texts(const QWidget &widget)
{
    QStringList found;
    const auto labels = widget.findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        found.append(label->text());
    }
    return found;
}

QList<hardware::StorageSlot> slotTable(int count)
{
    QList<hardware::StorageSlot> table;
    for (int number = 0; number < count; ++number) {
        table.append(
            {QString("usb%1").arg(number), 1, number, QString("/media/usb%1").arg(number)});
    }
    return table;
}

} // namespace

void TestScreen::showsTheHomeScreenAtFirst()
{
    Screen screen;
    screen.show();
    QVERIFY(screen.homeScreen().isVisible());
    QVERIFY(!screen.isBooting());
    QCOMPARE(screen.childAt(5, 5), &screen.homeScreen());
}

void TestScreen::bootScreenCoversEverything()
{
    Screen screen;
    screen.show();
    auto *page = new QWidget(&screen);
    page->setGeometry(screen.rect());
    page->show();
    QCOMPARE(screen.childAt(5, 5), page);
    screen.setBooting(true);
    QVERIFY(screen.isBooting());
    QVERIFY(qobject_cast<BootScreen *>(screen.childAt(5, 5)) != nullptr);
    QVERIFY(qobject_cast<BootScreen *>(screen.childAt(795, 475)) != nullptr);
    screen.setBooting(false);
    QCOMPARE(screen.childAt(5, 5), page);
}

void TestScreen::homeScreenSaysThatItIsSimulated()
{
    Screen screen;
    QVERIFY(texts(screen.homeScreen()).contains("Simulated head unit"));
}

void TestScreen::homeScreenShowsTheStorage()
{
    Screen screen;
    HomeScreen &home = screen.homeScreen();
    home.setSlots(slotTable(2));
    const QStringList nothing{"USB0, empty, touch to plug", "USB1, empty, touch to plug"};
    QCOMPARE(slotFaces(home), nothing);
    home.setPlugged({"/media/usb1"});
    QCOMPARE(slotFaces(home),
             (QStringList{"USB0, empty, touch to plug", "USB1, plugged, touch to pull"}));
    home.setPlugged({});
    QCOMPARE(slotFaces(home), nothing);
}

void TestScreen::touchedSlotTellsWhatItShowed()
{
    Screen screen;
    HomeScreen &home = screen.homeScreen();
    home.setSlots(slotTable(2));
    home.setPlugged({"/media/usb1"});
    screen.show();
    QSignalSpy touched(&home, &HomeScreen::slotTouched);
    const QList<SlotTile *> tiles = home.findChildren<SlotTile *>();
    for (const SlotTile *tile : tiles) {
        QTest::mouseClick(screen.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                          tile->mapTo(&screen, QPoint(2, tile->height() - 3)));
    }
    QCOMPARE(touched, (QList<QList<QVariant>>{{"usb0", false}, {"usb1", true}}));
}

void TestScreen::slotLooksPressedUnderTheFinger()
{
    Screen screen;
    screen.homeScreen().setSlots(slotTable(1));
    screen.show();
    auto *tile = screen.findChild<SlotTile *>();
    QSignalSpy touched(&screen.homeScreen(), &HomeScreen::slotTouched);
    const QImage atRest = tile->grab().toImage();
    const QPoint place = tile->mapTo(&screen, tile->rect().center());
    QTest::mousePress(screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    QVERIFY(tile->grab().toImage() != atRest);
    QTest::mouseMove(screen.windowHandle(), QPoint(5, 5));
    QTest::mouseRelease(screen.windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    QCOMPARE(tile->grab().toImage(), atRest);
    QCOMPARE(touched.count(), 0);
}

void TestScreen::failureStandsUntilTheNextTouchOrChange()
{
    Screen screen;
    HomeScreen &home = screen.homeScreen();
    home.setSlots(slotTable(1));
    home.showFailure("No such stick.");
    QVERIFY(texts(home).contains("No such stick."));
    home.findChild<SlotTile *>()->click();
    QVERIFY(!texts(home).contains("No such stick."));
    home.showFailure("No such stick.");
    home.setPlugged({});
    QVERIFY(!texts(home).contains("No such stick."));
}

void TestScreen::anyNumberOfSlotsFits_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("none") << 0;
    QTest::newRow("one") << 1;
    QTest::newRow("four") << 4;
    QTest::newRow("nine") << 9;
}

void TestScreen::anyNumberOfSlotsFits()
{
    QFETCH(int, count);
    Screen screen;
    HomeScreen &home = screen.homeScreen();
    home.setSlots(slotTable(count));
    int right = -1;
    int indicators = 0;
    for (const QObject *child : home.children()) {
        const auto *indicator = qobject_cast<const QWidget *>(child);
        if (qobject_cast<const QLabel *>(child) == nullptr) {
            QVERIFY(home.rect().contains(indicator->geometry()));
            QVERIFY(indicator->x() > right);
            right = indicator->geometry().right();
            ++indicators;
        }
    }
    QCOMPARE(indicators, count);
}

FACTORY_TEST_MAIN(TestScreen)
#include "tst_screen.moc"
