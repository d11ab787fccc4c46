#include "system/ctouchcheckpage.h"

#include "kvwidget/kviconbutton.h"
#include "support/testmain.h"
#include "support/testunit.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QtTest>

class TestCTouchCheckPage : public QObject
{
    Q_OBJECT

private slots:
    void beforeAnyTouchTheRedCrossLiesOnTheCentre();
    void touchAtAFraction_data();
    void touchAtAFraction();
    void touchInTheCornerDrawsTheWholeCrossPartlyOffThePage();
    void touchOutsideTheScreen();
    void releaseLeavesTheCross();
    void largerScreenKeepsTheMarks();
    void backButtonIsHiddenAndItsOwn();
    void backButtonAsksForTheEnd();
    void pageAndBackButtonGoInAnyOrder();
};

namespace
{

const QRgb white = qRgb(255, 255, 255);
const QRgb black = qRgb(0, 0, 0);
const QRgb red = qRgb(255, 0, 0);

/// The cross by itself: which pixels of a white picture are not white, by hand.
bool isOnCross(const QPoint &pixel, const QPoint &centre)
{
    const QPoint offset = pixel - centre;
    return (offset.y() == 0 && qAbs(offset.x()) <= 15)
        || (offset.x() == 0 && qAbs(offset.y()) <= 15);
}

/// The page's font, painted by itself at a place with a colour.
QImage label(const QSize &size, const QPoint &position, const QString &text, QRgb color)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(white);
    QPainter painter(&image);
    QFont font;
    font.setPixelSize(12);
    painter.setFont(font);
    painter.setPen(QColor(color));
    painter.drawText(QPointF(position), text);
    return image;
}

/// Whether a label's pixels stand in the picture, where no cross lies over them.
bool shows(const QImage &picture, const QImage &label, const QList<QPoint> &crosses)
{
    bool anything = false;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QPoint pixel(x, y);
            if (label.pixel(pixel) == white) {
                continue;
            }
            anything = true;
            const bool isUnderCross =
                std::any_of(crosses.cbegin(), crosses.cend(),
                            [&](const QPoint &centre) { return isOnCross(pixel, centre); });
            if (!isUnderCross && picture.pixel(pixel) != label.pixel(pixel)) {
                return false;
            }
        }
    }
    return anything;
}

QList<QPoint> marks()
{
    return {{30, 30}, {770, 30}, {770, 450}, {30, 450}, {400, 240}};
}

QString coordinates(const QPoint &point)
{
    return QStringLiteral("(%1,%2)").arg(point.x()).arg(point.y());
}

/// The page as the system control page shows it: a window of its own.
struct TouchPage
{
    explicit TouchPage(const QSize &display = QSize(800, 480))
    {
        unit.screen().resize(display);
        page.reset(new CTouchCheckPage(nullptr));
        page->show();
        if (!QTest::qWaitForWindowExposed(page.data())) {
            qFatal("The page does not appear.");
        }
    }

    QImage picture() const { return page->grab().toImage().convertToFormat(QImage::Format_RGB32); }

    void send(QEvent::Type type, const QPointF &position) const
    {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const Qt::MouseButtons buttons =
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, position, position, position, button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(page->windowHandle(), &event);
    }

    void press(const QPointF &position) const { send(QEvent::MouseButtonPress, position); }
    void move(const QPointF &position) const { send(QEvent::MouseMove, position); }
    void release(const QPointF &position) const { send(QEvent::MouseButtonRelease, position); }

    /// Whether the whole red cross lies there, as far as it is on the page, with its label.
    bool hasRedCross(const QPoint &centre) const
    {
        const QImage shown = picture();
        for (int offset = -15; offset <= 15; ++offset) {
            for (const QPoint &pixel : {centre + QPoint(offset, 0), centre + QPoint(0, offset)}) {
                if (shown.rect().contains(pixel) && shown.pixel(pixel) != red) {
                    return false;
                }
            }
        }
        return shows(shown, label(shown.size(), QPoint(300, 240), coordinates(centre), red),
                     marks() + QList<QPoint>({centre}));
    }

    TestUnit unit;
    QScopedPointer<CTouchCheckPage> page;
};

} // namespace

void TestCTouchCheckPage::beforeAnyTouchTheRedCrossLiesOnTheCentre()
{
    const TouchPage shown;
    QVERIFY(shown.hasRedCross(QPoint(400, 240)));
    const QImage picture = shown.picture();
    QVERIFY(shows(picture,
                  label(picture.size(), QPoint(385, 265), QStringLiteral("(400,240)"), black),
                  {QPoint(400, 240)}));
}

void TestCTouchCheckPage::touchAtAFraction_data()
{
    QTest::addColumn<QPointF>("touch");
    QTest::addColumn<QPoint>("point");
    QTest::newRow("up and down") << QPointF(10.6, 20.4) << QPoint(11, 20);
    QTest::newRow("half") << QPointF(100.5, 200.5) << QPoint(101, 201);
    QTest::newRow("just below half") << QPointF(100.49, 200.49) << QPoint(100, 200);
    QTest::newRow("last pixel") << QPointF(799.4, 479.4) << QPoint(799, 479);
}

void TestCTouchCheckPage::touchAtAFraction()
{
    QFETCH(QPointF, touch);
    QFETCH(QPoint, point);
    const TouchPage shown;
    shown.press(touch);
    QVERIFY(shown.hasRedCross(point));
}

void TestCTouchCheckPage::touchInTheCornerDrawsTheWholeCrossPartlyOffThePage()
{
    const TouchPage shown;
    shown.press(QPointF(0, 0));
    QVERIFY(shown.hasRedCross(QPoint(0, 0)));
    QCOMPARE(shown.picture().pixel(15, 0), red);
    QCOMPARE(shown.picture().pixel(16, 0), white);
}

void TestCTouchCheckPage::touchOutsideTheScreen()
{
    const TouchPage shown;
    shown.press(QPointF(400, 100));
    shown.move(QPointF(-7.6, 479.5));
    QVERIFY(shown.hasRedCross(QPoint(-8, 480)));
    shown.move(QPointF(1200, -300));
    QVERIFY(shown.hasRedCross(QPoint(1200, -300)));
    shown.release(QPointF(1200, -300));
    shown.press(QPointF(50, 60));
    QVERIFY(shown.hasRedCross(QPoint(50, 60)));
}

void TestCTouchCheckPage::releaseLeavesTheCross()
{
    const TouchPage shown;
    shown.press(QPointF(100, 100));
    shown.move(QPointF(150, 160));
    shown.release(QPointF(600, 400));
    QVERIFY(shown.hasRedCross(QPoint(150, 160)));
    shown.press(QPointF(610, 410));
    QVERIFY(shown.hasRedCross(QPoint(610, 410)));
}

void TestCTouchCheckPage::largerScreenKeepsTheMarks()
{
    const TouchPage shown(QSize(1024, 600));
    QCOMPARE(shown.page->size(), QSize(1024, 600));
    const QImage picture = shown.picture();
    for (const QPoint &centre : {QPoint(770, 450), QPoint(30, 450), QPoint(770, 30)}) {
        QCOMPARE(picture.pixel(centre), black);
    }
    QCOMPARE(picture.pixel(1023, 599), white);
    QCOMPARE(picture.pixel(994, 570), white);
    QVERIFY(shown.hasRedCross(QPoint(400, 240)));
}

void TestCTouchCheckPage::backButtonIsHiddenAndItsOwn()
{
    const TestUnit unit;
    QPointer<KvIconButton> button;
    {
        const CTouchCheckPage page(nullptr);
        QCOMPARE(page.findChildren<QWidget *>().size(), 0);
        const QWidgetList all = QApplication::topLevelWidgets();
        for (QWidget *widget : all) {
            if (auto *found = qobject_cast<KvIconButton *>(widget)) {
                button = found;
            }
        }
        QVERIFY(button != nullptr);
        QVERIFY(button->isHidden());
        QCOMPARE(button->buttonID(), QStringLiteral("idBackBtn"));
        QCOMPARE(button->geometry(), QRect(0, 0, 80, 65));
        QCOMPARE(button->minimumSize(), QSize(80, 65));
        QCOMPARE(button->property("normalImage").value<QPixmap>().size(), QSize(80, 65));
        QCOMPARE(button->property("pressImage").value<QPixmap>().size(), QSize(80, 65));
        QCOMPARE(button->property("showMode").value<KvIconButton::ShowMode>(),
                 KvIconButton::ShowImageText);
    }
    QVERIFY(button.isNull());
}

void TestCTouchCheckPage::backButtonAsksForTheEnd()
{
    TestUnit unit;
    CTouchCheckPage page(&unit.screen());
    auto *button = unit.screen().findChild<KvIconButton *>();
    QVERIFY(button != nullptr);
    QCOMPARE(button->parentWidget(), &unit.screen());
    const QSignalSpy exits(&page, &CTouchCheckPage::sigExitPage);

    button->show();
    button->raise();
    unit.tap(QPoint(40, 30));

    QCOMPARE(exits.count(), 1);
}

void TestCTouchCheckPage::pageAndBackButtonGoInAnyOrder()
{
    const TestUnit unit;
    QScopedPointer<QWidget> parent(new QWidget);
    QPointer<CTouchCheckPage> page(new CTouchCheckPage(parent.data()));
    page->raise(); // behind its button among the parent's children
    parent.reset();
    QVERIFY(page.isNull());
}

FACTORY_TEST_MAIN(TestCTouchCheckPage)
#include "tst_ctouchcheckpage.moc"
