#include "simulator/framework/activityloader.h"

#include "hardware/unit/unit.h"
#include "kvappframework/sim/frameworkhost.h"
#include "kvappframework/sim/simactivitymanager.h"
#include "support/testmain.h"
#include "unitlink/simulatedunit.h"

#include <QLabel>
#include <QPushButton>
#include <QtTest>

using namespace simulator;

class TestActivityLoader : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void refuses_data();
    void refuses();
    void saysWhatIsMissing();
    void makesTheActivityKnown();
    void unloadingClosesAndForgets();
    void unloadingTwiceDoesNothing();
    void loadingAgainStartsAfresh();
    void takesItsResourcesAlong();
    void onlyTheLastCopyStaysOnDisk();
    void canLoadAfterARefusal();

private:
    QTemporaryDir m_folder;
};

namespace
{

/// The framework on a plain widget.
struct Framework
{
    explicit Framework(const QString &folder)
        : unit(folder)
        , opened(open())
        , link(unit)
        , host(screen())
    {
    }

    bool open()
    {
        QString error;
        return unit.open(&error);
    }

    QWidget *screen()
    {
        window.resize(800, 480);
        window.show();
        return &window;
    }

    void start()
    {
        host.activities().startActivity("factorydebug", 0);
        QCoreApplication::processEvents();
    }

    QPushButton *button(const QString &text)
    {
        const auto buttons = window.findChildren<QPushButton *>();
        for (QPushButton *found : buttons) {
            if (found->text() == text) {
                return found;
            }
        }
        return nullptr;
    }

    hardware::Unit unit;
    bool opened;
    unitlink::SimulatedUnit link;
    QWidget window;
    kvappframework::FrameworkHost host;
};

} // namespace

void TestActivityLoader::initTestCase()
{
    Framework framework(m_folder.path());
    QVERIFY(framework.opened);
}

void TestActivityLoader::refuses_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("error");
    const QString unusable = "The file \"%1\" cannot be used as an activity: ";
    QTest::newRow("missing") << "/etc/passwd/nowhere/libactivity.so"
                             << "The plug-in \"%1\" does not exist.";
    QTest::newRow("folder") << "/tmp"
                            << "The plug-in \"%1\" does not exist.";
    QTest::newRow("text file") << NO_PLUGIN
                               << unusable + "it is no plug-in ('%1' is not an ELF object).";
    QTest::newRow("another IID") << OTHER_IID
                                 << unusable
            + "its interface is \"activity/0.2\", not \"activity/0.1\".";
    QTest::newRow("another class")
        << OTHER_CLASS << unusable + "its class is \"Navigation\", not \"FactoryDebugctivity\".";
    QTest::newRow("no Activity") << NO_ACTIVITY
                                 << unusable + "its object is no kvappframework::Activity.";
}

void TestActivityLoader::refuses()
{
    QFETCH(QString, file);
    QFETCH(QString, error);
    Framework framework(m_folder.path());
    ActivityLoader loader(framework.host.activities());
    QString said;
    QVERIFY(!loader.load(file, &said));
    QCOMPARE(said, error.arg(file));
    QCOMPARE(framework.host.activities().startActivity("factorydebug", 0), -1);
}

void TestActivityLoader::saysWhatIsMissing()
{
    Framework framework(m_folder.path());
    ActivityLoader loader(framework.host.activities());
    QString error;
    QVERIFY(!loader.load(UNLOADABLE, &error));
    QVERIFY2(error.startsWith(
                 QString("The file \"%1\" cannot be used as an activity: it does not load (")
                     .arg(UNLOADABLE)),
             qPrintable(error));
    QVERIFY2(error.contains("functionThatNobodyDefines"), qPrintable(error));
    QCOMPARE(error.count('\n'), 0);
}

void TestActivityLoader::makesTheActivityKnown()
{
    Framework framework(m_folder.path());
    ActivityLoader loader(framework.host.activities());
    QString error;
    QVERIFY2(loader.load(TEST_ACTIVITY, &error), qPrintable(error));
    framework.start();
    QCOMPARE(framework.host.activities().running(), QStringList{"factorydebug"});
    QVERIFY(framework.button("count") != nullptr);
}

void TestActivityLoader::unloadingClosesAndForgets()
{
    Framework framework(m_folder.path());
    ActivityLoader loader(framework.host.activities());
    QString error;
    QVERIFY2(loader.load(TEST_ACTIVITY, &error), qPrintable(error));
    framework.start();
    QTest::ignoreMessage(QtDebugMsg, "~FactoryDebugctivity");
    loader.unload();
    QVERIFY(framework.host.activities().running().isEmpty());
    QVERIFY(framework.button("count") == nullptr);
    QCOMPARE(framework.host.activities().startActivity("factorydebug", 0), -1);
}

void TestActivityLoader::unloadingTwiceDoesNothing()
{
    Framework framework(m_folder.path());
    ActivityLoader loader(framework.host.activities());
    loader.unload();
    QString error;
    QVERIFY2(loader.load(TEST_ACTIVITY, &error), qPrintable(error));
    loader.unload();
    loader.unload();
}

void TestActivityLoader::loadingAgainStartsAfresh()
{
    Framework framework(m_folder.path());
    ActivityLoader loader(framework.host.activities());
    QString error;
    for (int round = 0; round < 3; ++round) {
        QVERIFY2(loader.load(TEST_ACTIVITY, &error), qPrintable(error));
        framework.start();
        // The plug-in counts in a variable of the process.
        framework.button("count")->click();
        framework.button("count")->click();
        QLabel *label = framework.window.findChild<QLabel *>();
        QVERIFY(label != nullptr);
        QCOMPARE(label->text(), QString("presses: 2"));
        loader.unload();
    }
}

void TestActivityLoader::takesItsResourcesAlong()
{
    Framework framework(m_folder.path());
    ActivityLoader loader(framework.host.activities());
    QString error;
    for (int round = 0; round < 2; ++round) {
        QVERIFY2(loader.load(TEST_ACTIVITY, &error), qPrintable(error));
        QVERIFY(QFile::exists(":/testactivity/testactivity.cpp"));
        // Those of Qt's style stay.
        QVERIFY(QFile::exists(":/qt-project.org/qmessagebox/images/qtlogo-64.png"));
        loader.unload();
        QVERIFY(!QFile::exists(":/testactivity/testactivity.cpp"));
        QVERIFY(QFile::exists(":/qt-project.org/qmessagebox/images/qtlogo-64.png"));
    }
}

void TestActivityLoader::onlyTheLastCopyStaysOnDisk()
{
    Framework framework(m_folder.path());
    ActivityLoader loader(framework.host.activities());
    QString error;
    // The first one of a process is no copy.
    QVERIFY2(loader.load(TEST_ACTIVITY, &error), qPrintable(error));
    QStringList names;
    for (int round = 0; round < 3; ++round) {
        QVERIFY2(loader.load(TEST_ACTIVITY, &error), qPrintable(error));
        names += QDir(loader.temporaryFolder()).entryList(QDir::Files);
        QCOMPARE(names.size(), round + 1);
    }
    QCOMPARE(names.removeDuplicates(), 0);
}

void TestActivityLoader::canLoadAfterARefusal()
{
    Framework framework(m_folder.path());
    ActivityLoader loader(framework.host.activities());
    QString error;
    QVERIFY(!loader.load(OTHER_IID, &error));
    QVERIFY2(loader.load(TEST_ACTIVITY, &error), qPrintable(error));
    QVERIFY(!loader.load(OTHER_IID, &error));
    QString again;
    QVERIFY(!loader.load(OTHER_IID, &again));
    QCOMPARE(again, error);
}

FACTORY_TEST_MAIN(TestActivityLoader)
#include "tst_activityloader.moc"
