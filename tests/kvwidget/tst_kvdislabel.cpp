#include "kvwidget/kvdislabel.h"

#include "touchscreen.h"

#include "support/testmain.h"

#include <QtMath>
#include <QtTest>

namespace
{

const QLatin1String shortText("BLUETOOTH Version: BT_1.2.3");
const QLatin1String longText("BLUETOOTH Version: QM_BT_STACK_2022.10.04-release-candidate-3");

/// The label of the device information page: 766 wide, 83 high, text of 30 pixels, in the middle.
class Label : public KvDisLabel
{
public:
    explicit Label(QWidget *parent = nullptr)
        : KvDisLabel(parent)
    {
        setGeometry(34, 84, 766, 83);
        setPixelSize(30);
        setAdaptiveFontSize(true);
    }

    void setPixelSize(int pixels)
    {
        QFont font(QStringLiteral("Liberation Sans"));
        font.setPixelSize(pixels);
        setFont(font);
    }
};

int widthOf(const QString &text, int pixels)
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(pixels);
    return qCeil(QFontMetricsF(font).horizontalAdvance(text));
}

/// The largest size up to \a largest at which \a text is not wider than \a width.
int fittingSize(const QString &text, int largest, int width)
{
    int pixels = largest;
    while (widthOf(text, pixels) > width) {
        --pixels;
    }
    return pixels;
}

} // namespace

class TestKvDisLabel : public QObject
{
    Q_OBJECT

private slots:
    void offAtFirst();
    void shortTextKeepsItsSize();
    void longTextShrinksToTheWidth();
    void smallestSize();
    void smallerFontThanTheSmallest();
    void reactsToResize();
    void reactsToFont();
    void reactsToText();
    void reactsToSwitch();
    void fontInPoints();
    void fontAndColorFromStyleSheet();
    void looksLikeALabel_data();
    void looksLikeALabel();
    void indentNarrowsTheText();
    void textIsPlain();
    void mayBecomeSmallerInALayout();
    void propertiesForForms();
};

void TestKvDisLabel::offAtFirst()
{
    Label label;
    KvDisLabel fresh;
    QCOMPARE(fresh.property("adaptiveFontSize").value<bool>(), false);
    label.setAdaptiveFontSize(false);
    label.setText(longText);
    QCOMPARE(label.shownFont().pixelSize(), 30);
}

void TestKvDisLabel::shortTextKeepsItsSize()
{
    Label label;
    label.setText(shortText);
    QCOMPARE(label.shownFont().pixelSize(), 30);
    label.setText(QString());
    QCOMPARE(label.shownFont().pixelSize(), 30);
}

void TestKvDisLabel::longTextShrinksToTheWidth()
{
    Label label;
    label.setText(longText);
    const int expected = fittingSize(longText, 30, 766);
    QVERIFY(expected < 30);
    QCOMPARE(label.shownFont().pixelSize(), expected);
    QCOMPARE(label.font().pixelSize(), 30);
}

void TestKvDisLabel::smallestSize()
{
    TouchScreen screen;
    Label label(&screen);
    label.resize(400, 83);
    label.setText(QString("W").repeated(300));
    QCOMPARE(label.shownFont().pixelSize(), 12);
    QVERIFY(screen.turnOn());
    const QRect ink = screen.inkIn(screen.rect(), Qt::black);
    QVERIFY(label.geometry().contains(ink));
    // It ends in an ellipsis: at its right end only the dots' few rows have ink.
    const QRect end(ink.right() - 5, label.y(), 6, label.height());
    QVERIFY(screen.inkIn(end, Qt::black).height() <= 2);
}

void TestKvDisLabel::smallerFontThanTheSmallest()
{
    Label label;
    label.setPixelSize(9);
    label.setText(QString("W").repeated(300));
    QCOMPARE(label.shownFont().pixelSize(), 9);
}

void TestKvDisLabel::reactsToResize()
{
    TouchScreen screen;
    Label label(&screen);
    label.setText(shortText);
    QVERIFY(screen.turnOn());
    label.resize(200, 83);
    QCOMPARE(label.shownFont().pixelSize(), fittingSize(shortText, 30, 200));
    QVERIFY(label.geometry().contains(screen.inkIn(screen.rect(), Qt::black)));
    label.resize(766, 83);
    QCOMPARE(label.shownFont().pixelSize(), 30);
}

void TestKvDisLabel::reactsToFont()
{
    TouchScreen screen;
    Label label(&screen);
    label.setText(shortText);
    QVERIFY(screen.turnOn());
    QVERIFY(repaintsAfter(label, [&] { label.setPixelSize(60); }));
    QCOMPARE(label.shownFont().pixelSize(), fittingSize(shortText, 60, 766));
    label.setPixelSize(20);
    QCOMPARE(label.shownFont().pixelSize(), 20);
}

void TestKvDisLabel::reactsToText()
{
    TouchScreen screen;
    Label label(&screen);
    label.setText(longText);
    QVERIFY(screen.turnOn());
    QVERIFY(repaintsAfter(label, [&] { label.setText(shortText); }));
    QCOMPARE(label.shownFont().pixelSize(), 30);
}

void TestKvDisLabel::reactsToSwitch()
{
    TouchScreen screen;
    Label label(&screen);
    label.setText(longText);
    QVERIFY(screen.turnOn());
    QVERIFY(repaintsAfter(label, [&] { label.setAdaptiveFontSize(false); }));
    QVERIFY(repaintsAfter(label, [&] { label.setAdaptiveFontSize(true); }));
}

void TestKvDisLabel::fontInPoints()
{
    Label label;
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPointSize(30);
    label.setFont(font);
    label.setText(longText);
    const int full = QFontInfo(font).pixelSize();
    QCOMPARE(label.shownFont().pixelSize(), fittingSize(longText, full, 766));
}

void TestKvDisLabel::fontAndColorFromStyleSheet()
{
    TouchScreen screen;
    Label label(&screen);
    label.setObjectName("label_bt");
    label.setStyleSheet("#label_bt{\ncolor: rgb(10, 200, 30);\nfont: 60px \"Liberation Sans\";\n"
                        "background-color: rgb(40, 0, 0);\n}");
    label.setText(longText);
    QVERIFY(screen.turnOn());
    QCOMPARE(screen.colorAt(label.geometry().topLeft()), QColor(40, 0, 0));
    QCOMPARE(label.shownFont().pixelSize(), fittingSize(longText, 60, 766));
    label.setText(QString(QChar(0x2588)));
    QCOMPARE(screen.colorAt(QPoint(label.x() + 10, label.geometry().center().y())),
             QColor(10, 200, 30));
}

void TestKvDisLabel::looksLikeALabel_data()
{
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::addColumn<int>("indent");
    QTest::addColumn<int>("margin");
    QTest::addColumn<int>("frame");
    const int none = QFrame::NoFrame;
    QTest::newRow("left") << Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter) << -1 << 0 << none;
    QTest::newRow("centre") << Qt::Alignment(Qt::AlignCenter) << -1 << 0 << none;
    QTest::newRow("right, bottom")
        << Qt::Alignment(Qt::AlignRight | Qt::AlignBottom) << -1 << 0 << none;
    QTest::newRow("top") << Qt::Alignment(Qt::AlignLeft | Qt::AlignTop) << -1 << 0 << none;
    QTest::newRow("indent") << Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter) << 33 << 0 << none;
    QTest::newRow("indent, right")
        << Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter) << 33 << 0 << none;
    QTest::newRow("margin") << Qt::Alignment(Qt::AlignLeft | Qt::AlignTop) << -1 << 9 << none;
    QTest::newRow("frame") << Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter) << -1 << 0
                           << int(QFrame::Box);
}

void TestKvDisLabel::looksLikeALabel()
{
    QFETCH(Qt::Alignment, alignment);
    QFETCH(int, indent);
    QFETCH(int, margin);
    QFETCH(int, frame);
    TouchScreen screen;
    Label label(&screen);
    QLabel reference(&screen);
    reference.setGeometry(34, 284, 766, 83);
    reference.setFont(label.font());
    for (QLabel *each : {static_cast<QLabel *>(&label), &reference}) {
        each->setText(shortText);
        each->setAlignment(alignment);
        each->setIndent(indent);
        each->setMargin(margin);
        each->setFrameStyle(frame);
    }
    QVERIFY(screen.turnOn());
    QVERIFY(!screen.inkIn(label.geometry(), Qt::black).isNull());
    QCOMPARE(label.grab().toImage(), reference.grab().toImage());
}

void TestKvDisLabel::indentNarrowsTheText()
{
    Label label;
    label.setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    label.setIndent(400);
    label.setText(shortText);
    QCOMPARE(label.shownFont().pixelSize(), fittingSize(shortText, 30, 366));
}

void TestKvDisLabel::textIsPlain()
{
    TouchScreen screen;
    for (const bool adaptive : {false, true}) {
        Label label(&screen);
        label.setAdaptiveFontSize(adaptive);
        label.setText("<b>1</b>");
        label.show();
        QVERIFY(screen.turnOn());
        const int width = screen.inkIn(screen.rect(), Qt::black).width();
        QVERIFY2(qAbs(width - widthOf("<b>1</b>", 30)) <= 6, qPrintable(QString::number(width)));
    }
}

void TestKvDisLabel::mayBecomeSmallerInALayout()
{
    Label label;
    label.setText(shortText);
    QCOMPARE(label.minimumSizeHint().width(), widthOf(shortText, 12));
    label.setAdaptiveFontSize(false);
    QCOMPARE(label.minimumSizeHint().width(), widthOf(shortText, 30));
}

void TestKvDisLabel::propertiesForForms()
{
    KvDisLabel label;
    QVERIFY(label.setProperty("adaptiveFontSize", true));
    QCOMPARE(label.property("adaptiveFontSize").value<bool>(), true);
    QVERIFY(label.setProperty("text", QString(shortText)));
    QCOMPARE(label.text(), shortText);
}

FACTORY_TEST_MAIN(TestKvDisLabel)
#include "tst_kvdislabel.moc"
