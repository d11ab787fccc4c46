#include "drawntexts.h"

#include "kvwidget/kvdislabel.h"
#include "kvwidget/kviconbutton.h"
#include "support/testmain.h"

#include <QLabel>
#include <QtTest>

class TestDrawnTexts : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cut_data();
    void cut();
    void tellsASmallerFont();
    void tellsAnEllipsis();
    void leavesOutWhatIsHidden();

private:
    QScopedPointer<QWidget> m_page;
    QLabel *m_label;
};

namespace
{

const QString text = QStringLiteral("Wasp");

QFont textFont()
{
    QFont font(QStringLiteral("Liberation Sans"));
    font.setPixelSize(30);
    return font;
}

} // namespace

/// A label in a page of 200 x 100 pixels, with room for its text.
void TestDrawnTexts::init()
{
    m_page.reset(new QWidget);
    m_page->resize(200, 100);
    m_label = new QLabel(text, m_page.data());
    m_label->setFont(textFont());
    m_label->setGeometry(10, 10, 150, 50);
}

void TestDrawnTexts::cut_data()
{
    QTest::addColumn<QRect>("place");
    QTest::addColumn<bool>("isCut");
    const int width = QFontMetrics(textFont()).horizontalAdvance(text);
    QTest::newRow("room enough") << QRect(10, 10, 150, 50) << false;
    QTest::newRow("just room") << QRect(10, 10, width, 50) << false;
    QTest::newRow("too narrow") << QRect(10, 10, width - 3, 50) << true;
    QTest::newRow("too low for its p") << QRect(10, 10, 150, 24) << true;
    QTest::newRow("beyond the page's right") << QRect(200 - width / 2, 10, 150, 50) << true;
    QTest::newRow("beyond the page's bottom") << QRect(10, 70, 150, 50) << true;
}

void TestDrawnTexts::cut()
{
    QFETCH(QRect, place);
    m_label->setGeometry(place);
    const QList<DrawnText> texts = drawnTexts(*m_page);
    QCOMPARE(texts.size(), 1);
    QCOMPARE(texts.first().text, text);
    QCOMPARE(texts.first().pixelSize, 30);
    QVERIFY(texts.first().ink.intersects(place));
    QTEST(!(QRegion(texts.first().ink) - texts.first().seen).isEmpty(), "isCut");
}

void TestDrawnTexts::tellsASmallerFont()
{
    auto *button = new KvIconButton(m_page.data());
    button->setGeometry(0, 0, 60, 60);
    button->setShowMode(KvIconButton::ShowImageText);
    button->setTextSize(30);
    button->setDisplayText(text);
    QVERIFY(drawnTexts(*button).constFirst().pixelSize < 30);
}

void TestDrawnTexts::tellsAnEllipsis()
{
    auto *label = new KvDisLabel(m_page.data());
    label->setAdaptiveFontSize(true);
    label->setText(text);
    label->setGeometry(0, 0, 25, 50);
    QVERIFY(drawnTexts(*label).constFirst().text.endsWith(QChar(0x2026)));
}

void TestDrawnTexts::leavesOutWhatIsHidden()
{
    m_label->hide();
    QVERIFY(drawnTexts(*m_page).isEmpty());
}

FACTORY_TEST_MAIN(TestDrawnTexts)
#include "tst_drawntexts.moc"
