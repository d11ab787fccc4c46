#include "setup/csetupalstest.h"

#include "adjustrow.h"
#include "alspage.h"

#include "kvwidget/cboolbutton.h"
#include "kvwidget/kvhorstrbutton.h"
#include "support/testmain.h"

#include <QSignalSpy>
#include <QTranslator>

class TestCSetupALSTestForm : public QObject
{
    Q_OBJECT

private slots:
    void endsWithTheFormsSize();
    void isBlack();
    void row_data();
    void row();
    void rowsAreAligned();
    void readingFillsItsPlace();
    void buttonsShowAndPress();
    void buttonsAreTouchedAtTheirPictures_data();
    void buttonsAreTouchedAtTheirPictures();
    void switchIsWhollyVisibleAndTouchable();

    void idsAreNotTranslated();
};

namespace
{

/// Translates every text into capitals.
class ShoutingTranslator : public QTranslator
{
public:
    ShoutingTranslator() { QCoreApplication::installTranslator(this); }
    ~ShoutingTranslator() override { QCoreApplication::removeTranslator(this); }

    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *text, const char *, int) const override
    {
        return QString::fromLatin1(text).toUpper();
    }
};

} // namespace

void TestCSetupALSTestForm::endsWithTheFormsSize()
{
    Screen screen;
    screen.open();
    RUN_CHECK(checkForm(screen.page, QRect(0, 66, 800, 480), QStringLiteral("ALS SENSOR DEBUG"),
                        QRect(10, 81, 781, 321)));
    RUN_CHECK(checkOwnBlackStyle(screen.page));
}

void TestCSetupALSTestForm::isBlack()
{
    Screen screen;
    screen.open();
    RUN_CHECK(checkIsBlack(screen.unit, screen.page,
                           {QPoint(0, 0), QPoint(799, 0), QPoint(5, 200), QPoint(400, 405)}));
}

void TestCSetupALSTestForm::row_data()
{
    addIndexes(rows);
}

void TestCSetupALSTestForm::row()
{
    QFETCH(int, index);
    const AdjustRow &row = rows[index];
    Screen screen;
    screen.open();

    RUN_CHECK(checkRow(screen.page, row, plainNameStyle));
    RUN_CHECK(checkNameLabel(screen.page, "labCurrentVal", "Current:0", plainNameStyle));
    RUN_CHECK(checkGrowingValue(screen.page, row));

    auto *value = screen.widget<QLabel>(row.valueLabel);
    value->setText(QStringLiteral("1000"));
    // The layout makes room for it.
    QCoreApplication::sendPostedEvents();
    QVERIFY(isTextInside(value));

    for (const char *name : {row.decrease, row.increase}) {
        const auto *button = screen.widget<KvHorStrButton>(name);
        QCOMPARE(button->minimumSize(), QSize(56, 56));
        QCOMPARE(button->maximumSize(), QSize(800, 800));
    }
}

void TestCSetupALSTestForm::rowsAreAligned()
{
    Screen screen;
    screen.open();
    for (const AdjustRow &row : rows) {
        RUN_CHECK(checkAlignment(screen.page, row, rows[0]));
    }
}

void TestCSetupALSTestForm::readingFillsItsPlace()
{
    Screen screen;
    screen.open();
    const auto *reading = screen.widget<QLabel>("labCurrentVal");
    // As wide as a label here may be, and all of it between the two spacers.
    QCOMPARE(reading->size(), QSize(400, 35));
}

void TestCSetupALSTestForm::buttonsShowAndPress()
{
    Screen screen;
    screen.open();
    for (const char *name : {"decreaseNight", "increaseNight"}) {
        RUN_CHECK(checkShowsAndPresses(screen.unit, screen.page, name));
    }
}

void TestCSetupALSTestForm::buttonsAreTouchedAtTheirPictures_data()
{
    QTest::addColumn<int>("fromMiddle");
    QTest::addColumn<bool>("touched");
    // The picture is 56 pixels high, and the row leaves the button more.
    QTest::newRow("above") << -29 << false;
    QTest::newRow("at the upper edge") << -27 << true;
    QTest::newRow("at the lower edge") << 27 << true;
    QTest::newRow("below") << 29 << false;
}

void TestCSetupALSTestForm::buttonsAreTouchedAtTheirPictures()
{
    QFETCH(int, fromMiddle);
    QFETCH(bool, touched);
    Screen screen;
    screen.open();
    for (const AdjustRow &row : rows) {
        for (const char *name : {row.decrease, row.increase}) {
            const auto *button = screen.widget<KvHorStrButton>(name);
            const QPoint middle = button->mapTo(&screen.unit.screen(), button->rect().center());
            screen.news();
            screen.unit.tap(middle + QPoint(0, fromMiddle));
            QCOMPARE(!screen.news(effects).isEmpty(), touched);
        }
    }
}

void TestCSetupALSTestForm::switchIsWhollyVisibleAndTouchable()
{
    Screen screen;
    screen.open();
    auto *autoSwitch = screen.widget<CBoolButton>("autoBtn");
    QCOMPARE(autoSwitch->parentWidget(), screen.page.data());
    QCOMPARE(autoSwitch->geometry(), QRect(620, 50, 80, 62));
    QCOMPARE(autoSwitch->buttonID(), QStringLiteral("id_alsbtn"));
    // The lower half lies over the layout's widget.
    QVERIFY(screen.widget<QWidget>("layoutWidget")->geometry().intersects(autoSwitch->geometry()));
    QCOMPARE(autoSwitch->visibleRegion(), QRegion(autoSwitch->rect()));
    QSignalSpy released(autoSwitch, &CBoolButton::btnReleased);
    const QPoint corner = screen.page->pos() + autoSwitch->pos();
    int taps = 0;
    for (const QPoint &point :
         {QPoint(0, 0), QPoint(79, 0), QPoint(40, 31), QPoint(0, 61), QPoint(79, 61)}) {
        screen.unit.tap(corner + point);
        QCOMPARE(released.count(), ++taps);
    }
}

void TestCSetupALSTestForm::idsAreNotTranslated()
{
    const ShoutingTranslator translator;
    Screen screen;
    screen.open();
    QCOMPARE(screen.text("labDayTarget"), QStringLiteral("DAYDST [MAX:1000]"));
    QCOMPARE(screen.widget<CBoolButton>("autoBtn")->buttonID(), QStringLiteral("id_alsbtn"));
    for (const AdjustRow &row : rows) {
        QCOMPARE(screen.widget<KvHorStrButton>(row.decrease)->buttonId(),
                 QLatin1String(row.decreaseId));
        QCOMPARE(screen.widget<KvHorStrButton>(row.increase)->buttonId(),
                 QLatin1String(row.increaseId));
    }
}

FACTORY_TEST_MAIN(TestCSetupALSTestForm)
#include "tst_csetupalstest_form.moc"
