#include "kvwidget/popupview.h"

#include "testpopup.h"
#include "touchscreen.h"

#include "support/testmain.h"

#include <QtTest>

class TestPopupView : public QObject
{
    Q_OBJECT

private slots:
    void numbers();
    void comesToTheTop();

    void okTells();
    void cancelTells();
    void disabledButton_data();
    void disabledButton();
    void unknownButtonNames();
    void settersAreSilent();

    void touchesBesideTheBox();
    void touchesOnTheBox();
    void pageThatTakesTheTouchesIsDimmed();
};

void TestPopupView::numbers()
{
    QCOMPARE(int(PopupView::OkCancel), 0);
    QCOMPARE(int(PopupView::OkOnly), 1);
    QCOMPARE(int(PopupView::CancelOnly), 2);
    QCOMPARE(int(PopupView::NoButton), 3);
    QCOMPARE(int(PopupView::ButtonsAtBottom), 1);
}

void TestPopupView::comesToTheTop()
{
    TouchScreen screen;
    Popup popup(&screen);
    popup.hide();
    KvWidget later(&screen);
    later.setGeometry(0, 0, 800, 480);
    QVERIFY(screen.turnOn());
    popup.show();
    QCOMPARE(screen.childAt(400, 150), &popup);
}

void TestPopupView::okTells()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(screen.turnOn());
    screen.fingerDown(popup.middleOf(okName));
    QCOMPARE(popup.heard, QStringList());
    screen.fingerUp(popup.middleOf(okName));
    QCOMPARE(popup.heard, QStringList{"ok userdata"});
    QVERIFY(!popup.visibleWhenHeard);
    QVERIFY(popup.isHidden());
}

void TestPopupView::cancelTells()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(screen.turnOn());
    screen.tap(popup.middleOf(cancelName));
    QCOMPARE(popup.heard, QStringList{"cancel userdata"});
    QVERIFY(!popup.visibleWhenHeard);
    QVERIFY(popup.isHidden());
}

void TestPopupView::disabledButton_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("told");
    QTest::newRow("OK") << QString(okName) << "ok userdata";
    QTest::newRow("Cancel") << QString(cancelName) << "cancel userdata";
}

void TestPopupView::disabledButton()
{
    QFETCH(QString, name);
    QFETCH(QString, told);
    TouchScreen screen;
    Popup popup(&screen);
    popup.setButtonDisabled(name, true);
    QVERIFY(screen.turnOn());
    const QImage disabledFace = popup.button(name)->grab().toImage();
    screen.tap(popup.middleOf(name));
    QCOMPARE(popup.heard, QStringList());
    QVERIFY(popup.isVisible());

    popup.setButtonDisabled(name, false);
    QVERIFY(popup.button(name)->grab().toImage() != disabledFace);
    screen.tap(popup.middleOf(name));
    QCOMPARE(popup.heard, QStringList{told});
}

void TestPopupView::unknownButtonNames()
{
    Popup popup;
    popup.setButtonDisabled("popupview_OK", true);
    popup.setButtonDisabled("ok", true);
    popup.setButtonDisabled(QString(), true);
    QVERIFY(!popup.button(okName)->disableState());
    QVERIFY(!popup.button(cancelName)->disableState());
    popup.setButtonDisabled(okName, true);
    QVERIFY(popup.button(okName)->disableState());
    QVERIFY(!popup.button(cancelName)->disableState());
}

void TestPopupView::settersAreSilent()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(screen.turnOn());
    QVERIFY(popup.setProperty("popupViewId", "other"));
    QCOMPARE(popup.property("popupViewId").value<QString>(), QString("other"));
    QVERIFY(popup.setProperty("text", "text"));
    QCOMPARE(popup.text(), QString("text"));
    popup.setButtonType(PopupView::CancelOnly);
    popup.setButtonPosition(PopupView::ButtonsUnderText);
    popup.setShowTimeout(1);
    popup.setOkText("a");
    popup.setCancelText("b");
    popup.setButtonDisabled(okName, true);
    QTest::qWait(30);
    QCOMPARE(popup.heard, QStringList());
    QVERIFY(popup.isVisible());
}

void TestPopupView::touchesBesideTheBox()
{
    TouchScreen screen;
    ButtonBelow below(&screen);
    QWidget layer(&screen);
    layer.setGeometry(0, 0, 800, 480);
    Popup popup(&layer);
    popup.setButtonType(PopupView::NoButton);
    // The framework's layers reach no further than their children.
    layer.setMask(popup.geometry());
    QVERIFY(screen.turnOn());
    screen.tap(QPoint(400, 157));
    screen.tap(QPoint(61, 200));
    QCOMPARE(below.clicks, 2);
    screen.tap(QPoint(400, 158));
    screen.tap(QPoint(62, 200));
    QCOMPARE(below.clicks, 2);
}

void TestPopupView::touchesOnTheBox()
{
    TouchScreen screen;
    Popup popup(&screen);
    QVERIFY(screen.turnOn());
    screen.tap(QPoint(400, 150));
    QCOMPARE(screen.touches(), 0);
    QVERIFY(popup.isVisible());
    screen.tap(QPoint(10, 10));
    QCOMPARE(screen.touches(), 1);
}

void TestPopupView::pageThatTakesTheTouchesIsDimmed()
{
    TouchScreen screen;
    screen.setPalette(QPalette(Qt::white, QColor(200, 200, 200)));
    FullPage page(&screen);
    Popup popup(&page);
    popup.hide();
    QVERIFY(screen.turnOn());
    const QPoint besideBox(10, 10);
    QCOMPARE(screen.colorAt(besideBox).red(), 200);
    QVERIFY(repaintsAfter(page, [&] { popup.show(); }));
    const int dimmed = screen.colorAt(besideBox).red();
    QVERIFY2(dimmed > 40 && dimmed < 120, qPrintable(QString::number(dimmed)));
    QVERIFY(repaintsAfter(page, [&] { popup.hide(); }));
    QCOMPARE(screen.colorAt(besideBox).red(), 200);
}

FACTORY_TEST_MAIN(TestPopupView)
#include "tst_popupview.moc"
