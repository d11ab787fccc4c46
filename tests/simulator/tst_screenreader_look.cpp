#include "simulator/console/screenreader.h"

#include "simulator/window/screen.h"

#include "kvappframework/sim/screenlayer.h"
#include "kvwidget/cboolbutton.h"
#include "kvwidget/kvlockbutton.h"
#include "support/testmain.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QStandardItemModel>
#include <QtTest>

#include <functional>

using namespace simulator;

/// What the screen reader lists of a whole screen.
class TestScreenReaderLook : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void buttonTellsItsState_data();
    void buttonTellsItsState();
    void buttonsHaveNamesPlacesAndTexts();
    void buttonsAreInReadingOrder();
    void hiddenButtonsAreNotListed();
    void coveredButtonsSayByWhat();
    void nearButtonsAreNamed();
    void textsAreInReadingOrder();
    void pagesAreListedWithTheirMainParts();

private:
    template <typename Widget> Widget *put(Widget *widget, const QRect &area, const char *id = "")
    {
        widget->setGeometry(area);
        if (*id != '\0') {
            widget->setProperty("buttonID", QString::fromLatin1(id));
        }
        widget->show();
        return widget;
    }

    QStringList names() const
    {
        QStringList names;
        const QList<ScreenReader::Button> buttons = m_reader->seenButtons();
        for (const ScreenReader::Button &button : buttons) {
            names.append(button.name);
        }
        return names;
    }

    QScopedPointer<Screen> m_screen;
    QScopedPointer<ScreenReader> m_reader;
    QWidget *m_layer = nullptr;
    QWidget *m_page = nullptr;
};

namespace
{

constexpr QRect middle(300, 200, 200, 80);

using Make = std::function<QWidget *(QWidget *)>;

} // namespace

Q_DECLARE_METATYPE(Make)

void TestScreenReaderLook::init()
{
    m_screen.reset(new Screen);
    m_reader.reset(new ScreenReader(*m_screen));
    m_layer = new kvappframework::ScreenLayer(m_screen.data());
    m_page = new QWidget(m_layer);
    m_page->setGeometry(m_screen->rect());
    m_page->show();
    m_screen->show();
}

void TestScreenReaderLook::buttonTellsItsState_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<QStringList>("state");
    QTest::newRow("plain") << Make([](QWidget *page) { return new KvIconButton(page); })
                           << QStringList{"enabled"};
    QTest::newRow("disabled state") << Make([](QWidget *page) {
        auto *button = new KvIconButton(page);
        button->setDisableState(true);
        return button;
    }) << QStringList{"disabled"};
    QTest::newRow("disabled widget") << Make([](QWidget *page) {
        auto *button = new KvIconButton(page);
        button->setEnabled(false);
        return button;
    }) << QStringList{"disabled"};
    QTest::newRow("latched") << Make([](QWidget *page) {
        auto *button = new KvLockButton(page);
        button->setIsDown(true);
        return button;
    }) << QStringList{"enabled", "pressed"};
    QTest::newRow("not latched") << Make([](QWidget *page) { return new KvLockButton(page); })
                                 << QStringList{"enabled"};
    QTest::newRow("switched on") << Make([](QWidget *page) {
        auto *button = new CBoolButton(page);
        button->setState(true);
        return button;
    }) << QStringList{"enabled", "on"};
    QTest::newRow("switched off") << Make([](QWidget *page) { return new CBoolButton(page); })
                                  << QStringList{"enabled", "off"};
    QTest::newRow("held down") << Make([](QWidget *page) {
        auto *button = new QPushButton(page);
        button->setDown(true);
        return button;
    }) << QStringList{"enabled", "pressed"};
    QTest::newRow("checked") << Make([](QWidget *page) {
        auto *button = new QCheckBox(page);
        button->setChecked(true);
        return button;
    }) << QStringList{"enabled", "checked"};
    QTest::newRow("not checked") << Make([](QWidget *page) { return new QCheckBox(page); })
                                 << QStringList{"enabled", "unchecked"};
}

void TestScreenReaderLook::buttonTellsItsState()
{
    QFETCH(Make, make);
    put(make(m_page), middle);
    QTEST(m_reader->seenButtons().value(0).state, "state");
}

void TestScreenReaderLook::buttonsHaveNamesPlacesAndTexts()
{
    m_page->move(10, 20);
    auto *button = put(new KvIconButton(m_page), QRect(100, 40, 60, 30), "idRead");
    button->setDisplayText("Read");
    const ScreenReader::Button read = m_reader->seenButtons().value(0);
    QCOMPARE(read.name, QString("idRead"));
    QCOMPARE(read.area, QRect(110, 60, 60, 30));
    QCOMPARE(read.texts, QStringList{"Read"});
    QCOMPARE(read.cover, QString());
    button->setButtonID(QString());
    QCOMPARE(names(), QStringList{"Read"});
    button->setObjectName("reader");
    QCOMPARE(names(), QStringList{"reader"});
}

void TestScreenReaderLook::buttonsAreInReadingOrder()
{
    put(new KvIconButton(m_page), QRect(400, 100, 50, 50), "second");
    put(new KvIconButton(m_page), QRect(0, 200, 50, 50), "third");
    put(new KvIconButton(m_page), QRect(100, 100, 50, 50), "first");
    QCOMPARE(names(), (QStringList{"first", "second", "third"}));
}

void TestScreenReaderLook::hiddenButtonsAreNotListed()
{
    put(new KvIconButton(m_page), middle, "gone")->hide();
    put(new KvIconButton(m_page), QRect(900, 100, 50, 50), "beside");
    QCOMPARE(names(), QStringList());
}

void TestScreenReaderLook::coveredButtonsSayByWhat()
{
    put(new KvIconButton(m_page), middle, "idBtn");
    auto *shade = put(new QLabel(m_page), m_page->rect());
    shade->setObjectName("shade");
    QCOMPARE(m_reader->seenButtons().value(0).cover, QString("is covered by QLabel \"shade\""));
}

void TestScreenReaderLook::nearButtonsAreNamed()
{
    put(new KvIconButton(m_page), QRect(0, 100, 100, 50), "usbtest")->setDisplayText("USB Test");
    put(new KvIconButton(m_page), QRect(0, 200, 100, 50), "C_TCP")->setDisplayText("Client");
    put(new KvIconButton(m_page), QRect(0, 300, 100, 50), "S_TCP");
    put(new KvIconButton(m_page), QRect(0, 400, 100, 50), "X_TCP")->hide();
    const auto errorOf = [this](const QString &id) {
        QPoint touch;
        QString error;
        m_reader->findButton(id, &touch, &error);
        return error;
    };
    const QString none = "there is no button \"%1\" on the screen";
    QCOMPARE(errorOf("usbtst"), none.arg("usbtst") + "; near: usbtest");
    QCOMPARE(errorOf("USB Test"), none.arg("USB Test") + "; near: usbtest");
    QCOMPARE(errorOf("cleint"), none.arg("cleint") + "; near: C_TCP");
    QCOMPARE(errorOf("D_TCP"), none.arg("D_TCP") + "; near: C_TCP, S_TCP");
    QCOMPARE(errorOf("idNone"), none.arg("idNone"));
}

void TestScreenReaderLook::textsAreInReadingOrder()
{
    QStandardItemModel model;
    model.appendRow(new QStandardItem("third"));
    model.appendRow(new QStandardItem("fourth"));
    QListView list(m_page);
    list.setModel(&model);
    list.setGeometry(0, 200, 800, 200);
    list.show();
    put(new QLabel("second", m_page), QRect(400, 20, 100, 30));
    put(new QLabel("first", m_page), QRect(20, 20, 100, 30));
    put(new KvIconButton(m_page), QRect(0, 420, 50, 50))->setDisplayText("fifth");
    const QStringList plain{"first", "second", "third", "fourth"};
    QCOMPARE(m_reader->plainTexts(), plain);
    QCOMPARE(m_reader->texts(), plain + QStringList{"fifth"});
}

void TestScreenReaderLook::pagesAreListedWithTheirMainParts()
{
    QCOMPARE(m_reader->pages(), (QList<QStringList>{{"QWidget"}}));
    auto *form = put(new QFrame(m_page), QRect(0, 66, 800, 414));
    auto *label = new QLabel("text", form);
    new QLabel("title", put(new QGroupBox(m_page), QRect(0, 0, 800, 66)));
    put(new QLabel("backdrop", m_page), m_page->rect());
    QCOMPARE(m_reader->pages(), (QList<QStringList>{{"QWidget", "QFrame"}}));
    delete label;
    QCOMPARE(m_reader->pages(), (QList<QStringList>{{"QWidget"}}));

    QLabel notice("notice", m_layer);
    notice.setGeometry(300, 100, 200, 100);
    notice.show();
    QCOMPARE(m_reader->pages(), (QList<QStringList>{{"QWidget"}, {"QLabel"}}));
    m_screen->setBooting(true);
    QCOMPARE(m_reader->pages(), (QList<QStringList>{{"simulator::BootScreen"}}));
}

FACTORY_TEST_MAIN(TestScreenReaderLook)
#include "tst_screenreader_look.moc"
