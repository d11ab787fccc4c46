#include "factorydebug/statusbar.h"

#include "kvwidget/kviconbutton.h"
#include "support/testmain.h"
#include "support/testunit.h"

#include <QLabel>
#include <QSignalSpy>
#include <QtTest>

class TestStatusBar : public QObject
{
    Q_OBJECT

private slots:
    void rightAfterConstructionOnlyExitIsVisibleAndTheTitleReadsFactory();
    void emptyTitleIsClearedAndStillSwitchesToThePageMode();
    void pressOnExitSendsExitAndOnReturnSendsReturn();
};

namespace
{

KvIconButton *button(const StatusBar &bar, const char *id)
{
    const auto buttons = bar.findChildren<KvIconButton *>();
    for (KvIconButton *candidate : buttons) {
        if (candidate->buttonID() == QLatin1String(id)) {
            return candidate;
        }
    }
    return nullptr;
}

QLabel *title(const StatusBar &bar)
{
    return bar.findChild<QLabel *>();
}

} // namespace

void TestStatusBar::rightAfterConstructionOnlyExitIsVisibleAndTheTitleReadsFactory()
{
    TestUnit unit;
    StatusBar bar(&unit.screen());
    bar.show();
    QVERIFY(!button(bar, "return")->isVisible());
    QVERIFY(button(bar, "exit")->isVisible());
    QCOMPARE(title(bar)->text(), QStringLiteral("Factory"));
}

void TestStatusBar::emptyTitleIsClearedAndStillSwitchesToThePageMode()
{
    TestUnit unit;
    StatusBar bar(&unit.screen());
    bar.show();
    bar.interSecondary(QString());
    QCOMPARE(title(bar)->text(), QString());
    QVERIFY(button(bar, "return")->isVisible());
    QVERIFY(!button(bar, "exit")->isVisible());
}

void TestStatusBar::pressOnExitSendsExitAndOnReturnSendsReturn()
{
    TestUnit unit;
    StatusBar bar(&unit.screen());
    bar.show();
    QSignalSpy spy(&bar, &StatusBar::buttonClicked);

    unit.tap(QPoint(760, 32));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.takeFirst().at(0).toString(), QStringLiteral("exit"));
    unit.tap(QPoint(40, 32));
    QCOMPARE(spy.size(), 0);

    bar.interSecondary(QStringLiteral("Page"));
    unit.tap(QPoint(40, 32));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.takeFirst().at(0).toString(), QStringLiteral("return"));
    unit.tap(QPoint(760, 32));
    QCOMPARE(spy.size(), 0);
}

FACTORY_TEST_MAIN(TestStatusBar)
#include "tst_statusbar.moc"
