#include "panelunit.h"

#include "panel/panelstyle.h"
#include "panel/sessionbar.h"
#include "panel/unitclient.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

using namespace panel;

/// The buttons above the panel that concern the whole session, with a unit in a program of its own.
class TestSessionBar : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void recordsAndReplays();
    void aRecordingOverAFileIsRefused();
    void packsAReport();
    void whoGivesNoNameChangesNothing_data();
    void whoGivesNoNameChangesNothing();
    void restartsTheUnit();
    void aFactoryResetIsAskedFor();
    void resetsToFactory();

private:
    QAbstractButton *button(const char *name) const
    {
        return m_bar->findChild<QAbstractButton *>(name);
    }
    void click(const char *name) { QTest::mouseClick(button(name), Qt::LeftButton); }
    /// Clicks the button, and gives its dialog that name; cancels it when the name is empty.
    void choose(const char *name, const QString &file);
    /// Clicks "Factory reset…", and then that button of the question.
    void askForReset(QMessageBox::StandardButton answer);
    /// That the bar's commands since the last time were these, with what the unit says.
    void compareTold(const QStringList &expected);

    PanelUnit m_unit;
    QTemporaryDir m_folder;
    QScopedPointer<UnitClient> m_client;
    QScopedPointer<SessionBar> m_bar;
    QStringList m_told;
};

void TestSessionBar::initTestCase()
{
    style::apply(*qApp);
    QVERIFY(m_unit.start());
}

void TestSessionBar::init()
{
    m_bar.reset();
    m_client.reset(new UnitClient(m_unit.folder()));
    m_bar.reset(new SessionBar(*m_client));
    m_told.clear();
    connect(m_client.data(), &UnitClient::commandDone, this,
            [this](const QString &command) { m_told.append(command); });
    connect(m_client.data(), &UnitClient::commandFailed, this,
            [this](const QString &command, const QString &error) {
                m_told.append(command + ": " + error);
            });
    m_bar->show();
    m_client->start();
    QTRY_VERIFY_WITH_TIMEOUT(m_client->isAttached(), patienceMs);
}

void TestSessionBar::choose(const char *name, const QString &file)
{
    bool isAsked = false;
    QTimer::singleShot(0, m_bar.data(), [&] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        isAsked = dialog != nullptr;
        auto *edit = dialog->findChild<QLineEdit *>("fileNameEdit");
        edit->setText(file);
        QTest::keyClick(edit, file.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    });
    click(name);
    QVERIFY(isAsked);
}

void TestSessionBar::compareTold(const QStringList &expected)
{
    QTRY_COMPARE_WITH_TIMEOUT(m_told.size(), expected.size(), patienceMs);
    QCOMPARE(m_told, expected);
    m_told.clear();
}

void TestSessionBar::recordsAndReplays()
{
    const QString file = m_folder.filePath("session.txt");
    QCOMPARE(button("record")->text(), QString("Record…"));
    choose("record", file);
    QTRY_COMPARE_WITH_TIMEOUT(button("record")->text(), QString("Stop"), patienceMs);
    QCOMPARE(button("record")->toolTip(), "Being recorded into " + file);
    m_unit.ask({"setting", "number", "13"});
    click("record");
    QTRY_COMPARE_WITH_TIMEOUT(button("record")->text(), QString("Record…"), patienceMs);
    compareTold({"record " + file, "record stop"});

    m_unit.ask({"setting", "number", "17"});
    choose("replay", file);
    compareTold({"include " + file});
    QCOMPARE(m_unit.ask({"setting", "number"}), QStringList("13"));
}

void TestSessionBar::aRecordingOverAFileIsRefused()
{
    const QString file = m_folder.filePath("mine.txt");
    writeFile(file, "mine");
    // The dialog asks first, and is told to go on.
    QTimer::singleShot(0, m_bar.data(), [&] {
        auto *dialog = QApplication::activeModalWidget();
        QTimer::singleShot(0, dialog, [] {
            auto *question = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            QTest::mouseClick(question->button(QMessageBox::Yes), Qt::LeftButton);
        });
        auto *edit = dialog->findChild<QLineEdit *>("fileNameEdit");
        edit->setText(file);
        QTest::keyClick(edit, Qt::Key_Return);
    });
    click("record");
    compareTold(
        {"record " + file + ": The session \"" + file + "\" cannot be recorded: File exists."});
    QCOMPARE(readFile(file), QByteArray("mine"));
    QCOMPARE(button("record")->text(), QString("Record…"));
}

void TestSessionBar::packsAReport()
{
    const QString file = m_folder.filePath("report.tar.xz");
    choose("report", file);
    compareTold({"report " + file});
    QCOMPARE(readFile(file).left(6),
             QByteArray("\xFD"
                        "7zXZ\0",
                        6));
}

void TestSessionBar::whoGivesNoNameChangesNothing_data()
{
    QTest::addColumn<QByteArray>("name");
    for (const char *name : {"record", "replay", "report"}) {
        QTest::newRow(name) << QByteArray(name);
    }
}

void TestSessionBar::whoGivesNoNameChangesNothing()
{
    QFETCH(QByteArray, name);
    choose(name.constData(), QString());
    // Commands are answered one after the other.
    click("keyHOME");
    compareTold({"key HOME"});
}

void TestSessionBar::restartsTheUnit()
{
    const int before = m_unit.ask({"journal", "unit booted"}).size();
    click("restart");
    compareTold({"reboot"});
    QTRY_COMPARE_WITH_TIMEOUT(m_unit.ask({"journal", "unit booted"}).size(), before + 1,
                              patienceMs);
}

void TestSessionBar::askForReset(QMessageBox::StandardButton answer)
{
    bool isAsked = false;
    QTimer::singleShot(0, m_bar.data(), [&] {
        auto *question = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        isAsked = question != nullptr;
        QTest::mouseClick(question->button(answer), Qt::LeftButton);
    });
    click("factoryReset");
    QVERIFY(isAsked);
}

void TestSessionBar::aFactoryResetIsAskedFor()
{
    askForReset(QMessageBox::Cancel);
    click("keyHOME");
    compareTold({"key HOME"});
    QVERIFY(!m_unit.hasLine("unit factory reset"));
}

void TestSessionBar::resetsToFactory()
{
    m_unit.ask({"setting", "mine", "1"});
    askForReset(QMessageBox::Reset);
    compareTold({"factory-reset"});
    QTRY_VERIFY_WITH_TIMEOUT(m_unit.hasLine("unit factory reset"), patienceMs);
    QCOMPARE(m_unit.ask({"setting"}), QStringList());
}

FACTORY_TEST_MAIN(TestSessionBar)
#include "tst_sessionbar.moc"
