#include "kvwidget/baseview.h"

#include "support/testmain.h"

#include <QtTest>

class TestBaseView : public QObject
{
    Q_OBJECT

private slots:
    void keepsItsTitleAsProperty();
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

FACTORY_TEST_MAIN(TestBaseView)
#include "tst_baseview.moc"
