#include "simulator/console/screenreader.h"

#include "simulator/window/screen.h"

#include "kvappframework/sim/screenlayer.h"
#include "support/testmain.h"

#include <QCheckBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QStandardItemModel>
#include <QtTest>

using namespace simulator;

namespace
{

/// A button of the platform's kind: its id is a property of its class.
class IdButton : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QString buttonID MEMBER m_id)
    Q_PROPERTY(QString displayText MEMBER m_text)
    Q_PROPERTY(bool disableState MEMBER m_disabled)

public:
    IdButton(const QString &id, QWidget *parent, const QRect &geometry)
        : QWidget(parent)
        , m_id(id)
    {
        setGeometry(geometry);
        show();
    }

    QString m_id;
    QString m_text;
    bool m_disabled = false;
};

constexpr QRect middle(300, 200, 200, 80);

} // namespace

class TestScreenReader : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void findsByEitherProperty_data();
    void findsByEitherProperty();
    void findsByNameOrTextWithoutId_data();
    void findsByNameOrTextWithoutId();
    void idGoesBeforeText();
    void choosesTheOneThatATouchReaches();
    void touchIsTheMiddle();
    void touchOfARadioButtonIsOnItsText();

    void noSuchButton();
    void hiddenButton();
    void buttonOnAHiddenPage();
    void coveredByAnotherWidget();
    void coveredByAnotherPage();
    void notCoveredBesideAMask();
    void notCoveredByWhatLetsTouchesThrough();
    void outsideTheScreen();
    void disabledWidget();
    void disabledState();
    void disabledPage();

    void seesButtons();
    void seesTexts_data();
    void seesTexts();
    void seesNoHiddenText();
    void seesNoTextBelowAnotherPage();
    void seesTextUnderAShadeOfItsPage();
    void seesRowsOfAList();
    void seesNoTextScrolledAway();

private:
    QString errorFor(const QString &id)
    {
        QPoint touch;
        QString error;
        return m_reader->findButton(id, &touch, &error) ? QString() : error;
    }

    bool sees(const QString &text) { return m_reader->texts().contains(text); }

    QScopedPointer<Screen> m_screen;
    QScopedPointer<ScreenReader> m_reader;
    QWidget *m_layer = nullptr;
    QWidget *m_page = nullptr;
};

void TestScreenReader::init()
{
    m_screen.reset(new Screen);
    m_reader.reset(new ScreenReader(*m_screen));
    m_layer = new kvappframework::ScreenLayer(m_screen.data());
    m_page = new QWidget(m_layer);
    m_page->setGeometry(m_screen->rect());
    m_page->show();
    m_screen->show();
}

void TestScreenReader::cleanup()
{
    m_reader.reset();
    m_screen.reset();
}

void TestScreenReader::findsByEitherProperty_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("buttonID") << QByteArray("buttonID");
    QTest::newRow("buttonId") << QByteArray("buttonId");
}

void TestScreenReader::findsByEitherProperty()
{
    QFETCH(QByteArray, property);
    QWidget button(m_page);
    button.setProperty(property, "idOk");
    button.setGeometry(middle);
    button.show();
    QCOMPARE(errorFor("idOk"), QString());
    QCOMPARE(errorFor("idok"), QString("there is no button \"idok\" on the screen; near: idOk"));
}

void TestScreenReader::findsByNameOrTextWithoutId_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("object name") << "add";
    QTest::newRow("text") << "Read";
}

void TestScreenReader::findsByNameOrTextWithoutId()
{
    IdButton button(QString(), m_page, middle);
    button.setObjectName("add");
    button.m_text = "Read";
    QFETCH(QString, name);
    QCOMPARE(errorFor(name), QString());
}

void TestScreenReader::idGoesBeforeText()
{
    IdButton button("idRead", m_page, middle);
    button.m_text = "Read";
    QCOMPARE(errorFor("Read"), QString("there is no button \"Read\" on the screen; near: idRead"));
}

void TestScreenReader::choosesTheOneThatATouchReaches()
{
    IdButton hidden("idBtn", m_page, QRect(0, 0, 100, 50));
    hidden.hide();
    IdButton shown("idBtn", m_page, middle);
    IdButton disabled("idBtn", m_page, QRect(0, 100, 100, 50));
    disabled.m_disabled = true;
    QPoint touch;
    QString error;
    QVERIFY(m_reader->findButton("idBtn", &touch, &error));
    QCOMPARE(touch, middle.center());
}

void TestScreenReader::touchIsTheMiddle()
{
    m_page->move(10, 20);
    IdButton button("idBtn", m_page, QRect(100, 100, 61, 41));
    QPoint touch;
    QString error;
    QVERIFY(m_reader->findButton("idBtn", &touch, &error));
    QCOMPARE(touch, QPoint(10 + 100 + 30, 20 + 100 + 20));
}

void TestScreenReader::touchOfARadioButtonIsOnItsText()
{
    // Much wider than what takes touches.
    QRadioButton button("SE0", m_page);
    button.setGeometry(20, 100, 600, 48);
    button.show();
    QPoint touch;
    QString error;
    QVERIFY(m_reader->findButton("SE0", &touch, &error));
    QTest::mouseClick(m_screen->windowHandle(), Qt::LeftButton, Qt::NoModifier, touch);
    QVERIFY(button.isChecked());

    QCheckBox box("Use UPHY", m_page);
    box.setGeometry(20, 200, 600, 48);
    box.show();
    QVERIFY(m_reader->findButton("Use UPHY", &touch, &error));
    QTest::mouseClick(m_screen->windowHandle(), Qt::LeftButton, Qt::NoModifier, touch);
    QVERIFY(box.isChecked());
}

void TestScreenReader::noSuchButton()
{
    QCOMPARE(errorFor("idBtn"), QString("there is no button \"idBtn\" on the screen"));
}

void TestScreenReader::hiddenButton()
{
    IdButton button("idBtn", m_page, middle);
    button.hide();
    QCOMPARE(errorFor("idBtn"), QString("the button \"idBtn\" is hidden"));
}

void TestScreenReader::buttonOnAHiddenPage()
{
    IdButton button("idBtn", m_page, middle);
    m_page->hide();
    QCOMPARE(errorFor("idBtn"), QString("the button \"idBtn\" is hidden"));
}

void TestScreenReader::coveredByAnotherWidget()
{
    IdButton button("idBtn", m_page, middle);
    QLabel shade(m_page);
    shade.setObjectName("shade");
    shade.setGeometry(m_page->rect());
    shade.show();
    QCOMPARE(errorFor("idBtn"), QString("the button \"idBtn\" is covered by QLabel \"shade\""));
    shade.lower();
    QCOMPARE(errorFor("idBtn"), QString());
}

void TestScreenReader::coveredByAnotherPage()
{
    IdButton button("idBtn", m_page, middle);
    QWidget other(m_layer);
    other.setGeometry(m_screen->rect());
    other.show();
    QCOMPARE(errorFor("idBtn"), QString("the button \"idBtn\" is covered by QWidget"));
}

void TestScreenReader::notCoveredBesideAMask()
{
    IdButton button("idBtn", m_page, middle);
    QWidget other(m_layer);
    other.setGeometry(m_screen->rect());
    other.setMask(QRegion(0, 0, 100, 100));
    other.show();
    QCOMPARE(errorFor("idBtn"), QString());
}

void TestScreenReader::notCoveredByWhatLetsTouchesThrough()
{
    IdButton button("idBtn", m_page, middle);
    QLabel glass(m_page);
    glass.setAttribute(Qt::WA_TransparentForMouseEvents);
    glass.setGeometry(m_page->rect());
    glass.show();
    QCOMPARE(errorFor("idBtn"), QString());
}

void TestScreenReader::outsideTheScreen()
{
    IdButton button("idBtn", m_page, QRect(760, 200, 100, 50));
    QCOMPARE(errorFor("idBtn"), QString("the button \"idBtn\" is outside the screen"));
}

void TestScreenReader::disabledWidget()
{
    IdButton button("idBtn", m_page, middle);
    button.setEnabled(false);
    QCOMPARE(errorFor("idBtn"), QString("the button \"idBtn\" is disabled"));
}

void TestScreenReader::disabledState()
{
    IdButton button("idBtn", m_page, middle);
    button.m_disabled = true;
    QCOMPARE(errorFor("idBtn"), QString("the button \"idBtn\" is disabled"));
}

void TestScreenReader::disabledPage()
{
    IdButton button("idBtn", m_page, middle);
    m_page->setEnabled(false);
    QCOMPARE(errorFor("idBtn"), QString("the button \"idBtn\" is disabled"));
}

void TestScreenReader::seesButtons()
{
    IdButton button("idBtn", m_page, middle);
    QVERIFY(m_reader->showsButton("idBtn"));
    button.m_disabled = true;
    QVERIFY(m_reader->showsButton("idBtn"));
    button.hide();
    QVERIFY(!m_reader->showsButton("idBtn"));
    QVERIFY(!m_reader->showsButton("idOther"));
}

void TestScreenReader::seesTexts_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("label or pop-up") << QByteArray("text");
    QTest::newRow("icon button") << QByteArray("displayText");
    QTest::newRow("row button") << QByteArray("displayString");
}

void TestScreenReader::seesTexts()
{
    QFETCH(QByteArray, property);
    QWidget widget(m_page);
    widget.setProperty(property, "capture turned on");
    widget.setGeometry(middle);
    QVERIFY(!sees("capture turned on"));
    widget.show();
    QVERIFY(sees("capture turned on"));
    QVERIFY(!sees("capture turned off"));
}

void TestScreenReader::seesNoHiddenText()
{
    QLabel label("text", m_page);
    label.setGeometry(middle);
    QVERIFY(!sees("text"));
    label.show();
    QVERIFY(sees("text"));
    m_page->hide();
    QVERIFY(!sees("text"));
}

void TestScreenReader::seesNoTextBelowAnotherPage()
{
    QLabel label("text", m_page);
    label.setGeometry(middle);
    label.show();
    QWidget other(m_layer);
    other.setGeometry(m_screen->rect());
    other.show();
    QVERIFY(!sees("text"));
    other.hide();
    QVERIFY(sees("text"));
    m_screen->setBooting(true);
    QVERIFY(!sees("text"));
}

void TestScreenReader::seesTextUnderAShadeOfItsPage()
{
    QLabel label("text", m_page);
    label.setGeometry(middle);
    label.show();
    QWidget shade(m_page);
    shade.setGeometry(m_page->rect());
    shade.show();
    QVERIFY(sees("text"));
}

void TestScreenReader::seesRowsOfAList()
{
    QStandardItemModel model;
    for (const char *title : {"Charging Mode", "Test Mode"}) {
        auto *item = new QStandardItem;
        item->setData(title, Qt::UserRole + 2);
        item->setSizeHint(QSize(100, 40));
        model.appendRow(item);
    }
    model.appendRow(new QStandardItem("plain"));
    QListView list(m_page);
    list.setModel(&model);
    list.setGeometry(0, 66, 800, 200);
    list.show();
    QVERIFY(sees("Charging Mode"));
    QVERIFY(sees("Test Mode"));
    QVERIFY(sees("plain"));
    QVERIFY(!sees("NCM"));
    list.hide();
    QVERIFY(!sees("Charging Mode"));
}

void TestScreenReader::seesNoTextScrolledAway()
{
    QStandardItemModel model;
    for (int row = 0; row < 100; ++row) {
        model.appendRow(new QStandardItem(QString("row %1").arg(row)));
    }
    QListView list(m_page);
    list.setModel(&model);
    list.setGeometry(0, 66, 800, 200);
    list.show();
    QVERIFY(sees("row 0"));
    QVERIFY(!sees("row 99"));
    list.scrollToBottom();
    QVERIFY(!sees("row 0"));
    QVERIFY(sees("row 99"));
}

FACTORY_TEST_MAIN(TestScreenReader)
#include "tst_screenreader.moc"
