#include "panelunit.h"

#include "panel/panelstyle.h"
#include "panel/panelwindow.h"

#include "support/testmain.h"

#include <QAbstractButton>
#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QTabWidget>
#include <QtTest>

namespace
{
const int upgradeMs = 120000;
const int receiverTab = 1;
const int longestPauseMs = 1000;
} // namespace

/// The panel while an upgrade of the receiver blocks the unit's screen.
class TestPanelWindowUpgrade : public QObject
{
    Q_OBJECT

private slots:
    void staysAliveAndTellsHowFar();
};

void TestPanelWindowUpgrade::staysAliveAndTellsHowFar()
{
    PanelUnit unit;
    // At this speed each takes most of a second, of which the panel asks five times.
    unit.makePackages(60000, 60000);
    QVERIFY(unit.start("3"));
    panel::style::apply(*qApp);
    panel::PanelWindow window(unit.folder());
    window.show();
    window.start();
    window.findChild<QTabWidget *>("tabs")->setCurrentIndex(receiverTab);
    const auto *bar = window.findChild<QProgressBar *>("receiverProgress");
    const auto *busy = window.findChild<QLabel *>("busy");
    const auto *state = window.findChild<QLabel *>("receiverState");
    QTRY_COMPARE_WITH_TIMEOUT(state->text(), QString("runs GNSS 1.04.2, 230400 baud"), upgradeMs);

    for (const QStringList &command : {QStringList{"plug", "usb0"},
                                       {"key", "FACTORY"},
                                       {"see", "Factory", "20000"},
                                       {"press", "gps"},
                                       {"see", "Firmware verified Success", "60000"},
                                       {"press", "idUpdateBtn", "nowait"}}) {
        unit.ask(command);
    }
    // What is clicked is done while the screen hangs.
    QTRY_VERIFY_WITH_TIMEOUT(busy->text().startsWith("blocked "), upgradeMs);
    auto *plug = window.findChild<QAbstractButton *>("usb1Plug");
    QTest::mouseClick(plug, Qt::LeftButton);
    QTRY_COMPARE_WITH_TIMEOUT(plug->text(), QString("Pull"), upgradeMs);
    QVERIFY2(busy->text().startsWith("blocked "), qPrintable(busy->text()));
    int before = 0;
    qint64 longestPause = 0;
    QStringList stages;
    QElapsedTimer sinceTurn;
    sinceTurn.start();
    // The panel's event loop comes round all the time, and the bar never goes back.
    const bool isDone = QTest::qWaitFor(
        [&] {
            longestPause = qMax(longestPause, sinceTurn.restart());
            const QList<QLabel *> labels = window.findChildren<QLabel *>();
            for (const QLabel *stage : labels) {
                if (stage->objectName().startsWith("stage ")
                    && stage->backgroundRole() == QPalette::Highlight
                    && (stages.isEmpty() || stages.last() != stage->text())) {
                    stages.append(stage->text());
                }
            }
            const bool wentBack = bar->value() < before && bar->value() != 0;
            before = bar->value();
            return wentBack || state->text() == "runs GNSS 2.5.1, 230400 baud";
        },
        upgradeMs);
    QVERIFY(isDone);
    QCOMPARE(state->text(), QString("runs GNSS 2.5.1, 230400 baud"));
    QVERIFY2(longestPause < longestPauseMs, qPrintable(QString::number(longestPause)));
    // Short ones may be missed between two looks.
    for (const char *stage : {"Runs", "Boot loader", "Firmware"}) {
        QVERIFY2(stages.contains(stage), qPrintable(stages.join(", ")));
    }
    QVERIFY(stages.indexOf("Boot loader") < stages.indexOf("Firmware"));
    QTRY_COMPARE_WITH_TIMEOUT(busy->text(), QString("screen is free"), upgradeMs);
}

FACTORY_TEST_MAIN(TestPanelWindowUpgrade)
#include "tst_panelwindow_upgrade.moc"
