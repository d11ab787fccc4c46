#include "simulator/console/scriptinput.h"

#include "support/testmain.h"

#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

#include <sys/stat.h>

using namespace simulator;

class TestScriptInput : public QObject
{
    Q_OBJECT

private slots:
    void readsLines_data();
    void readsLines();
    void lineWithoutEndIsNotKept();
    void unreadable_data();
    void unreadable();
    void readErrorIsSaid();
    void interruptEndsTheWait();
};

void TestScriptInput::readsLines_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArrayList>("lines");
    QTest::newRow("empty file") << QByteArray() << QByteArrayList();
    QTest::newRow("one line") << QByteArray("quit\n") << QByteArrayList{"quit"};
    QTest::newRow("no end of the last line")
        << QByteArray("one\ntwo") << QByteArrayList{"one", "two"};
    QTest::newRow("empty lines") << QByteArray("\n\nthree\n\n")
                                 << QByteArrayList{"", "", "three", ""};
    // Longer than what is read at once.
    QTest::newRow("long line") << QByteArray(10000, 'x') + "\ny\n"
                               << QByteArrayList{QByteArray(10000, 'x'), "y"};
    QTest::newRow("longest line") << QByteArray(65536, 'x') + "\ny"
                                  << QByteArrayList{QByteArray(65536, 'x'), "y"};
}

void TestScriptInput::readsLines()
{
    QFETCH(QByteArray, content);
    const QTemporaryDir folder;
    QFile file(folder.filePath("script"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();

    ScriptInput input;
    QString error;
    QVERIFY2(input.open(file.fileName(), &error), qPrintable(error));
    QByteArrayList lines;
    QByteArray line;
    while (input.readLine(&line)) {
        lines.append(line);
    }
    QTEST(lines, "lines");
}

void TestScriptInput::lineWithoutEndIsNotKept()
{
    ScriptInput input;
    QString error;
    QVERIFY2(input.open("/dev/zero", &error), qPrintable(error));
    QByteArray line;
    QVERIFY(input.readLine(&line));
    QVERIFY2(line.size() > 65536 && line.size() < 100000, qPrintable(QString::number(line.size())));
}

void TestScriptInput::unreadable_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << "/etc/passwd/nowhere/script"
                             << "Not a directory";
    QTest::newRow("a folder") << "/etc"
                              << "Is a directory";
}

void TestScriptInput::unreadable()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    ScriptInput input;
    QString error;
    QVERIFY(!input.open(name, &error));
    QCOMPARE(error, QString("The script \"%1\" cannot be read: %2.").arg(name, reason));
}

void TestScriptInput::readErrorIsSaid()
{
    ScriptInput input;
    QString error;
    // The process has nothing at address 0.
    QVERIFY2(input.open("/proc/self/mem", &error), qPrintable(error));
    QByteArray line;
    QVERIFY(!input.readLine(&line));
    QCOMPARE(input.error(),
             QString("The script \"/proc/self/mem\" cannot be read: Input/output error."));
}

void TestScriptInput::interruptEndsTheWait()
{
    const QTemporaryDir folder;
    const QByteArray pipe = folder.filePath("pipe").toLocal8Bit();
    QCOMPARE(mkfifo(pipe.constData(), 0600), 0);
    // Open for writing too, so that the reader finds neither a line nor an end.
    QFile writer(folder.filePath("pipe"));
    QVERIFY(writer.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    writer.write("half a li");

    ScriptInput input;
    QString error;
    QVERIFY2(input.open(folder.filePath("pipe"), &error), qPrintable(error));
    bool found = true;
    const QScopedPointer<QThread> reader(QThread::create([&] {
        QByteArray line;
        found = input.readLine(&line);
    }));
    reader->start();
    QVERIFY(!reader->wait(100));
    input.interrupt();
    QVERIFY(reader->wait(5000));
    QVERIFY(!found);
}

FACTORY_TEST_GUILESS_MAIN(TestScriptInput)
#include "tst_scriptinput.moc"
