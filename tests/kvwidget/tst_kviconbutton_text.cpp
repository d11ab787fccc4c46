#include "kvwidget/kviconbutton.h"

#include "testiconbutton.h"

#include "support/testmain.h"

#include <QtTest>

class TestKvIconButtonText : public QObject
{
    Q_OBJECT

private slots:
    void textColors();
    void disabledText_data();
    void disabledText();
    void longText_data();
    void longText();
    void endlessText();
    void blankAtALinesEndTakesNoRoom();
};

void TestKvIconButtonText::textColors()
{
    TouchScreen screen;
    Button button(&screen);
    button.setNormalImage(plain(place.size(), Qt::black));
    button.setShowMode(KvIconButton::ShowImageText);
    button.setTextSize(40);
    // A full block, so that the text's own colour is seen at the middle of the button.
    button.setDisplayText(QString(QChar(0x2588)));
    button.setNormalTextColor(QColor(10, 200, 30));
    button.setPressTextColor(QColor(200, 10, 30));
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(onButton), QColor(10, 200, 30));
    screen.fingerDown(onButton);
    QCOMPARE(screen.colorAt(onButton), QColor(200, 10, 30));
    screen.fingerUp(onButton);
    QCOMPARE(screen.colorAt(onButton), QColor(10, 200, 30));
}

void TestKvIconButtonText::disabledText_data()
{
    QTest::addColumn<int>("mode");
    QTest::newRow("none") << 0;
    QTest::newRow("image") << 1;
    QTest::newRow("text") << 2;
    QTest::newRow("image and text") << 3;
}

void TestKvIconButtonText::disabledText()
{
    QFETCH(int, mode);
    TouchScreen screen;
    Button button(&screen);
    button.setNormalImage(plain(place.size(), Qt::black));
    button.setDisableImage(plain(place.size(), Qt::black));
    button.setDisableMode(KvIconButton::DisableMode(mode));
    button.setShowMode(KvIconButton::ShowImageText);
    button.setTextSize(40);
    button.setDisplayText(QString(QChar(0x2588)));
    button.setNormalTextColor(QColor(240, 240, 240));
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(onButton).red(), 240);
    button.setDisableState(true);
    // Grey 100 on black has a contrast of 3.5 : 1, which large text needs to be read.
    const int seen = screen.colorAt(onButton).red();
    QVERIFY2(seen >= 100 && seen <= 160, qPrintable(QString::number(seen)));
}

void TestKvIconButtonText::longText_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QString>("text");
    QTest::newRow("a little too long") << QSize(140, 60) << "DAB FW Update";
    QTest::newRow("two lines, one too long")
        << QSize(140, 60) << "DAB FW Updata \nQM_DAB_V1.02.0034";
    QTest::newRow("four lines, too high") << QSize(210, 60) << "one\ntwo\nthree\nfour";
    QTest::newRow("font higher than the button") << QSize(210, 20) << "Read";
}

void TestKvIconButtonText::longText()
{
    QFETCH(QSize, size);
    QFETCH(QString, text);
    TouchScreen screen;
    Button button(&screen);
    button.setNormalImage(plain(size, normalColor));
    button.setGeometry(QRect(place.topLeft(), size));
    button.setShowMode(KvIconButton::ShowImageText);
    button.setTextSize(28);
    button.setDisplayText(text);
    QVERIFY(screen.turnOn());
    const QRect ink = screen.inkIn(button.geometry(), normalColor);
    const QRect inside = button.geometry().adjusted(2, 1, -2, -1);
    QVERIFY2(inside.contains(ink), "the text touches the button's edge");

    // Nothing is left out: the ink is as wide as the whole text is in some font from 10 to 27 px.
    bool whole = false;
    for (int pixels = 10; pixels < 28; ++pixels) {
        QFont font = screen.font();
        font.setPixelSize(pixels);
        const QSize needed = QFontMetrics(font).size(0, text);
        whole = whole || qAbs(needed.width() - ink.width()) <= pixels / 3 + 1;
    }
    QVERIFY2(whole, qPrintable(QString("ink is %1 px wide").arg(ink.width())));
}

void TestKvIconButtonText::endlessText()
{
    TouchScreen screen;
    Button button(&screen);
    button.setShowMode(KvIconButton::ShowImageText);
    button.setDisplayText(QString("W").repeated(200));
    QVERIFY(screen.turnOn());
    const QRect ink = screen.inkIn(place, normalColor);
    QVERIFY(place.adjusted(4, 0, -4, 0).contains(ink));
    // The smallest font has 10 px, of which a capital takes 7.
    QVERIFY(ink.height() >= 6);
    // It ends in an ellipsis: at its right end only the dots' few rows have ink.
    const QRect end(ink.right() - 4, place.top(), 5, place.height());
    QVERIFY(screen.inkIn(end, normalColor).height() <= 2);
}

void TestKvIconButtonText::blankAtALinesEndTakesNoRoom()
{
    KvIconButton button;
    button.resize(140, 60);
    button.setShowMode(KvIconButton::ShowImageText);
    button.setDisplayText("DAB FW Updata\nSDK 3.2.1");
    const QImage without = button.grab().toImage();
    button.setDisplayText("DAB FW Updata \nSDK 3.2.1");
    QCOMPARE(button.grab().toImage(), without);
}

FACTORY_TEST_MAIN(TestKvIconButtonText)
#include "tst_kviconbutton_text.moc"
