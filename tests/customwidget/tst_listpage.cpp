#include "customwidget/listpage.h"

#include "customwidget/listview.h"
#include "customwidget/lvscrollbar.h"
#include "fingerlist.h"
#include "support/testmain.h"

#include <QPointer>
#include <QScreen>
#include <QtTest>

class TestListPage : public QObject
{
    Q_OBJECT

private slots:
    void placesTheList();
    void listTellsTheDelegateThePressedRow();
    void firstFrameHasTheBar();
    void listGoesWithThePage();
    void pageOutlivesItsHost();
};

void TestListPage::placesTheList()
{
    TestUnit unit;
    QWidget host(&unit.screen());
    host.resize(100, 100);
    host.show();
    const ListPage page(&host);
    QCOMPARE(host.size(), QSize(800, 480));
    QCOMPARE(page.host(), &host);
    QCOMPARE(page.listView()->parentWidget(), &host);
    QCOMPARE(page.listView()->geometry(), QRect(0, 66, 800, 414));
    QCOMPARE(page.listView()->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
    QVERIFY(page.listView()->isVisible());
}

void TestListPage::listTellsTheDelegateThePressedRow()
{
    TestUnit unit;
    QWidget host(&unit.screen());
    QStringListModel model(QVector<QString>(3).toList());
    VendorDataDelegate delegate(nullptr);
    ListPage page(&host);
    page.setRows(&model, &delegate);
    host.show();
    QCoreApplication::processEvents();
    const auto picture = [&unit] { return unit.screen().grab().toImage(); };
    const QImage before = picture();
    unit.press(QPoint(300, 66 + 100));
    const QImage pressed = picture();
    QVERIFY(pressed.pixel(4, 66 + 100) != before.pixel(4, 66 + 100));
    QCOMPARE(pressed.pixel(4, 66 + 20), before.pixel(4, 66 + 20));
    unit.release(QPoint(300, 66 + 100));
    QCOMPARE(picture(), before);
}

void TestListPage::firstFrameHasTheBar()
{
    TestUnit unit;
    QWidget &screen = unit.screen();
    QWidget host(&screen);
    host.show();
    const auto shown = [&screen] { return screen.screen()->grabWindow(screen.winId()).toImage(); };
    QStringListModel model(QVector<QString>(5).toList());
    VendorDataDelegate delegate(nullptr);
    ListPage page(&host);
    page.setRows(&model, &delegate);
    // What the event loop would send next.
    QEvent update(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&screen, &update);
    const QImage first = shown();
    QCoreApplication::processEvents();
    QVERIFY(page.listView()->getVerticalScrollBar()->isVisible());
    QCOMPARE(first, shown());
}

void TestListPage::listGoesWithThePage()
{
    TestUnit unit;
    QWidget host(&unit.screen());
    host.show();
    QPointer<ListView> list;
    {
        const ListPage page(&host);
        list = page.listView();
    }
    QVERIFY(list);
    QVERIFY(list->isHidden());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!list);
}

void TestListPage::pageOutlivesItsHost()
{
    TestUnit unit;
    auto *host = new QWidget(&unit.screen());
    const ListPage page(host);
    delete host;
    QVERIFY(page.listView() == nullptr);
}

FACTORY_TEST_MAIN(TestListPage)
#include "tst_listpage.moc"
