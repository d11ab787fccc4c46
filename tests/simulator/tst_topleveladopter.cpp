#include "simulator/framework/topleveladopter.h"

#include "simulator/window/bezel.h"
#include "simulator/window/finger.h"
#include "simulator/window/screen.h"

#include "kvappframework/sim/screenlayer.h"
#include "support/testmain.h"

#include <QMenu>
#include <QPushButton>
#include <QThread>
#include <QtTest>

using namespace simulator;

class TestTopLevelAdopter : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void pageAppearsOverTheView();
    void pageIsNeverAWindow();
    void pageTakesTouches();
    void pageKeepsItsGeometry();
    void laterPageLiesOverTheEarlierOne();
    void pageThatBlocksTheEventLoopLaterIsThere();
    void pageThatPaintsItselfBeforeAdoption();
    void pageThatDeletesItselfBeforeAdoption();
    void pageThatIsHiddenBeforeAdoption();
    void pageShownAgainAfterItWasHidden();
    void pageThatWasPolishedBefore();
    void hiddenHelperIsLeftAlone();
    void simulatorsOwnWindowIsLeftAlone();
    void windowWithAParentIsLeftAlone();
    void toolTipsAndMenusAreLeftAlone();
    void leftOverPagesAreDeleted();
    void leftOverPageThatWasNotAdoptedYetIsDeleted();
    void pageThatIsGoneIsForgotten();

private:
    QWidget *hit() { return m_bezel->screen().childAt(400, 240); }

    QScopedPointer<Bezel> m_bezel;
    QScopedPointer<TopLevelAdopter> m_adopter;
    QWidget *m_view = nullptr;
};

void TestTopLevelAdopter::init()
{
    m_bezel.reset(new Bezel);
    m_view = new QWidget(&m_bezel->screen());
    m_view->setGeometry(m_bezel->screen().rect());
    m_adopter.reset(
        new TopLevelAdopter(m_bezel.data(), new kvappframework::ScreenLayer(&m_bezel->screen())));
    m_bezel->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_bezel.data()));
}

void TestTopLevelAdopter::cleanup()
{
    m_adopter.reset();
    m_bezel.reset();
}

void TestTopLevelAdopter::pageAppearsOverTheView()
{
    QCOMPARE(hit(), m_view);
    QPointer<QWidget> page = new QWidget;
    page->setGeometry(0, 0, 800, 480);
    page->show();
    page->raise();
    QCoreApplication::processEvents();
    QCOMPARE(hit(), page.data());
    QVERIFY(page->isVisible());
    QVERIFY(!page->isWindow());
    QVERIFY(m_bezel->screen().isAncestorOf(page));
    delete page;
    QCOMPARE(hit(), m_view);
}

void TestTopLevelAdopter::pageIsNeverAWindow()
{
    QWidget page;
    page.setGeometry(0, 0, 800, 480);
    page.show();
    QVERIFY(page.windowHandle() == nullptr || !page.windowHandle()->isVisible());
    QCoreApplication::processEvents();
    QVERIFY(page.windowHandle() == nullptr || !page.windowHandle()->isVisible());
    int windows = 0;
    const QWindowList all = QGuiApplication::topLevelWindows();
    for (const QWindow *window : all) {
        windows += window->isVisible() ? 1 : 0;
    }
    QCOMPARE(windows, 1);
}

void TestTopLevelAdopter::pageTakesTouches()
{
    QPushButton page;
    page.setGeometry(0, 0, 800, 480);
    QSignalSpy clicked(&page, &QPushButton::clicked);
    page.show();
    QCoreApplication::processEvents();
    Finger(*m_bezel).tap(QPoint(790, 470));
    QCOMPARE(clicked.count(), 1);
}

void TestTopLevelAdopter::pageKeepsItsGeometry()
{
    QWidget page;
    page.setGeometry(62, 108, 676, 280);
    page.show();
    QCoreApplication::processEvents();
    QCOMPARE(page.geometry(), QRect(62, 108, 676, 280));
    QCOMPARE(page.mapTo(&m_bezel->screen(), QPoint(0, 0)), QPoint(62, 108));
    // Beside the page touches reach what lies there.
    QCOMPARE(m_bezel->screen().childAt(61, 240), m_view);
}

void TestTopLevelAdopter::laterPageLiesOverTheEarlierOne()
{
    QWidget first;
    QWidget second;
    for (QWidget *page : {&first, &second}) {
        page->setGeometry(0, 0, 800, 480);
        page->show();
        page->raise();
    }
    QCoreApplication::processEvents();
    QCOMPARE(hit(), &second);
    second.hide();
    QCOMPARE(hit(), &first);
}

void TestTopLevelAdopter::pageThatBlocksTheEventLoopLaterIsThere()
{
    QWidget page;
    page.setGeometry(0, 0, 800, 480);
    QPalette red;
    red.setColor(QPalette::Window, Qt::red);
    page.setPalette(red);
    page.setAutoFillBackground(true);
    page.show();
    QColor seen;
    // Queued behind the showing, as a page does it that works long on the graphical thread.
    QMetaObject::invokeMethod(
        &page,
        [&] {
            page.repaint();
            QThread::msleep(50);
            seen = m_bezel->lastFrame().pixelColor(m_bezel->screenRect().center());
        },
        Qt::QueuedConnection);
    QCoreApplication::processEvents();
    QCOMPARE(seen, QColor(Qt::red));
}

void TestTopLevelAdopter::pageThatPaintsItselfBeforeAdoption()
{
    QWidget page;
    page.setGeometry(0, 0, 800, 480);
    page.show();
    page.raise();
    page.activateWindow();
    page.repaint();
    page.resize(700, 400);
    page.repaint();
    page.setFocus();
    QCoreApplication::processEvents();
    QCOMPARE(hit(), &page);
    QCOMPARE(page.geometry(), QRect(0, 0, 700, 400));
}

void TestTopLevelAdopter::pageThatDeletesItselfBeforeAdoption()
{
    QPointer<QWidget> page;
    bool wasOnScreen = false;
    // In an event handler, so that the deletion is due in the event loop above it.
    QTimer::singleShot(0, this, [&] {
        page = new QWidget;
        page->setGeometry(0, 0, 800, 480);
        page->deleteLater();
        page->show();
        page->raise();
        QMetaObject::invokeMethod(
            this, [&] { wasOnScreen = page != nullptr || hit() != m_view; }, Qt::QueuedConnection);
        QTimer::singleShot(50, this, [] { QTestEventLoop::instance().exitLoop(); });
    });
    QTestEventLoop::instance().enterLoop(5);
    QVERIFY(page.isNull());
    QVERIFY(!wasOnScreen);
    QCOMPARE(hit(), m_view);
}

void TestTopLevelAdopter::pageThatIsHiddenBeforeAdoption()
{
    QWidget page;
    page.setGeometry(0, 0, 800, 480);
    page.show();
    page.hide();
    QCoreApplication::processEvents();
    QVERIFY(!page.isVisible());
    QCOMPARE(hit(), m_view);
    page.show();
    QCoreApplication::processEvents();
    QCOMPARE(hit(), &page);
}

void TestTopLevelAdopter::pageShownAgainAfterItWasHidden()
{
    QWidget page;
    page.setGeometry(0, 0, 800, 480);
    page.show();
    QCoreApplication::processEvents();
    page.hide();
    QCOMPARE(hit(), m_view);
    page.show();
    QCOMPARE(hit(), &page);
}

void TestTopLevelAdopter::pageThatWasPolishedBefore()
{
    QWidget page;
    page.setGeometry(0, 0, 800, 480);
    page.ensurePolished();
    page.show();
    QCoreApplication::processEvents();
    QCOMPARE(hit(), &page);
    QVERIFY(page.windowHandle() == nullptr || !page.windowHandle()->isVisible());
}

void TestTopLevelAdopter::hiddenHelperIsLeftAlone()
{
    // A button without a parent that nobody ever shows.
    QPushButton helper;
    helper.setGeometry(0, 0, 80, 65);
    helper.ensurePolished();
    helper.hide();
    QCoreApplication::processEvents();
    QVERIFY(helper.isWindow());
    QVERIFY(helper.parentWidget() == nullptr);
    QVERIFY(!helper.isVisible());
    QVERIFY(!helper.testAttribute(Qt::WA_DontShowOnScreen));
    QCOMPARE(m_bezel->screen().childAt(10, 10), m_view);
}

void TestTopLevelAdopter::simulatorsOwnWindowIsLeftAlone()
{
    m_bezel->hide();
    m_bezel->show();
    QCoreApplication::processEvents();
    QVERIFY(m_bezel->isWindow());
    QVERIFY(m_bezel->windowHandle()->isVisible());
}

void TestTopLevelAdopter::windowWithAParentIsLeftAlone()
{
    QWidget window(m_view, Qt::Window);
    window.show();
    QCoreApplication::processEvents();
    QVERIFY(window.isWindow());
    QCOMPARE(window.parentWidget(), m_view);
}

void TestTopLevelAdopter::toolTipsAndMenusAreLeftAlone()
{
    QMenu menu;
    menu.addAction("entry");
    menu.popup(QPoint(10, 10));
    QWidget toolTip(nullptr, Qt::ToolTip);
    toolTip.show();
    QCoreApplication::processEvents();
    for (QWidget *widget : {static_cast<QWidget *>(&menu), &toolTip}) {
        QVERIFY(widget->isWindow());
        QVERIFY(widget->isVisible());
        QVERIFY(!widget->testAttribute(Qt::WA_DontShowOnScreen));
    }
}

void TestTopLevelAdopter::leftOverPagesAreDeleted()
{
    QPointer<QWidget> shown = new QWidget;
    QPointer<QWidget> hidden = new QWidget;
    shown->show();
    hidden->show();
    QCoreApplication::processEvents();
    hidden->hide();
    m_adopter->deletePages();
    QVERIFY(shown.isNull());
    QVERIFY(hidden.isNull());
    QCOMPARE(hit(), m_view);
}

void TestTopLevelAdopter::leftOverPageThatWasNotAdoptedYetIsDeleted()
{
    QPointer<QWidget> page = new QWidget;
    page->show();
    m_adopter->deletePages();
    QVERIFY(page.isNull());
    QCoreApplication::processEvents();
    QCOMPARE(hit(), m_view);
}

void TestTopLevelAdopter::pageThatIsGoneIsForgotten()
{
    auto *page = new QWidget;
    page->show();
    QCoreApplication::processEvents();
    delete page;
    m_adopter->deletePages();
    QCOMPARE(hit(), m_view);
}

FACTORY_TEST_MAIN(TestTopLevelAdopter)
#include "tst_topleveladopter.moc"
