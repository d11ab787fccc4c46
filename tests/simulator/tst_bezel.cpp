#include "simulator/window/bezel.h"

#include "simulator/window/hardkey.h"
#include "simulator/window/screen.h"
#include "support/testmain.h"

#include <QSemaphore>
#include <QThreadPool>
#include <QtTest>

using namespace simulator;

class TestBezel : public QObject
{
    Q_OBJECT

private slots:
    void screenHasItsSize();
    void keysLieBesideTheScreen();
    void keysAnswerAClick();
    void lastFrameIsWhatWasPainted();
    void lastFrameFollowsASynchronousRepaint();
    void lastFrameHasNothingThatIsOnlyAskedFor();
    void pendingChangesCanBePainted();
    void aFrameTakesNoOtherThread();
};

namespace
{

/// A patch of one colour in the middle of the screen.
class Patch : public QWidget
{
public:
    Patch(Bezel &bezel, const QColor &color)
        : QWidget(&bezel.screen())
    {
        setAutoFillBackground(true);
        setColor(color);
        setGeometry(300, 200, 200, 80);
        show();
    }

    void setColor(const QColor &color)
    {
        QPalette colored = palette();
        colored.setColor(QPalette::Window, color);
        setPalette(colored);
    }
};

QColor middleColor(const Bezel &bezel)
{
    const QImage frame = bezel.lastFrame();
    return frame.isNull() ? QColor() : frame.pixelColor(bezel.screenRect().center());
}

/// A bezel that is shown, with a red patch on it.
struct RedPatch
{
    RedPatch()
        : patch(bezel, Qt::red)
    {
        bezel.show();
    }

    bool isSeen() const
    {
        return QTest::qWaitFor([this] { return middleColor(bezel) == QColor(Qt::red); });
    }

    Bezel bezel;
    Patch patch;
};

} // namespace

void TestBezel::screenHasItsSize()
{
    Bezel bezel;
    QCOMPARE(bezel.screen().size(), QSize(800, 480));
    QCOMPARE(bezel.screenRect().size(), QSize(800, 480));
    QVERIFY(bezel.rect().contains(bezel.screenRect()));
    QCOMPARE(bezel.minimumSize(), bezel.maximumSize());
}

void TestBezel::keysLieBesideTheScreen()
{
    Bezel bezel;
    for (const HardKey *key : {&bezel.homeKey(), &bezel.factoryKey()}) {
        QVERIFY(bezel.rect().contains(key->geometry()));
        QVERIFY(!bezel.screenRect().intersects(key->geometry()));
    }
    QVERIFY(!bezel.homeKey().geometry().intersects(bezel.factoryKey().geometry()));
}

void TestBezel::keysAnswerAClick()
{
    Bezel bezel;
    bezel.show();
    QSignalSpy home(&bezel.homeKey(), &HardKey::clicked);
    QSignalSpy factory(&bezel.factoryKey(), &HardKey::clicked);
    QTest::mouseClick(bezel.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      bezel.homeKey().geometry().center());
    QCOMPARE(home.count(), 1);
    QCOMPARE(factory.count(), 0);
    QTest::mouseClick(bezel.windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      bezel.factoryKey().geometry().center());
    QCOMPARE(factory.count(), 1);
}

void TestBezel::lastFrameIsWhatWasPainted()
{
    QVERIFY(Bezel().lastFrame().isNull());
    RedPatch red;
    QVERIFY(red.isSeen());
    QCOMPARE(red.bezel.lastFrame().size(), red.bezel.size());
    red.patch.setColor(Qt::green);
    QTRY_COMPARE(middleColor(red.bezel), QColor(Qt::green));
}

void TestBezel::lastFrameFollowsASynchronousRepaint()
{
    RedPatch red;
    QVERIFY(red.isSeen());
    // No event loop runs between these lines, as when a page paints before it blocks.
    red.patch.setColor(Qt::green);
    red.patch.repaint();
    QCOMPARE(middleColor(red.bezel), QColor(Qt::green));
}

void TestBezel::lastFrameHasNothingThatIsOnlyAskedFor()
{
    RedPatch red;
    QVERIFY(red.isSeen());
    red.patch.setColor(Qt::green);
    red.patch.update();
    QCOMPARE(middleColor(red.bezel), QColor(Qt::red));
}

void TestBezel::pendingChangesCanBePainted()
{
    RedPatch red;
    QVERIFY(red.isSeen());
    red.patch.setColor(Qt::green);
    red.bezel.paintPending();
    QCOMPARE(middleColor(red.bezel), QColor(Qt::green));
}

void TestBezel::aFrameTakesNoOtherThread()
{
    QImage painted(800, 480, QImage::Format_ARGB32_Premultiplied);
    painted.fill(QColor(1, 2, 3));
    QThreadPool &pool = *QThreadPool::globalInstance();
    pool.setMaxThreadCount(1);
    QSemaphore end;
    pool.start([&end] { end.tryAcquire(1, 5000); });
    QElapsedTimer time;
    time.start();
    const QImage frame = withoutOpacity(painted);
    QVERIFY2(time.elapsed() < 4000, qPrintable(QString::number(time.elapsed())));
    end.release();
    pool.waitForDone();
    QCOMPARE(frame.format(), QImage::Format_RGB32);
    QCOMPARE(frame, painted.convertToFormat(QImage::Format_RGB32));
    const QImage other = painted.convertToFormat(QImage::Format_RGB888);
    QCOMPARE(withoutOpacity(other), frame);
}

FACTORY_TEST_MAIN(TestBezel)
#include "tst_bezel.moc"
