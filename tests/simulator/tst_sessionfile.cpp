#include "simulator/session/sessionfile.h"

#include "support/fulldisk.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace simulator;

class TestSessionFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void headAndTimes();
    void buttonIsWaitedForOnce();
    void wordsAreQuoted();
    void goesBack();
    void touchThatIsNotWaitedFor();
    void onlyTapsAreNotWaitedFor();
    void existingFileStays();
    void fullDiskLeavesWholeLines();

private:
    QString written() const;

    QScopedPointer<QTemporaryDir> m_folder;
    QString m_name;
};

namespace
{
const char head[] = "# headunit session 1\n# a comment\n";
}

void TestSessionFile::init()
{
    m_folder.reset(new QTemporaryDir);
    m_name = m_folder->filePath("session.txt");
}

/// Behind the head; also while it is being written.
QString TestSessionFile::written() const
{
    const QString all = QString::fromUtf8(readFile(m_name));
    return all.startsWith(head) ? all.mid(int(qstrlen(head))) : "no head: " + all;
}

void TestSessionFile::headAndTimes()
{
    SessionFile file;
    QVERIFY(!file.isOpen());
    QVERIFY(file.open(m_name, {"a comment"}));
    QVERIFY(file.isOpen());
    QCOMPARE(written(), QString());
    QVERIFY(file.add({"tap", "1", "2"}, 1499.6));
    QCOMPARE(written(), QString("wait 1500\ntap 1 2\n"));
    file.lastEndedAt(2000);
    QVERIFY(file.add({"als", "300"}, 2250));
    QVERIFY(file.add({"als", "200"}, 2250.4));
    QVERIFY(file.add({"als", "100"}, 2251));
    QCOMPARE(written(),
             QString("wait 1500\ntap 1 2\nwait 250\nals 300\nals 200\nwait 1\nals 100\n"));
    file.close();
    QVERIFY(!file.isOpen());
}

void TestSessionFile::buttonIsWaitedForOnce()
{
    SessionFile file;
    QVERIFY(file.open(m_name, {"a comment"}));
    for (const char *id : {"one", "one", "two"}) {
        QVERIFY(file.add({"press", id}, 0));
    }
    QVERIFY(file.add({"tap", "0", "0"}, 0));
    QVERIFY(file.add({"press", "two"}, 0));
    QCOMPARE(written(),
             QString("visible one\npress one\npress one\nvisible two\npress two\ntap 0 0\n"
                     "visible two\npress two\n"));
}

void TestSessionFile::wordsAreQuoted()
{
    SessionFile file;
    QVERIFY(file.open(m_name, {"a comment"}));
    QVERIFY(file.add({"plug", "usb0", "/a stick"}, 0));
    QVERIFY(file.add({"press", "GPS Update"}, 0));
    QCOMPARE(written(),
             QString("plug usb0 \"/a stick\"\nvisible \"GPS Update\"\npress \"GPS Update\"\n"));
}

void TestSessionFile::goesBack()
{
    SessionFile file;
    QVERIFY(file.open(m_name, {"a comment"}));
    QVERIFY(file.add({"als", "1"}, 10));
    const int count = file.count();
    QVERIFY(file.add({"hold", "1", "2"}, 30));
    QVERIFY(file.add({"hold", "3", "4"}, 40));
    QVERIFY(file.goBack(count));
    QCOMPARE(written(), QString("wait 10\nals 1\n"));
    QVERIFY(file.add({"press", "one"}, 45));
    QCOMPARE(written(), QString("wait 10\nals 1\nwait 35\nvisible one\npress one\n"));
}

void TestSessionFile::touchThatIsNotWaitedFor()
{
    SessionFile file;
    QVERIFY(file.open(m_name, {"a comment"}));
    QVERIFY(file.lastIsNotWaitedFor());
    QVERIFY(file.add({"press", "one"}, 10));
    QVERIFY(file.lastIsNotWaitedFor());
    QVERIFY(file.add({"pull", "usb0"}, 3010));
    QCOMPARE(written(), QString("wait 10\nvisible one\npress one nowait\nwait 3000\npull usb0\n"));
}

void TestSessionFile::onlyTapsAreNotWaitedFor()
{
    SessionFile file;
    QVERIFY(file.open(m_name, {"a comment"}));
    QVERIFY(file.add({"lift"}, 0));
    QVERIFY(file.lastIsNotWaitedFor());
    QVERIFY(file.add({"tap", "1", "2"}, 0));
    QVERIFY(file.lastIsNotWaitedFor());
    QCOMPARE(written(), QString("lift\ntap 1 2 nowait\n"));
}

void TestSessionFile::existingFileStays()
{
    writeFile(m_name, "precious");
    SessionFile file;
    QVERIFY(!file.open(m_name, {}));
    QCOMPARE(file.error(), QString("File exists"));
    QCOMPARE(readFile(m_name), QByteArray("precious"));
}

void TestSessionFile::fullDiskLeavesWholeLines()
{
    SessionFile file;
    QVERIFY(file.open(m_name, {"a comment"}));
    QVERIFY(file.add({"als", "1"}, 0));
    {
        const FullDisk full(int(qstrlen(head)) + 10);
        QVERIFY(!file.add({"setting", "a", "longer"}, 0));
    }
    QCOMPARE(file.error(), QString("File too large"));
    QCOMPARE(written(), QString("als 1\n"));
    file.close();

    const QString other = m_folder->filePath("other.txt");
    {
        const FullDisk full(5);
        QVERIFY(!file.open(other, {}));
    }
    QCOMPARE(file.error(), QString("File too large"));
    QVERIFY(!QFile::exists(other));
}

FACTORY_TEST_GUILESS_MAIN(TestSessionFile)
#include "tst_sessionfile.moc"
