#include "kvwidget/kvwidget.h"

#include "touchscreen.h"

#include "support/testmain.h"

#include <QtTest>

namespace
{

class Page : public KvWidget
{
    Q_OBJECT

public:
    using KvWidget::KvWidget;
};

} // namespace

class TestKvWidget : public QObject
{
    Q_OBJECT

private slots:
    void drawsNothingByItself();
    void paintsItsStyleSheet_data();
    void paintsItsStyleSheet();
    void paintsTranslucentBackgroundOnce_data();
    void paintsTranslucentBackgroundOnce();
    void needsNoParent();
};

void TestKvWidget::drawsNothingByItself()
{
    TouchScreen screen;
    screen.setPalette(QPalette(Qt::white, QColor(1, 2, 3)));
    KvWidget widget(&screen);
    widget.setGeometry(0, 0, 50, 50);
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(QPoint(25, 25)), QColor(1, 2, 3));
}

void TestKvWidget::paintsItsStyleSheet_data()
{
    QTest::addColumn<QString>("sheet");
    QTest::newRow("plain") << "background-color: rgb(10, 20, 30);";
    QTest::newRow("by object name") << "#page{\nbackground-color: rgb(10, 20, 30);\n}";
    QTest::newRow("by its base class") << "KvWidget { background-color: rgb(10, 20, 30); }";
}

void TestKvWidget::paintsItsStyleSheet()
{
    QFETCH(QString, sheet);
    TouchScreen screen;
    Page page(&screen);
    page.setObjectName("page");
    page.setGeometry(0, 0, 50, 50);
    page.setStyleSheet(sheet);
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(QPoint(25, 25)), QColor(10, 20, 30));
    QCOMPARE(screen.colorAt(QPoint(50, 25)), QColor(Qt::black));
}

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
