#include "kvappframework/activity.h"
#include "support/testmain.h"
#include "support/testunit.h"

#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QPointer>
#include <QProcess>
#include <QtTest>

using kvappframework::Activity;

/// The plug-in file that ships.
class TestPlugin : public QObject
{
    Q_OBJECT

private slots:
    void metaData();
    void callingTheInstanceFunctionTwiceReturnsTheSameObject();
    void castByInterfaceIdAndByNameGivesTheSameActivityPart();
    void exportsTheQtEntryPointsOnly();
};

namespace
{

const auto pluginFile = QStringLiteral(FACTORYDEBUG_PLUGIN);

} // namespace

void TestPlugin::metaData()
{
    const QJsonObject metaData = QPluginLoader(pluginFile).metaData();
    QCOMPARE(metaData.value(QStringLiteral("IID")).toString(), QStringLiteral("activity/0.1"));
    QCOMPARE(metaData.value(QStringLiteral("className")).toString(),
             QStringLiteral("FactoryDebugctivity"));
    // Qt writes the version that it is built against without its patch number.
    QCOMPARE(metaData.value(QStringLiteral("version")).toInt() & 0xFFFF00, QT_VERSION & 0xFFFF00);
#ifdef QT_NO_DEBUG
    const bool hasAssertions = false;
#else
    const bool hasAssertions = true;
#endif
    QCOMPARE(metaData.value(QStringLiteral("debug")), QJsonValue(hasAssertions));
    QVERIFY(metaData.value(QStringLiteral("MetaData")).toObject().isEmpty());
}

void TestPlugin::callingTheInstanceFunctionTwiceReturnsTheSameObject()
{
    TestUnit unit;
    QLibrary library(pluginFile);
    // As for every plug-in: texts and shared pointers of its making may outlive the unloading.
    library.setLoadHints(QLibrary::PreventUnloadHint);
    using Instance = QObject *(*)();
    const auto instance = reinterpret_cast<Instance>(library.resolve("qt_plugin_instance"));
    QVERIFY2(instance != nullptr, qPrintable(library.errorString()));

    QPointer<QObject> first = instance();
    QCOMPARE(first->metaObject()->className(), "FactoryDebugctivity");
    QCOMPARE(instance(), first.data());
    delete first;
    QVERIFY(first.isNull());
    {
        const QScopedPointer<QObject> second(instance());
        QCOMPARE(second->metaObject()->className(), "FactoryDebugctivity");
    }
    QVERIFY(library.unload());
}

void TestPlugin::castByInterfaceIdAndByNameGivesTheSameActivityPart()
{
    TestUnit unit;
    QPluginLoader loader(pluginFile);
    QObject *instance = loader.instance();
    QVERIFY2(instance != nullptr, qPrintable(loader.errorString()));
    auto *activity = qobject_cast<Activity *>(instance);
    QVERIFY(activity != nullptr);
    QCOMPARE(instance->qt_metacast("activity/0.1"), static_cast<void *>(activity));
    QCOMPARE(instance->qt_metacast("kvappframework::Activity"), static_cast<void *>(activity));
    QCOMPARE(instance->qt_metacast("FactoryDebugctivity"), static_cast<void *>(instance));
    QVERIFY(loader.unload());
}

void TestPlugin::exportsTheQtEntryPointsOnly()
{
    QProcess nm;
    nm.start(QStringLiteral("nm"),
             {QStringLiteral("--dynamic"), QStringLiteral("--defined-only"),
              QStringLiteral("--format=posix"), pluginFile});
    QVERIFY(nm.waitForFinished());
    QStringList strong;
    const QStringList lines = QString::fromLatin1(nm.readAllStandardOutput()).split('\n');
    for (const QString &line : lines) {
        // Weak symbols are templates that every user of Qt emits; "_edata" is the linker's.
        const QString name = line.section(' ', 0, 0);
        const QString type = line.section(' ', 1, 1);
        if ((type == QLatin1String("T") || type == QLatin1String("D")) && !name.startsWith('_')) {
            strong.append(name);
        }
    }
    strong.sort();
    QCOMPARE(strong,
             QStringList({QStringLiteral("qt_plugin_instance"),
                          QStringLiteral("qt_plugin_query_metadata")}));
}

FACTORY_TEST_MAIN(TestPlugin)
#include "tst_plugin.moc"
