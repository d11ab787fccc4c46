#include "kvwidget/baseview.h"

#include "touchscreen.h"

#include "support/testmain.h"

#include <QtTest>

class TestBaseView : public QObject
{
    Q_OBJECT

private slots:
    void keepsItsTitleAsProperty();
    void drawsNothingOverThePage();
    void paintsItsStyleSheet_data();
    void paintsItsStyleSheet();
};

void TestBaseView::keepsItsTitleAsProperty()
{
    QWidget parent;
    BaseView view("setup system version", &parent);
    QCOMPARE(view.property("title").value<QString>(), QString("setup system version"));
    QCOMPARE(view.property("title").toString(), QString("setup system version"));
    QCOMPARE(view.parentWidget(), &parent);
    QVERIFY(BaseView("no parent").isWindow());
}

void TestBaseView::drawsNothingOverThePage()
{
    TouchScreen screen;
    screen.setPalette(QPalette(Qt::white, QColor(1, 2, 3)));
    BaseView view("Panel Settings", &screen);
    view.setGeometry(0, 66, 800, 412);
    QVERIFY(screen.turnOn());
    QVERIFY(view.isVisible());
    QVERIFY(screen.inkIn(screen.rect(), QColor(1, 2, 3)).isNull());
}

void TestBaseView::paintsItsStyleSheet_data()
{
    QTest::addColumn<bool>("styledBackground");
    QTest::newRow("sheet alone") << false;
    QTest::newRow("with WA_StyledBackground") << true;
}

void TestBaseView::paintsItsStyleSheet()
{
    QFETCH(bool, styledBackground);
    TouchScreen screen;
    screen.setPalette(QPalette(Qt::white, QColor(1, 2, 3)));
    BaseView view("Key Led Brightness", &screen);
    view.setGeometry(0, 66, 800, 412);
    view.setAttribute(Qt::WA_StyledBackground, styledBackground);
    view.setStyleSheet("background-color:rgb(0, 0, 0);");
    QVERIFY(screen.turnOn());
    QVERIFY(screen.inkIn(view.geometry(), Qt::black).isNull());
    QCOMPARE(screen.colorAt(QPoint(400, 65)), QColor(1, 2, 3));
}

FACTORY_TEST_MAIN(TestBaseView)
#include "tst_baseview.moc"
