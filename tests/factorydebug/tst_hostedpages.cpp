#include "factorydebug/factorydebugview.h"

#include "kvwidget/kviconbutton.h"
#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

/// That no page was forgotten in one of the view's tables. It knows no list of pages of its own.
class TestHostedPages : public QObject
{
    Q_OBJECT

private slots:
    void everyPageOfTheMenuIsClosedByReturn();
};

namespace
{

/// What the view consists of, but for what is about to be deleted.
QObjectList partsOf(const QWidget &view)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return view.children();
}

} // namespace

void TestHostedPages::everyPageOfTheMenuIsClosedByReturn()
{
    TestUnit unit;
    FactoryDebugView view(&unit.screen());
    view.show();
    const QObjectList parts = partsOf(view);
    const auto buttons = view.findChildren<KvIconButton *>(QString(), Qt::FindDirectChildrenOnly);
    int pages = 0;
    for (KvIconButton *button : buttons) {
        unit.tap(button);
        if (!buttons.first()->isVisible()) {
            ++pages;
            QVERIFY2(partsOf(view).size() > parts.size(), qPrintable(button->buttonID()));
            unit.tap(QPoint(40, 32));
            QVERIFY2(buttons.first()->isVisible(), qPrintable(button->buttonID()));
            QVERIFY2(partsOf(view) == parts, qPrintable(button->buttonID()));
        }
    }
    QCOMPARE(pages, int(hostedpages::SlotCount));
}

FACTORY_TEST_MAIN(TestHostedPages)
#include "tst_hostedpages.moc"
