#include "customwidget/listview.h"

#include "customwidget/lvscrollbar.h"
#include "fingerlist.h"
#include "listfinger.h"
#include "support/testmain.h"

#include <QCryptographicHash>
#include <QScrollBar>
#include <QtTest>

// Rows are 83 pixels high: row 0 covers 0 to 82, row 1 83 to 165, row 2 166 to 248.
class TestListView : public QObject
{
    Q_OBJECT

private slots:
    void construction();
    void styleSheets();
    void placeOfTheCustomBar();

    void tapOnARowGivesExactlyOneClick_data();
    void tapOnARowGivesExactlyOneClick();
    void pressOnOneRowAndReleaseOnAnotherGivesNoClick();
    void firstRowStaysPressedUntilTheNextGesture();
    void sixPixelsUnpressTheRowAndNoClickFollows_data();
    void sixPixelsUnpressTheRowAndNoClickFollows();
    void dragBackToThePressedRowGivesNoClick();
    void pressBelowTheLastRow();
    void releaseBelowTheLastRowGivesNoClick();
    void pressBelowTheLastRowAndReleaseOnARowGivesNoClick();
    void horizontalMovementNeverDrags();
    void clickAfterTheListHasScrolled();
    void moveWithoutAPressDoesNothing();
    void pressedRowIsAnnouncedOnlyWhilePressed();
    void secondTapAtOnceClicksAgain();

    void halfVisibleRowDoesNotJump();

    void pressedRowIsPaintedAtOnce();
    void dragPaintsTheRowUnpressed();
};

namespace
{

const QStringList clicked(int row)
{
    return {QStringLiteral("press %1 1").arg(row), QStringLiteral("click %1").arg(row),
            QStringLiteral("press -1 1"), QStringLiteral("beep")};
}

QColor colorAt(FingerList &finger, const QPoint &point)
{
    return QColor(finger.unit().screen().grab().toImage().pixel(point));
}

} // namespace

void TestListView::construction()
{
    const TestUnit unit;
    QWidget host;
    const ListView list(&host);
    QCOMPARE(list.parentWidget(), &host);
    QCOMPARE(list.editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(list.verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(list.verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QCOMPARE(list.horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QVERIFY(list.getVerticalScrollBar() != nullptr);
    QVERIFY(static_cast<QScrollBar *>(list.getVerticalScrollBar()) != list.verticalScrollBar());
    QCOMPARE(list.getVerticalScrollBar()->parentWidget(), static_cast<const QWidget *>(&list));

    // The order in which the signals are declared, which is part of the interface.
    QStringList methods;
    const QMetaObject &meta = ListView::staticMetaObject;
    for (int index = meta.methodOffset(); index < meta.methodCount(); ++index) {
        methods.append(QString::fromLatin1(meta.method(index).methodSignature()));
    }
    QCOMPARE(methods,
             QStringList({QStringLiteral("specailItemDataChanged(QStandardItem*,QVariant,bool)"),
                          QStringLiteral("setIndexPress(int,bool)"),
                          QStringLiteral("listClicked(QModelIndex)"),
                          QStringLiteral("scrollbarVisible(bool)"),
                          QStringLiteral("pressedTimeoutSlot()")}));
}

void TestListView::styleSheets()
{
    // MD5 of the three sheets as they were handed down, taken by another program.
    const TestUnit unit;
    QWidget host;
    const ListView list(&host);
    const auto sum = [](const QString &sheet) {
        return QString::fromLatin1(
            QCryptographicHash::hash(sheet.toUtf8(), QCryptographicHash::Md5).toHex());
    };
    QCOMPARE(sum(list.verticalScrollBar()->styleSheet()),
             QStringLiteral("e9b194853a67dfbdf1bd29f1d8c58a4c"));
    QCOMPARE(sum(list.getVerticalScrollBar()->styleSheet()),
             QStringLiteral("8411b51487417c24b4a21a1b3c3b5491"));
    QCOMPARE(sum(list.styleSheet()), QStringLiteral("c58735bebc89b60ad5af385183c006a6"));
}

void TestListView::placeOfTheCustomBar()
{
    FingerList finger(10);
    // 800 x 414: left 800 - 70, top 16, right 800 - 11, bottom 414 - 13.
    QCOMPARE(finger.list().getVerticalScrollBar()->geometry(),
             QRect(QPoint(730, 16), QPoint(789, 401)));
    finger.list().resize(600, 300);
    QCOMPARE(finger.list().getVerticalScrollBar()->geometry(),
             QRect(QPoint(530, 16), QPoint(589, 287)));
    QCOMPARE(finger.list().viewport()->height(), 300);
}

void TestListView::tapOnARowGivesExactlyOneClick_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("not moved") << 0;
    QTest::newRow("5 pixels down") << 5;
    QTest::newRow("5 pixels up") << -5;
    QTest::newRow("1 pixel down") << 1;
}

void TestListView::tapOnARowGivesExactlyOneClick()
{
    QFETCH(int, way);
    FingerList finger(10);
    finger.press(120);
    QCOMPARE(finger.takeNews(), QStringList(QStringLiteral("press 1 1")));
    finger.move(120 + way);
    QCOMPARE(finger.takeNews(), QStringList());
    finger.release(120 + way);
    QCOMPARE(finger.takeNews(), clicked(1).mid(1));
    QCOMPARE(value(finger), 0);
}

void TestListView::pressOnOneRowAndReleaseOnAnotherGivesNoClick()
{
    FingerList finger(10);
    finger.press(82);
    finger.move(86);
    finger.release(86);
    QCOMPARE(finger.takeNews(), QStringList(QStringLiteral("press 0 1")));
    QCOMPARE(value(finger), 0);
}

void TestListView::firstRowStaysPressedUntilTheNextGesture()
{
    FingerList finger(10);
    connect(&finger.list(), &ListView::setIndexPress,
            qobject_cast<VendorDataDelegate *>(finger.list().itemDelegate()),
            &VendorDataDelegate::setIndexPressSlot);
    const QColor unpressed = colorAt(finger, QPoint(4, 66 + 40));
    finger.press(82);
    finger.move(86);
    finger.release(86);
    QVERIFY(colorAt(finger, QPoint(4, 66 + 40)) != unpressed);
    finger.press(200);
    QCOMPARE(colorAt(finger, QPoint(4, 66 + 40)), unpressed);
    finger.release(200);
}

void TestListView::sixPixelsUnpressTheRowAndNoClickFollows_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("6 pixels up") << -6;
    QTest::newRow("6 pixels down") << 6;
    QTest::newRow("60 pixels up") << -60;
}

void TestListView::sixPixelsUnpressTheRowAndNoClickFollows()
{
    QFETCH(int, way);
    FingerList finger(10);
    finger.press(120);
    finger.move(120 + way);
    finger.release(120 + way);
    QCOMPARE(finger.takeNews(),
             QStringList({QStringLiteral("press 1 1"), QStringLiteral("press -1 0")}));
}

void TestListView::dragBackToThePressedRowGivesNoClick()
{
    FingerList finger(10);
    finger.press(120);
    finger.move(126);
    finger.move(120);
    finger.release(120);
    QCOMPARE(finger.takeNews(),
             QStringList({QStringLiteral("press 1 1"), QStringLiteral("press -1 0"),
                          QStringLiteral("press -1 0")}));
}

void TestListView::pressBelowTheLastRow()
{
    FingerList finger(3);
    finger.press(300);
    finger.release(300);
    QCOMPARE(finger.takeNews(), clicked(-1));
}

void TestListView::releaseBelowTheLastRowGivesNoClick()
{
    FingerList finger(3);
    finger.press(248);
    finger.move(252);
    finger.release(252);
    QCOMPARE(finger.takeNews(), QStringList(QStringLiteral("press 2 1")));
}

void TestListView::pressBelowTheLastRowAndReleaseOnARowGivesNoClick()
{
    FingerList finger(3);
    finger.press(252);
    finger.move(248);
    finger.release(248);
    QCOMPARE(finger.takeNews(), QStringList(QStringLiteral("press -1 1")));
}

void TestListView::horizontalMovementNeverDrags()
{
    FingerList finger(10);
    finger.pressAt(QPoint(100, 120));
    finger.moveTo(QPoint(500, 125));
    finger.releaseAt(QPoint(500, 125));
    QCOMPARE(finger.takeNews(), clicked(1));
}

void TestListView::clickAfterTheListHasScrolled()
{
    FingerList finger(10);
    finger.list().verticalScrollBar()->setValue(83);
    finger.press(40);
    finger.release(40);
    QCOMPARE(finger.takeNews(), clicked(1));
}

void TestListView::moveWithoutAPressDoesNothing()
{
    FingerList finger(10);
    // Qt keeps moves without a press from the list otherwise.
    finger.list().viewport()->setMouseTracking(true);
    finger.move(200);
    finger.move(10);
    QCOMPARE(finger.takeNews(), QStringList());
    QCOMPARE(value(finger), 0);
    // Nor does one go on that has ended.
    finger.press(200);
    finger.release(200);
    finger.takeNews();
    finger.move(10);
    QCOMPARE(finger.takeNews(), QStringList());
    QCOMPARE(value(finger), 0);
}

void TestListView::pressedRowIsAnnouncedOnlyWhilePressed()
{
    FingerList finger(10);
    finger.list().pressedTimeoutSlot();
    QCOMPARE(finger.takeNews(), QStringList());
    finger.press(10);
    finger.takeNews();
    finger.list().pressedTimeoutSlot();
    QCOMPARE(finger.takeNews(), QStringList(QStringLiteral("press 0 1")));
    finger.release(10);
}

void TestListView::secondTapAtOnceClicksAgain()
{
    // Qt calls the second press of a double tap by another name.
    FingerList finger(10);
    finger.press(10);
    finger.release(10);
    finger.takeNews();
    QTest::mouseDClick(finger.unit().screen().windowHandle(), Qt::LeftButton, Qt::NoModifier,
                       QPoint(300, 76));
    QVERIFY(finger.takeNews().contains(QStringLiteral("click 0")));
}

void TestListView::halfVisibleRowDoesNotJump()
{
    FingerList finger(20);
    finger.list().verticalScrollBar()->setValue(40);
    finger.press(10);
    finger.release(10);
    QCOMPARE(value(finger), 40);
    finger.press(405);
    finger.release(405);
    QTest::qWait(QApplication::doubleClickInterval() + 200);
    QCOMPARE(value(finger), 40);
}

void TestListView::pressedRowIsPaintedAtOnce()
{
    FingerList finger(10);
    connect(&finger.list(), &ListView::setIndexPress,
            qobject_cast<VendorDataDelegate *>(finger.list().itemDelegate()),
            &VendorDataDelegate::setIndexPressSlot);
    const QColor unpressed = colorAt(finger, QPoint(4, 66 + 120));
    finger.press(120);
    QCoreApplication::processEvents();
    QVERIFY(colorAt(finger, QPoint(4, 66 + 120)) != unpressed);
    finger.release(120);
    QCoreApplication::processEvents();
    QCOMPARE(colorAt(finger, QPoint(4, 66 + 120)), unpressed);
}

void TestListView::dragPaintsTheRowUnpressed()
{
    FingerList finger(10);
    connect(&finger.list(), &ListView::setIndexPress,
            qobject_cast<VendorDataDelegate *>(finger.list().itemDelegate()),
            &VendorDataDelegate::setIndexPressSlot);
    leaveLastPointAt(finger, 120);
    const auto shown = [&finger](int y) { return finger.shown().pixelColor(4, 66 + y); };
    const QColor unpressed = shown(122);
    finger.press(120);
    QVERIFY(shown(122) != unpressed);
    finger.move(110);
    QCOMPARE(value(finger), 10);
    QCOMPARE(shown(112), unpressed);
    finger.release(110);

    // At its beginning the list does not move, and nothing else paints the row anew.
    finger.list().verticalScrollBar()->setValue(0);
    finger.press(120);
    QVERIFY(shown(122) != unpressed);
    finger.move(140);
    QCOMPARE(value(finger), 0);
    QCOMPARE(shown(122), unpressed);
    finger.release(140);
}

FACTORY_TEST_MAIN(TestListView)
#include "tst_listview.moc"
