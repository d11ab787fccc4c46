#include "simulator/window/hostwindow.h"

#include "simulator/framework/unitapplication.h"
#include "simulator/window/bezel.h"
#include "simulator/window/hardkey.h"
#include "simulator/window/screen.h"
#include "support/testmain.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QtTest>

using namespace simulator;

class TestHostWindow : public QObject
{
    Q_OBJECT

private slots:
    void opensAtItsScale_data();
    void opensAtItsScale();
    void pictureKeepsItsProportions_data();
    void pictureKeepsItsProportions();
    void showsWhatThePageHasPainted_data();
    void showsWhatThePageHasPainted();
    void touchesReachThePixelThatIsSeenThere_data();
    void touchesReachThePixelThatIsSeenThere();
    void everyPixelIsReachedAtTwiceTheSize();
    void fingerIsFollowedOffTheWindow();
    void wheelKeysAndGoingAreHandedOn();
    void closingItEndsTheProgram();
};

namespace
{

/// Covers the whole screen, and writes down what the user does, in pixels of the screen.
class Page : public QWidget
{
public:
    explicit Page(Bezel &bezel)
        : QWidget(&bezel.screen())
    {
        setGeometry(bezel.screen().rect());
        setFocusPolicy(Qt::StrongFocus);
        show();
    }

    void setPatch(const QRect &patch)
    {
        m_patch = patch;
        repaint();
    }

    QStringList told;
    int timesLeft = 0;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Qt::blue);
        painter.fillRect(m_patch, Qt::red);
    }
    void mousePressEvent(QMouseEvent *event) override { tell("press", event->pos()); }
    void mouseMoveEvent(QMouseEvent *event) override { tell("move", event->pos()); }
    void mouseReleaseEvent(QMouseEvent *event) override { tell("release", event->pos()); }
    void wheelEvent(QWheelEvent *event) override { tell("wheel", event->position().toPoint()); }
    void keyPressEvent(QKeyEvent *event) override { told.append("key " + event->text()); }
    void leaveEvent(QEvent *) override { ++timesLeft; }

private:
    void tell(const QString &what, const QPoint &place)
    {
        told.append(QString("%1 %2 %3").arg(what).arg(place.x()).arg(place.y()));
    }

    QRect m_patch;
};

/// A unit with nothing but a page, in a window of that size.
struct Shown
{
    explicit Shown(const QSize &size)
    {
        bezel.show();
        window.open(1);
        window.resize(size);
        isThere = QTest::qWaitForWindowExposed(&window)
            && QTest::qWaitFor([this] { return !bezel.lastFrame().isNull(); });
    }

    QImage picture() { return window.screen()->grabWindow(window.winId()).toImage(); }

    Bezel bezel;
    Page page{bezel};
    HostWindow window{bezel};
    bool isThere = false;
};

constexpr QPoint glass(40, 36); // where it lies on the bezel

} // namespace

void TestHostWindow::opensAtItsScale_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<QSize>("size");
    QTest::newRow("smallest") << 0.5 << QSize(440, 306);
    QTest::newRow("smaller") << 0.75 << QSize(660, 459);
    // Tests have a display of 800 x 600 pixels.
    QTest::newRow("as large as there is room") << 4.0 << QSize(800, 556);
}

void TestHostWindow::opensAtItsScale()
{
    QFETCH(double, scale);
    QCOMPARE(QGuiApplication::primaryScreen()->availableSize(), QSize(800, 600));
    Bezel bezel;
    HostWindow window(bezel);
    bezel.show();
    window.open(scale);
    QTEST(window.size(), "size");
    QCOMPARE(window.title(), QString("Simulated head unit"));
    QVERIFY(!bezel.windowHandle()->isVisible());
    QCOMPARE(bezel.size(), QSize(880, 612));
}

void TestHostWindow::pictureKeepsItsProportions_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("picture");
    QTest::newRow("as it is") << QSize(880, 612) << QRect(0, 0, 880, 612);
    QTest::newRow("too wide") << QSize(1000, 612) << QRect(60, 0, 880, 612);
    QTest::newRow("too high") << QSize(440, 500) << QRect(0, 97, 440, 306);
    QTest::newRow("twice") << QSize(1760, 1224) << QRect(0, 0, 1760, 1224);
    QTest::newRow("a pixel") << QSize(1, 1) << QRect(0, 0, 1, 1);
}

void TestHostWindow::pictureKeepsItsProportions()
{
    QFETCH(QSize, size);
    QFETCH(QRect, picture);
    Shown shown(size);
    QVERIFY(shown.isThere);
    QCOMPARE(shown.window.pictureRect(), picture);
    const QImage seen = shown.picture();
    QCOMPARE(seen.size(), size);
    // The corners of the picture are the bezel's, and beside it there is nothing.
    QVERIFY(seen.pixelColor(picture.topLeft()) != QColor(Qt::black));
    QVERIFY(seen.pixelColor(picture.bottomRight()) != QColor(Qt::black));
    for (const QPoint &corner :
         {picture.topLeft() - QPoint(1, 1), picture.bottomRight() + QPoint(1, 1)}) {
        const QPoint inside(qBound(0, corner.x(), size.width() - 1),
                            qBound(0, corner.y(), size.height() - 1));
        QVERIFY(picture.contains(inside) || seen.pixelColor(inside) == QColor(Qt::black));
    }
}

void TestHostWindow::showsWhatThePageHasPainted_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("patch"); // in the window, of (100, 200 60x40) on the screen
    QTest::newRow("1") << QSize(880, 612) << QRect(140, 236, 60, 40);
    QTest::newRow("0.5") << QSize(440, 306) << QRect(70, 118, 30, 20);
    QTest::newRow("1.5") << QSize(1320, 918) << QRect(210, 354, 90, 60);
    QTest::newRow("2") << QSize(1760, 1224) << QRect(280, 472, 120, 80);
    QTest::newRow("2, too high") << QSize(1760, 1324) << QRect(280, 522, 120, 80);
}

/// No event loop runs between, as when a page paints before it blocks.
void TestHostWindow::showsWhatThePageHasPainted()
{
    QFETCH(QSize, size);
    QFETCH(QRect, patch);
    Shown shown(size);
    QVERIFY(shown.isThere);
    shown.page.setPatch(QRect(100, 200, 60, 40));
    const QImage seen = shown.picture();
    // Smoothing takes a pixel of the edges.
    const QRect inside = patch.adjusted(1, 1, -1, -1);
    const QRect around = patch.adjusted(-2, -2, 2, 2);
    for (const QPoint &corner :
         {inside.topLeft(), inside.topRight(), inside.bottomLeft(), inside.bottomRight()}) {
        QCOMPARE(seen.pixelColor(corner), QColor(Qt::red));
    }
    for (const QPoint &corner :
         {around.topLeft(), around.topRight(), around.bottomLeft(), around.bottomRight()}) {
        QCOMPARE(seen.pixelColor(corner), QColor(Qt::blue));
    }
    if (size == shown.bezel.size()) {
        QCOMPARE(seen.convertToFormat(QImage::Format_RGB32),
                 shown.bezel.lastFrame().convertToFormat(QImage::Format_RGB32));
    }
}

void TestHostWindow::touchesReachThePixelThatIsSeenThere_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QPoint>("pixel"); // of the screen
    const QSize same(880, 612);
    QTest::newRow("1, first") << same << QPoint(40, 36) << QPoint(0, 0);
    QTest::newRow("1, last") << same << QPoint(839, 515) << QPoint(799, 479);
    const QSize half(440, 306);
    QTest::newRow("0.5, first") << half << QPoint(20, 18) << QPoint(1, 1);
    QTest::newRow("0.5, last") << half << QPoint(419, 257) << QPoint(799, 479);
    const QSize more(1320, 918);
    QTest::newRow("1.5, first") << more << QPoint(60, 54) << QPoint(0, 0);
    QTest::newRow("1.5, second") << more << QPoint(61, 55) << QPoint(1, 1);
    QTest::newRow("1.5, second still") << more << QPoint(62, 56) << QPoint(1, 1);
    QTest::newRow("1.5, third") << more << QPoint(63, 57) << QPoint(2, 2);
    QTest::newRow("1.5, last") << more << QPoint(1259, 773) << QPoint(799, 479);
    QTest::newRow("too wide") << QSize(1000, 612) << QPoint(100, 36) << QPoint(0, 0);
    QTest::newRow("too high, 0.5") << QSize(440, 500) << QPoint(419, 354) << QPoint(799, 479);
}

void TestHostWindow::touchesReachThePixelThatIsSeenThere()
{
    QFETCH(QSize, size);
    QFETCH(QPoint, place);
    QFETCH(QPoint, pixel);
    Shown shown(size);
    QVERIFY(shown.isThere);
    QSignalSpy touches(static_cast<UnitApplication *>(qApp), &UnitApplication::touchBegins);
    QTest::mouseClick(&shown.window, Qt::LeftButton, Qt::NoModifier, place);
    QCOMPARE(touches.count(), 1);
    const QString at = QString("%1 %2").arg(pixel.x()).arg(pixel.y());
    QCOMPARE(shown.page.told, (QStringList{"press " + at, "release " + at}));
}

void TestHostWindow::everyPixelIsReachedAtTwiceTheSize()
{
    Shown shown(QSize(1760, 1224));
    QVERIFY(shown.isThere);
    QStringList expected;
    for (int step = 0; step < 2 * 480; ++step) {
        QTest::mouseClick(&shown.window, Qt::LeftButton, Qt::NoModifier,
                          2 * glass + QPoint(step, step));
        const QString at = QString("%1 %1").arg(step / 2);
        expected << "press " + at << "release " + at;
    }
    QCOMPARE(shown.page.told, expected);
}

void TestHostWindow::fingerIsFollowedOffTheWindow()
{
    Shown shown(QSize(440, 306));
    QVERIFY(shown.isThere);
    QTest::mousePress(&shown.window, Qt::LeftButton, Qt::NoModifier, QPoint(30, 28));
    QTest::mouseMove(&shown.window, QPoint(-10, 28));
    QTest::mouseRelease(&shown.window, Qt::LeftButton, Qt::NoModifier, QPoint(-10, 28));
    QCOMPARE(shown.page.told, (QStringList{"press 21 21", "move -59 21", "release -59 21"}));
    // The hard keys beside the screen, too.
    QSignalSpy home(&shown.bezel.homeKey(), &HardKey::clicked);
    QTest::mouseClick(&shown.window, Qt::LeftButton, Qt::NoModifier,
                      shown.bezel.homeKey().geometry().center() / 2);
    QCOMPARE(home.count(), 1);
}

void TestHostWindow::wheelKeysAndGoingAreHandedOn()
{
    Shown shown(QSize(1760, 1224));
    QVERIFY(shown.isThere);
    QVERIFY(QTest::qWaitForWindowActive(&shown.window));
    QCOMPARE(QApplication::activeWindow(), &shown.bezel);
    shown.page.setFocus();
    QTest::keyClick(&shown.window, 'a');
    QWheelEvent wheel(QPointF(280, 272), QPointF(280, 272), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&shown.window, &wheel);
    QCOMPARE(shown.page.told, (QStringList{"key a", "wheel 100 100"}));
    QTest::mouseMove(&shown.window, QPoint(280, 272));
    QEvent going(QEvent::Leave);
    QCoreApplication::sendEvent(&shown.window, &going);
    QCOMPARE(shown.page.timesLeft, 1);
}

void TestHostWindow::closingItEndsTheProgram()
{
    Shown shown(QSize(880, 612));
    QVERIFY(shown.isThere);
    QTimer::singleShot(0, &shown.window, [&shown] { shown.window.close(); });
    QTimer::singleShot(60000, &shown.window, [] { QCoreApplication::exit(1); });
    QCOMPARE(QCoreApplication::exec(), 0);
}

FACTORY_TEST_APPLICATION_MAIN(UnitApplication, TestHostWindow)
#include "tst_hostwindow.moc"
