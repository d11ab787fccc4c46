#include "panelwindowtest.h"

#include "panel/journalmodel.h"
#include "support/testmain.h"

#include <QDir>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTableView>

namespace
{

enum Tab { LightTab, ReceiverTab, MemoryTab, ValuesTab, FaultsTab };

constexpr QSize pictureSize(1280, 720);

} // namespace

/// Brings the panel into the states that the handbook shows, and leaves a picture of each. They
/// differ from run to run, by times and measured values, so that nobody compares them but people:
/// "./test --accept-pictures" renews those that the handbook has.
class TestPanelWindowPictures : public PanelWindowTest
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void waiting();
    void light();
    void throughput();
    void memory();
    void values();
    void faults();
    void cause();
    void upgrade();
    void recording();
    void gone();

private:
    void keep(const char *name) const;
    /// Lines of the journal that say so, as the window has them.
    QModelIndexList lines(const char *text) const
    {
        const QAbstractItemModel *journal = find<QTableView>("journal")->model();
        return journal->match(journal->index(0, panel::JournalModel::Text), Qt::DisplayRole, text,
                              -1, Qt::MatchExactly);
    }
};

void TestPanelWindowPictures::initTestCase()
{
    m_unit.makePackages(5000, 60000);
    startUnit();
}

void TestPanelWindowPictures::init()
{
    openWindow();
    m_window->resize(pictureSize);
}

void TestPanelWindowPictures::keep(const char *name) const
{
    // What the unit's screen shows now, and the bars and plots behind it.
    QTest::qWait(500);
    const QDir folder(PANEL_PICTURES);
    QVERIFY(folder.mkpath("."));
    QVERIFY(m_window->grab().save(folder.filePath(QLatin1String(name) + ".png")));
}

void TestPanelWindowPictures::waiting()
{
    QTemporaryDir folder;
    m_window.reset(new panel::PanelWindow(folder.path()));
    m_window->resize(pictureSize);
    m_window->show();
    m_window->start();
    QVERIFY(find("hint")->isVisible());
    keep("waiting");
}

void TestPanelWindowPictures::light()
{
    showTab(LightTab);
    tell({{"package", "usb0", "update"},
          {"package", "sd0", "gps"},
          {"plug", "sd0"},
          {"plug", "usb0"}});
    openMenu();
    tell({{"press", "als"}, {"speed", "1"}, {"als-curve", "20", "10"}});
    QTRY_VERIFY_WITH_TIMEOUT(lines("mode night").size() > 2, patienceMs);
    keep("light");
    tell({{"als-curve", "0"}, {"speed", "5"}, {"pull", "sd0"}, {"pull", "usb0"}});
}

void TestPanelWindowPictures::throughput()
{
    showTab(MemoryTab);
    openMenu();
    tell({{"press", "ncmtest"}, {"press", "ncm"}, {"press", "C_UPD100"}});
    QTest::qWait(4000);
    keep("throughput");
    tell({{"press", "C_STOP"}});
}

void TestPanelWindowPictures::memory()
{
    showTab(MemoryTab);
    openMenu();
    tell({{"press", "usbeye"}, {"press", "usePhy"}, {"press", "increase"}, {"press", "write"}});
    QVERIFY(waitForLine("memory write"));
    keep("memory");
}

void TestPanelWindowPictures::values()
{
    showTab(ValuesTab);
    openMenu();
    tell({{"press", "keycolor"}, {"press", "briinc"}, {"press", "coninc"}});
    QVERIFY(waitForLine("/^mcu FF 66/"));
    keep("values");
}

void TestPanelWindowPictures::faults()
{
    showTab(FaultsTab);
    tell({{"fault", "receiver", "nak", "3", "2"}, {"fault", "call", "system sync"}});
    QTRY_VERIFY_WITH_TIMEOUT(find<QLabel>("faultsPresent")->text().contains("nak 3 2"), patienceMs);
    keep("faults");
    tell({{"fault", "call", "none"}});
}

void TestPanelWindowPictures::cause()
{
    showTab(LightTab);
    openMenu();
    tell({{"plug", "usb0"}, {"press", "idCopyBtsnoop"}});
    QVERIFY(waitForLine("shell sync"));
    auto *journal = find<QTableView>("journal");
    QTRY_VERIFY_WITH_TIMEOUT(!lines("sync").isEmpty(), patienceMs);
    const QModelIndex line = lines("sync").constFirst();
    journal->scrollTo(line);
    QTest::mouseClick(journal->viewport(), Qt::LeftButton, Qt::NoModifier,
                      journal->visualRect(line).center());
    keep("cause");
}

void TestPanelWindowPictures::upgrade()
{
    showTab(ReceiverTab);
    openMenu();
    tell({{"plug", "usb0"},
          {"wire", "on"},
          {"press", "gps"},
          {"see", "Firmware verified Success", "60000"},
          {"speed", "1"}, // so that it lasts until it has been looked at
          {"press", "idUpdateBtn", "nowait"}});
    QTRY_VERIFY_WITH_TIMEOUT(find<QLabel>("receiverState")->text().startsWith("takes the firmware"),
                             patienceMs);
    keep("upgrade");
    tell({{"speed", "5"}});
    QTRY_VERIFY_WITH_TIMEOUT(find<QLabel>("receiverState")->text().startsWith("runs "), patienceMs);
    QVERIFY(waitForLine("unit booted"));
    tell({{"wire", "off"}});
}

void TestPanelWindowPictures::recording()
{
    QTemporaryDir folder;
    tell({{"record", folder.filePath("session.txt")}});
    QTRY_COMPARE_WITH_TIMEOUT(find<QAbstractButton>("record")->text(), QString("Stop"), patienceMs);
    keep("recording");
    tell({{"record", "stop"}});
}

void TestPanelWindowPictures::gone()
{
    openMenu();
    const auto *journal = find<QTableView>("journal")->model();
    QTRY_VERIFY_WITH_TIMEOUT(journal->rowCount() > 20, patienceMs);
    // And its screen has been looked at.
    QTest::qWait(500);
    m_unit.kill();
    QTRY_VERIFY_WITH_TIMEOUT(find<QLabel>("failure")->text().contains("has gone"), patienceMs);
    keep("gone");
}

FACTORY_TEST_MAIN(TestPanelWindowPictures)
#include "tst_panelwindow_pictures.moc"
