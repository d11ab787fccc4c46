#include "panelunit.h"

#include "panel/glassview.h"
#include "panel/panelstyle.h"
#include "panel/unitclient.h"

#include "support/testmain.h"

#include <QtTest>

using namespace panel;

/// The unit's screen in the panel, with the touch check of a unit in a program of its own on it:
/// the page shows where the finger is.
class TestGlassView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aClickIsATouch();
    void theFingerFollowsTheMouse();
    void aFingerBeyondTheEdgeStaysOnTheScreen();
    void onlyTheLeftButtonTouchesAndOnlyThePicture();
    void aSmallPictureIsTouchedWhereItShows();

private:
    void mouse(QEvent::Type type, const QPoint &place, Qt::MouseButton button = Qt::LeftButton);
    /// The touches since the last time, "press 10 20" and "release 10 20".
    QStringList touches();
    void compareTouches(const QStringList &expected);

    PanelUnit m_unit;
    QScopedPointer<UnitClient> m_client;
    QScopedPointer<GlassView> m_glass;
    int m_touchesKnown = 0;
};

void TestGlassView::initTestCase()
{
    style::apply(*qApp);
    QVERIFY(m_unit.start());
    m_client.reset(new UnitClient(m_unit.folder()));
    m_glass.reset(new GlassView(*m_client));
    m_glass->resize(800, 480);
    m_glass->show();
    m_client->start();
    QTRY_VERIFY_WITH_TIMEOUT(!m_glass->screen().isNull(), patienceMs);
    for (const QStringList &command : {QStringList{"key", "FACTORY"},
                                       {"see", "Factory", "20000"},
                                       {"press", "sysCtrl"},
                                       {"visible", "idTouchBtn"},
                                       {"press", "idTouchBtn"}}) {
        m_unit.ask(command);
    }
    touches();
}

void TestGlassView::mouse(QEvent::Type type, const QPoint &place, Qt::MouseButton button)
{
    const bool isMove = type == QEvent::MouseMove;
    const bool isUp = type == QEvent::MouseButtonRelease;
    QMouseEvent event(type, place, isMove ? Qt::NoButton : button,
                      isUp ? Qt::NoButton : Qt::MouseButtons(button), Qt::NoModifier);
    QCoreApplication::sendEvent(m_glass.data(), &event);
}

QStringList TestGlassView::touches()
{
    const QStringList all = m_unit.ask({"journal", "--all", "/^touch (press|release) /"});
    QStringList fresh;
    const QStringList unknown = all.mid(m_touchesKnown);
    for (const QString &line : unknown) {
        fresh.append(line.section("touch ", 1));
    }
    m_touchesKnown = all.size();
    return fresh;
}

void TestGlassView::compareTouches(const QStringList &expected)
{
    QStringList told;
    QTRY_VERIFY_WITH_TIMEOUT((told += touches()).size() >= expected.size(), patienceMs);
    QCOMPARE(told, expected);
}

void TestGlassView::aClickIsATouch()
{
    QTest::mouseClick(m_glass.data(), Qt::LeftButton, Qt::NoModifier, {400, 100});
    compareTouches({"press 400 100", "release 400 100"});
}

void TestGlassView::theFingerFollowsTheMouse()
{
    m_unit.ask({"tap", "620", "300"});
    const QString file = m_unit.folder() + "/there.png";
    m_unit.ask({"shot", file});
    const QImage there = QImage(file).convertToFormat(QImage::Format_RGB32);
    QVERIFY(!there.isNull());
    compareTouches({"press 620 300", "release 620 300"});
    const auto showsIt = [&] {
        return m_glass->screen().convertToFormat(QImage::Format_RGB32) == there;
    };

    mouse(QEvent::MouseButtonPress, {100, 200});
    QTRY_VERIFY_WITH_TIMEOUT(!showsIt(), patienceMs);
    mouse(QEvent::MouseMove, {620, 300});
    QTRY_VERIFY_WITH_TIMEOUT(showsIt(), patienceMs);
    mouse(QEvent::MouseButtonRelease, {620, 300});
    compareTouches({"press 100 200", "release 620 300"});
}

void TestGlassView::aFingerBeyondTheEdgeStaysOnTheScreen()
{
    mouse(QEvent::MouseButtonPress, {790, 470});
    mouse(QEvent::MouseMove, {900, 500});
    mouse(QEvent::MouseButtonRelease, {900, 500});
    compareTouches({"press 790 470", "release 799 479"});
}

void TestGlassView::onlyTheLeftButtonTouchesAndOnlyThePicture()
{
    m_glass->resize(800, 600);
    // Commands are answered one after the other: what comes first is known when the last is.
    mouse(QEvent::MouseButtonPress, {400, 300}, Qt::RightButton);
    mouse(QEvent::MouseMove, {420, 300}, Qt::RightButton);
    mouse(QEvent::MouseButtonRelease, {420, 300}, Qt::RightButton);
    mouse(QEvent::MouseButtonPress, {400, 59});
    QTest::mouseClick(m_glass.data(), Qt::LeftButton, Qt::NoModifier, {400, 60});
    compareTouches({"press 400 0", "release 400 0"});
}

void TestGlassView::aSmallPictureIsTouchedWhereItShows()
{
    m_glass->resize(400, 240);
    QTest::mouseClick(m_glass.data(), Qt::LeftButton, Qt::NoModifier, {100, 60});
    compareTouches({"press 200 120", "release 200 120"});
}

FACTORY_TEST_MAIN(TestGlassView)
#include "tst_glassview.moc"
