#include "simulator/commands/allcommands.h"

#include "testsimulator.h"

#include "simulator/window/screen.h"
#include "support/testmain.h"

#include <QImage>
#include <QPainter>
#include <QtTest>

using namespace simulator;

namespace
{

/// Does not ask for a repaint when its colour changes.
class Lamp : public QWidget
{
public:
    using QWidget::QWidget;

    QColor color = Qt::red;

protected:
    void paintEvent(QPaintEvent *) override { QPainter(this).fillRect(rect(), color); }
};

} // namespace

/// What the console tells of the screen, and the pictures that it takes.
class TestLookCommands : public QObject
{
    Q_OBJECT

private slots:
    void looks();
    void failingLookTellsWhatIsThere();
    void textsAreWaitedForInTheUnitsTime();
    void shots();
    void shotsOfAPart();
    void shotShowsWhatWasNotRepainted();
    void shotsGoWhereCdSays();
    void refuses_data();
    void refuses();
};

void TestLookCommands::looks()
{
    TestSimulator unit;
    QCOMPARE(unit.run("look").lines.mid(0, 3),
             (QStringList{"activity \"\"", "page simulator::HomeScreen",
                          "text \"Simulated head unit\""}));
    unit.openActivity();
    QCOMPARE(unit.run("look").lines,
             (QStringList{"activity factorydebug", "page QWidget", "text \"test activity\"",
                          "button count 20 100 200 50 enabled count",
                          "button block 20 160 200 50 enabled block",
                          "button page 20 220 200 50 enabled page",
                          "button restart 20 280 200 50 enabled restart",
                          "button hang 20 340 200 50 enabled hang"}));
    QCOMPARE(unit.errorOf("press page"), QString());
    QCOMPARE(unit.errorOf("see \"page of its own\""), QString());
    QCOMPARE(unit.run("look").lines,
             (QStringList{"activity factorydebug", "page QLabel", "text \"page of its own\""}));
}

void TestLookCommands::failingLookTellsWhatIsThere()
{
    TestSimulator unit;
    unit.openActivity();
    ConsoleResult result = unit.run("see nothing 0");
    QCOMPARE(result.error, QString("the screen does not show \"nothing\"; shown are its texts"));
    QCOMPARE(result.lines,
             (QStringList{"test activity", "count", "block", "page", "restart", "hang"}));
    result = unit.run("unseen /a.*t/ 0");
    QCOMPARE(result.error, QString("the screen shows \"/a.*t/\""));
    QCOMPARE(result.lines, (QStringList{"test activity", "restart"}));
}

void TestLookCommands::textsAreWaitedForInTheUnitsTime()
{
    TestSimulator unit(100.0);
    unit.openActivity();
    for (const char *line : {"see nothing 30000", "unseen count 30000"}) {
        QElapsedTimer time;
        time.start();
        // Half a minute of the unit is 0.3 s here.
        QVERIFY(!unit.errorOf(line).isEmpty());
        QVERIFY2(time.elapsed() >= 300, qPrintable(QString::number(time.elapsed())));
        QVERIFY2(time.elapsed() < 15000, qPrintable(QString::number(time.elapsed())));
    }
    QTimer::singleShot(20, &unit.simulator(), [&unit] { unit.errorOf("press count"); });
    QCOMPARE(unit.errorOf("see \"presses: 1\" 1000000"), QString());
}

void TestLookCommands::shots()
{
    TestSimulator unit;
    QCOMPARE(unit.errorOf("shot screen.png"), QString());
    QCOMPARE(unit.errorOf("shot-window window.png"), QString());
    const QString folder = QFileInfo(unit.path("")).path();
    const QImage screen(folder + "/screen.png");
    const QImage window(folder + "/window.png");
    QCOMPARE(screen.size(), QSize(800, 480));
    QCOMPARE(window.size(), unit.simulator().bezel().size());
    QCOMPARE(window.copy(unit.simulator().bezel().screenRect()), screen);
    // The accent under the home screen's title.
    QCOMPARE(screen.pixelColor(400, 200), QColor(28, 160, 248));
    QCOMPARE(screen.pixelColor(10, 10), QColor(11, 12, 13));
}

void TestLookCommands::shotsOfAPart()
{
    TestSimulator unit;
    const QString folder = QFileInfo(unit.path("")).path();
    for (const QString &verb : {QString("shot"), QString("shot-anew")}) {
        QCOMPARE(unit.errorOf(verb + " screen.png"), QString());
        QCOMPARE(unit.errorOf(verb + " part.png 390 190 410 290"), QString());
        const QImage part(folder + "/part.png");
        QCOMPARE(part.size(), QSize(410, 290));
        QCOMPARE(part, QImage(folder + "/screen.png").copy(390, 190, 410, 290));
    }
}

void TestLookCommands::shotShowsWhatWasNotRepainted()
{
    TestSimulator unit;
    Lamp lamp(&unit.simulator().bezel().screen());
    lamp.setGeometry(0, 0, 800, 480);
    lamp.show();
    // The window comes to light.
    QCoreApplication::processEvents();
    const QString folder = QFileInfo(unit.path("")).path();
    const auto looksAsBefore = [&](const QString &verb) {
        return unit.errorOf(verb + " now.png").isEmpty()
            && QImage(folder + "/now.png") == QImage(folder + "/before.png");
    };
    QCOMPARE(unit.errorOf("shot before.png"), QString());
    QVERIFY(looksAsBefore("shot-anew"));

    lamp.color = Qt::green;
    QVERIFY(looksAsBefore("shot"));
    QVERIFY(!looksAsBefore("shot-anew"));
    QVERIFY(looksAsBefore("shot"));
}

void TestLookCommands::shotsGoWhereCdSays()
{
    TestSimulator unit;
    const QString folder = QFileInfo(unit.path("")).path();
    QVERIFY(QDir(folder).mkpath("with blanks/in it"));
    QCOMPARE(unit.errorOf("cd 'with blanks'"), QString());
    QCOMPARE(unit.errorOf("cd 'in it'"), QString());
    QCOMPARE(unit.errorOf("shot 'a b.png'"), QString());
    QVERIFY(QFile::exists(folder + "/with blanks/in it/a b.png"));
}

void TestLookCommands::refuses_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("error");
    const QString nowhere = "/etc/passwd/nowhere/x.png";
    for (const QString &verb : {QString("shot"), QString("shot-anew"), QString("shot-window")}) {
        QTest::newRow(qPrintable(verb + ": no folder"))
            << verb + " " + nowhere << "the picture \"" + nowhere + "\" cannot be written";
    }
    for (const QString &verb : {QString("shot"), QString("shot-anew")}) {
        QTest::newRow(qPrintable(verb + ": half a place"))
            << verb + " x.png 10 20"
            << "WIDTH is a whole number from 1 to 790, not \"\"";
        QTest::newRow(qPrintable(verb + ": beside the screen"))
            << verb + " x.png 800 0 1 1"
            << "X is a whole number from 0 to 799, not \"800\"";
        QTest::newRow(qPrintable(verb + ": beyond the screen"))
            << verb + " x.png 10 20 790 461"
            << "HEIGHT is a whole number from 1 to 460, not \"461\"";
    }
}

void TestLookCommands::refuses()
{
    QFETCH(QString, line);
    TestSimulator unit;
    QTEST(unit.errorOf(line), "error");
}

FACTORY_TEST_MAIN(TestLookCommands)
#include "tst_lookcommands.moc"
