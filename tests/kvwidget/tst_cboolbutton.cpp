#include "kvwidget/cboolbutton.h"

#include "buttonchecks.h"

#include "support/testmain.h"

#include <QtTest>

namespace
{

constexpr QRect place(620, 50, 80, 62);
const QPoint onButton = place.center();

constexpr QColor onColor(0, 255, 0);
constexpr QColor offColor(0, 0, 255);

class Button : public CBoolButton
{
public:
    explicit Button(QWidget *parent = nullptr)
        : CBoolButton(parent)
    {
        setGeometry(place);
        setButtonID("id_alsbtn");
        setOnImage(plain(place.size(), onColor));
        setOffImage(plain(place.size(), offColor));
        connect(this, &CBoolButton::btnReleased, this, [this](const QString &id, bool on) {
            heard << id + (on ? " on" : " off");
            stateWhenHeard = state();
        });
    }

    QStringList heard;
    bool stateWhenHeard = false;
};

} // namespace

class TestCBoolButton : public QObject
{
    Q_OBJECT

private slots:
    void tapFlipsAndTells();
    void slotDeletesButton();
    void disabledRefuses();
    void takesImageSize();
    void propertiesForForms_data();
    void propertiesForForms();
    void styleSheetPaints();
};

void TestCBoolButton::tapFlipsAndTells()
{
    TouchScreen screen;
    Button button(&screen);
    QVERIFY(screen.turnOn());
    QVERIFY(!button.state());
    QCOMPARE(screen.colorAt(onButton), offColor);
    screen.fingerDown(onButton);
    QVERIFY(!button.state());
    QCOMPARE(button.heard, QStringList());
    screen.fingerUp(onButton);
    QVERIFY(button.state());
    QCOMPARE(button.heard, QStringList{"id_alsbtn on"});
    QVERIFY(button.stateWhenHeard);
    QCOMPARE(screen.colorAt(onButton), onColor);
    screen.tap(onButton);
    QVERIFY(!button.state());
    QCOMPARE(button.heard, (QStringList{"id_alsbtn on", "id_alsbtn off"}));
    QVERIFY(!button.stateWhenHeard);
    QCOMPARE(screen.colorAt(onButton), offColor);
}

void TestCBoolButton::slotDeletesButton()
{
    RUN_CHECK(checkSlotMayDelete<Button>(&CBoolButton::btnReleased, onButton));
}

void TestCBoolButton::disabledRefuses()
{
    TouchScreen screen;
    Button button(&screen);
    button.setEnabled(false);
    QVERIFY(screen.turnOn());
    const QColor dimmed = screen.colorAt(onButton);
    QVERIFY(isDimmedBlue(dimmed));
    screen.fingerDown(onButton);
    QCOMPARE(screen.colorAt(onButton), dimmed);
    screen.fingerUp(onButton);
    QVERIFY(!button.state());
    QCOMPARE(button.heard, QStringList());
}

void TestCBoolButton::takesImageSize()
{
    QCOMPARE(CBoolButton().sizeHint(), QSize(80, 62));
    CBoolButton button;
    button.setGeometry(QRect(30, 40, 0, 0));
    button.setOffImage(plain(QSize(70, 50), offColor));
    QCOMPARE(button.sizeHint(), QSize(70, 50));
    QCOMPARE(button.geometry(), QRect(30, 40, 70, 50));
}

void TestCBoolButton::propertiesForForms_data()
{
    addPropertyColumns();
    const QVariant image = plain(QSize(9, 9), Qt::red);
    QTest::newRow("buttonID") << QByteArray("buttonID") << QVariant("idCertification") << false;
    QTest::newRow("state") << QByteArray("state") << QVariant(true) << true;
    QTest::newRow("onImage") << QByteArray("onImage") << image << true;
    QTest::newRow("offImage") << QByteArray("offImage") << image << true;
}

void TestCBoolButton::propertiesForForms()
{
    checkProperty<Button>();
}

void TestCBoolButton::styleSheetPaints()
{
    TouchScreen screen;
    Button button(&screen);
    button.setOffImage(plain(QSize(10, 10), offColor));
    RUN_CHECK(checkStyleSheetPaints(screen, button, place.topLeft()));
    QCOMPARE(screen.colorAt(onButton), offColor);
}

FACTORY_TEST_MAIN(TestCBoolButton)
#include "tst_cboolbutton.moc"
