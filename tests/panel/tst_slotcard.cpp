#include "panelwindowtest.h"

#include "support/testmain.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QSettings>
#include <QtTest>

/// What a stick is like, on its card in the panel, with a unit in a program of its own.
class TestSlotCard : public PanelWindowTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void aSwitchIsSetAndTakenBack_data();
    void aSwitchIsSetAndTakenBack();
    void aSpeedIsChosenByMouse();
    void aSpeedIsChosenByKeyboard();
    void showsWhatTheConsoleSays();
    void nothingMoves();

private:
    /// A click on the box itself.
    void click(QCheckBox *box) const
    {
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
    }
    QStringList faults() const
    {
        const QStringList lines = m_unit.ask({"fault", "storage"});
        return lines.mid(lines.indexOf("What does:") + 1);
    }
};

void TestSlotCard::initTestCase()
{
    startUnit();
    openWindow();
}

void TestSlotCard::aSwitchIsSetAndTakenBack_data()
{
    QTest::addColumn<QString>("fault");
    QTest::newRow("usb1Full") << "  storage full usb1";
    QTest::newRow("usb1WriteProtected") << "  storage write-protected usb1";
}

void TestSlotCard::aSwitchIsSetAndTakenBack()
{
    QFETCH(QString, fault);
    const QString other("  storage slow sd0 7");
    m_unit.ask({"slow", "sd0", "7"});
    auto *box = find<QCheckBox>(QTest::currentDataTag());
    click(box);
    // It shows what the unit says, not what was clicked.
    QVERIFY(!box->isChecked());
    QTRY_VERIFY_WITH_TIMEOUT(box->isChecked(), patienceMs);
    QCOMPARE(faults(), (QStringList{fault, other}));
    click(box);
    QTRY_VERIFY_WITH_TIMEOUT(!box->isChecked(), patienceMs);
    QCOMPARE(faults(), QStringList(other));
    m_unit.ask({"slow", "sd0", "0"});
}

void TestSlotCard::aSpeedIsChosenByMouse()
{
    auto *speed = find<QComboBox>("usb1Speed");
    QStringList choices;
    for (int i = 0; i < speed->count(); ++i) {
        choices.append(speed->itemText(i));
    }
    QCOMPARE(choices, (QStringList{"Not slow", "10 MB/s", "1 MB/s", "100 kB/s"}));
    const auto choose = [speed](int row) {
        QTest::mouseClick(speed, Qt::LeftButton);
        QTRY_VERIFY(speed->view()->isVisible());
        const QRect line = speed->view()->visualRect(speed->model()->index(row, 0));
        // A popup takes no click that could still be the one that has opened it.
        QTRY_VERIFY((QTest::mouseClick(speed->view()->viewport(), Qt::LeftButton, Qt::NoModifier,
                                       QPoint(10, line.center().y())),
                     !speed->view()->isVisible()));
    };
    choose(3);
    QTRY_COMPARE_WITH_TIMEOUT(speed->currentText(), QString("100 kB/s"), patienceMs);
    QCOMPARE(faults(), QStringList("  storage slow usb1 100000"));
    choose(0);
    QTRY_COMPARE_WITH_TIMEOUT(speed->currentText(), QString("Not slow"), patienceMs);
    QCOMPARE(faults(), QStringList());
}

void TestSlotCard::aSpeedIsChosenByKeyboard()
{
    auto *before = find<QCheckBox>("usb0WriteProtected");
    before->setFocus();
    QTest::keyClick(before, Qt::Key_Tab);
    QWidget *speed = find<QComboBox>("usb0Speed");
    QCOMPARE(m_window->focusWidget(), speed);
    QTest::keyClick(speed, Qt::Key_Down);
    QTRY_COMPARE_WITH_TIMEOUT(faults(), QStringList("  storage slow usb0 10000000"), patienceMs);
    QTRY_COMPARE_WITH_TIMEOUT(find<QComboBox>("usb0Speed")->currentText(), QString("10 MB/s"),
                              patienceMs);
    m_unit.ask({"slow", "usb0", "0"});
}

void TestSlotCard::showsWhatTheConsoleSays()
{
    auto *speed = find<QComboBox>("sd1Speed");
    m_unit.ask({"write-protect", "sd1", "on"});
    m_unit.ask({"slow", "sd1", "2500"});
    QTRY_COMPARE_WITH_TIMEOUT(speed->currentText(), QString("2.5 kB/s"), patienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(find<QCheckBox>("sd1WriteProtected")->isChecked(), patienceMs);
    QVERIFY(!find<QCheckBox>("sd1Full")->isChecked());
    m_unit.ask({"slow", "sd1", "3500"});
    QTRY_COMPARE_WITH_TIMEOUT(speed->currentText(), QString("3.5 kB/s"), patienceMs);
    QCOMPARE(speed->count(), 5);
    m_unit.ask({"fault", "none"});
    QTRY_COMPARE_WITH_TIMEOUT(speed->currentText(), QString("Not slow"), patienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(!find<QCheckBox>("sd1WriteProtected")->isChecked(), patienceMs);
    QCOMPARE(speed->count(), 4);
}

/// On a screen of 1280 x 720, whatever is set.
void TestSlotCard::nothingMoves()
{
    auto *card = find<QWidget>("usb0");
    QVERIFY2(m_window->minimumSizeHint().width() <= 1280
                 && m_window->minimumSizeHint().height() <= 720,
             qPrintable(QString("%1 x %2")
                            .arg(m_window->minimumSizeHint().width())
                            .arg(m_window->minimumSizeHint().height())));
    auto *speed = find<QComboBox>("usb0Speed");
    const QSize size = card->size();
    const QSize leastSize = m_window->minimumSizeHint();
    const QRect place = speed->geometry();
    m_unit.ask({"plug", "usb0"});
    m_unit.ask({"slow", "usb0", "2147483647"});
    QTRY_COMPARE_WITH_TIMEOUT(speed->currentData().toInt(), 2147483647, patienceMs);
    QCoreApplication::processEvents();
    QCOMPARE(card->size(), size);
    QCOMPARE(m_window->minimumSizeHint(), leastSize);
    QCOMPARE(speed->geometry(), place);
    QSettings().clear();
}

FACTORY_TEST_MAIN(TestSlotCard)
#include "tst_slotcard.moc"
