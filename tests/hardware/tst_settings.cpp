#include "hardware/unit/settings.h"

#include "hardware/unit/journal.h"
#include "support/fulldisk.h"
#include "support/openunit.h"
#include "support/testmain.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <thread>
#include <vector>

using hardware::Journal;
using hardware::Settings;

class tst_Settings : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void aMissingKeyGivesTheDefault();
    void aValueIsKept_data();
    void aValueIsKept();
    void aWriteReachesTheFileAtOnce();
    void aWriteIsJournalled_data();
    void aWriteIsJournalled();
    void readingIsNotJournalled();
    void keysAreListed();
    void aGroupIsRemoved();
    void aDamagedFileIsRefusedAndLeft_data();
    void aDamagedFileIsRefusedAndLeft();
    void keysThatNobodyCanAskForAreLeftOut();
    void aFolderIsRefused();
    void aFailedWriteIsJournalled();
    void aFullDiskLeavesWhatWasThere();
    void eightThreadsKeepEveryValue();

private:
    void open(Settings *settings) const;

    QScopedPointer<QTemporaryDir> m_folder;
    QString m_file;
};

void tst_Settings::init()
{
    m_folder.reset(new QTemporaryDir);
    m_file = m_folder->filePath(QStringLiteral("settings.ini"));
}

void tst_Settings::open(Settings *settings) const
{
    QString error;
    QVERIFY2(settings->open(m_file, &error), qPrintable(error));
}

void tst_Settings::aMissingKeyGivesTheDefault()
{
    Journal journal;
    Settings settings(journal);
    QCOMPARE(settings.value(QStringLiteral("a"), 7), QVariant(7));
    open(&settings);
    QCOMPARE(settings.value(QStringLiteral("a"), 7), QVariant(7));
    QVERIFY(!settings.value(QStringLiteral("a")).isValid());
}

void tst_Settings::aValueIsKept_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("number") << "usb0BCMode" << QVariant(3);
    QTest::newRow("negative number") << "hue" << QVariant(-180);
    QTest::newRow("switch on") << "certification" << QVariant(true);
    QTest::newRow("text") << "language" << QVariant("English (UK)");
    QTest::newRow("text with ini characters") << "text" << QVariant("a;b=c,[d] \"e\"\n%41\\");
    QTest::newRow("letters") << "umlaut" << QVariant(QString::fromUtf8("äöü漢"));
    QTest::newRow("empty text") << "empty" << QVariant(QString());
    QTest::newRow("list") << "list" << QVariant(QStringList{"a, b", "c"});
    QTest::newRow("bytes") << "bytes" << QVariant(QByteArray("\0\xff", 2));
    QTest::newRow("key in a group") << "System/capture" << QVariant(1);
}

void tst_Settings::aValueIsKept()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);

    Journal journal;
    {
        Settings settings(journal);
        open(&settings);
        settings.setValue(key, value);
        QCOMPARE(settings.value(key), value);
    }
    Settings again(journal);
    open(&again);
    QVariant kept = again.value(key);
    QVERIFY(kept.convert(int(value.type())));
    QCOMPARE(kept, value);
}

void tst_Settings::aWriteReachesTheFileAtOnce()
{
    Journal journal;
    Settings settings(journal);
    open(&settings);
    settings.setValue(QStringLiteral("capture"), true);
    QVERIFY(readFile(m_file).contains("capture=true"));
    settings.setValue(QStringLiteral("capture"), false);
    QVERIFY(readFile(m_file).contains("capture=false"));
}

void tst_Settings::aWriteIsJournalled_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("line");

    QTest::newRow("number") << QVariant(3) << "settings key = 3";
    QTest::newRow("switch") << QVariant(false) << "settings key = false";
    QTest::newRow("text") << QVariant("English") << "settings key = English";
    QTest::newRow("lines") << QVariant("a\nb") << R"(settings key = a\nb)";
    QTest::newRow("list") << QVariant(QStringList{"a", "b"}) << "settings key = a, b";
}

void tst_Settings::aWriteIsJournalled()
{
    QFETCH(QVariant, value);
    QFETCH(QString, line);

    Journal journal;
    Settings settings(journal);
    open(&settings);
    settings.setValue(QStringLiteral("key"), value);
    QCOMPARE(journal.lines(), QStringList{line});
}

void tst_Settings::readingIsNotJournalled()
{
    Journal journal;
    Settings settings(journal);
    open(&settings);
    settings.value(QStringLiteral("a"));
    settings.keys();
    QCOMPARE(journal.lines(), QStringList());
}

void tst_Settings::keysAreListed()
{
    Journal journal;
    Settings settings(journal);
    QCOMPARE(settings.keys(), QStringList());
    open(&settings);
    settings.setValue(QStringLiteral("b"), 1);
    settings.setValue(QStringLiteral("System/a"), 2);
    QStringList keys = settings.keys();
    keys.sort();
    QCOMPARE(keys, (QStringList{QStringLiteral("System/a"), QStringLiteral("b")}));
}

void tst_Settings::aGroupIsRemoved()
{
    Journal journal;
    Settings settings(journal);
    open(&settings);
    for (const char *key : {"gps", "gps/a", "gps/b/c", "gpsx/a", "other/gps/a"}) {
        settings.setValue(QString::fromLatin1(key), 1);
    }
    const qint64 before = journal.end();
    settings.removeGroup(QStringLiteral("gps"));
    Settings again(journal);
    open(&again);
    QCOMPARE(again.keys(), QStringList({"gps", "gpsx/a", "other/gps/a"}));
    QCOMPARE(journal.lines(QString(), before),
             QStringList({"settings gps/a removed", "settings gps/b/c removed"}));

    settings.removeGroup(QStringLiteral("nothing"));
    QCOMPARE(journal.end(), before + 2);
}

void tst_Settings::aDamagedFileIsRefusedAndLeft_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("no settings at all") << QByteArray("this is a letter\n");
    QTest::newRow("group without end") << QByteArray("[System\na=1\n");
    QTest::newRow("one bad line among good ones") << QByteArray("a=1\nnonsense\nb=2\n");
}

void tst_Settings::aDamagedFileIsRefusedAndLeft()
{
    QFETCH(QByteArray, content);

    writeFile(m_file, content);
    Journal journal;
    QString error;
    {
        Settings settings(journal);
        QVERIFY(!settings.open(m_file, &error));
    }
    QCOMPARE(error,
             QStringLiteral("The settings file \"%1\" is damaged: it holds a line that is "
                            "neither \"[group]\" nor \"key=value\". It is left as it is.")
                 .arg(m_file));
    QCOMPARE(readFile(m_file), content);
}

void tst_Settings::keysThatNobodyCanAskForAreLeftOut()
{
    writeFile(m_file, "/=1\n[a]\n/b=2\nc/=3\nd=4\nd/=7\n[]\ne=5\n");
    Journal journal;
    Settings settings(journal);
    open(&settings);
    QCOMPARE(settings.keys(), QStringList{"a/d"});
    settings.setValue("f", "6");
    Settings again(journal);
    open(&again);
    QCOMPARE(again.keys(), (QStringList{"a/d", "f"}));
}

void tst_Settings::aFolderIsRefused()
{
    QVERIFY(QDir().mkpath(m_file));
    Journal journal;
    Settings settings(journal);
    QString error;
    QVERIFY(!settings.open(m_file, &error));
    QCOMPARE(error, QStringLiteral("The settings \"%1\" are no file.").arg(m_file));
}

void tst_Settings::aFailedWriteIsJournalled()
{
    Journal journal;
    Settings settings(journal);
    open(&settings);
    // The unit's folder goes away under the running simulator.
    m_folder->remove();
    writeFile(m_folder->path(), "in the way");
    settings.setValue(QStringLiteral("a"), 1);
    QFile::remove(m_folder->path());
    QCOMPARE(journal.lines(),
             (QStringList{QStringLiteral("settings a = 1"),
                          QStringLiteral("unit cannot write %1: Not a directory").arg(m_file)}));
}

void tst_Settings::aFullDiskLeavesWhatWasThere()
{
    Journal journal;
    Settings settings(journal);
    open(&settings);
    settings.setValue(QStringLiteral("a"), 1);
    const QByteArray before = readFile(m_file);
    {
        const FullDisk full(10);
        settings.setValue(QStringLiteral("a"), 2);
    }
    QCOMPARE(readFile(m_file), before);
    QCOMPARE(settings.value(QStringLiteral("a")), QVariant(2));
    QVERIFY(journal.hasFailedWrites());
}

void tst_Settings::eightThreadsKeepEveryValue()
{
    constexpr int threadCount = 8;
    constexpr int valuesEach = 20;
    Journal journal;
    {
        Settings settings(journal);
        open(&settings);
        std::vector<std::thread> threads;
        for (int thread = 0; thread < threadCount; ++thread) {
            threads.emplace_back([&settings, thread] {
                for (int i = 0; i < valuesEach; ++i) {
                    settings.setValue(QStringLiteral("t%1/v%2").arg(thread).arg(i), i);
                }
            });
        }
        for (std::thread &thread : threads) {
            thread.join();
        }
    }
    Settings again(journal);
    open(&again);
    QCOMPARE(again.keys().size(), threadCount * valuesEach);
    QCOMPARE(again.value(QStringLiteral("t7/v19")).toInt(), 19);
    QCOMPARE(journal.end(), qint64(threadCount * valuesEach));
}

FACTORY_TEST_GUILESS_MAIN(tst_Settings)
#include "tst_settings.moc"
