#include "kvwidget/kvwidget.h"

#include "touchscreen.h"

#include "support/testmain.h"

#include <QtTest>

class TestKvWidget : public QObject
{
    Q_OBJECT

private slots:
    void paintsTranslucentBackgroundOnce_data();
    void paintsTranslucentBackgroundOnce();
    void needsNoParent();
};

void TestKvWidget::paintsTranslucentBackgroundOnce_data()
{
    QTest::addColumn<bool>("styledBackground");
    QTest::newRow("by the widget") << false;
    QTest::newRow("by Qt, for WA_StyledBackground") << true;
}

void TestKvWidget::paintsTranslucentBackgroundOnce()
{
    QFETCH(bool, styledBackground);
    TouchScreen screen;
    KvWidget widget(&screen);
    widget.setAttribute(Qt::WA_StyledBackground, styledBackground);
    widget.setGeometry(0, 0, 50, 50);
    widget.setStyleSheet("background-color: rgba(255, 255, 255, 102);");
    QVERIFY(screen.turnOn());
    // 102 of 255 over black, once: 102; twice it would be 163.
    QVERIFY(qAbs(screen.colorAt(QPoint(25, 25)).red() - 102) <= 2);
}

void TestKvWidget::needsNoParent()
{
    KvWidget widget;
    QVERIFY(widget.isWindow());
}

FACTORY_TEST_MAIN(TestKvWidget)
#include "tst_kvwidget.moc"
