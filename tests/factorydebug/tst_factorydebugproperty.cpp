#include "factorydebug/factorydebugproperty.h"

#include "support/testmain.h"

#include <QtTest>
#include <QWidget>

using namespace kvappframework;

class TestFactoryDebugProperty : public QObject
{
    Q_OBJECT

private slots:
    void getDependModulesGivesMediaplayWhileTheConstructionListHoldsOneEmptyString();
    void dependModulesAreMadeAnewOnEachCall();
    void answersTheFramework();
    void virtualSlotOrder();
};

namespace
{

QStringList emptyModule()
{
    return QStringList(QString());
}

} // namespace

void TestFactoryDebugProperty::
    getDependModulesGivesMediaplayWhileTheConstructionListHoldsOneEmptyString()
{
    QStringList modules = emptyModule();
    const FactoryDebugProperty property(modules);
    QCOMPARE(*property.getDependModules(), QStringList(QStringLiteral("mediaplay")));
    QCOMPARE(*property.ActivityProperty::getDependModules(), QStringList(QString()));
}

void TestFactoryDebugProperty::dependModulesAreMadeAnewOnEachCall()
{
    QStringList modules = emptyModule();
    const FactoryDebugProperty property(modules);
    property.getDependModules()->append(QStringLiteral("other"));
    QCOMPARE(property.getDependModules()->size(), 1);
}

void TestFactoryDebugProperty::answersTheFramework()
{
    QStringList modules = emptyModule();
    FactoryDebugProperty property(modules);
    QCOMPARE(property.getName(), QStringLiteral("factorydebug"));
    QCOMPARE(property.getDispString(), QStringLiteral("FactoryDebug"));
    QCOMPARE(int(property.getType()), 0);
    QVERIFY(property.getCbk().isNull());
    QCOMPARE(int(property.getPriority()), 4);
    QCOMPARE(int(property.getAnmType()), 0);
    QCOMPARE(property.needPowerResume(), false);
    QVERIFY(property.getUiObj() == nullptr);
}

void TestFactoryDebugProperty::virtualSlotOrder()
{
    // The table as the Itanium C++ ABI lays it out: two entries for the destructor, then the
    // virtual functions as declared. What each entry does shows which function it is.
    QStringList modules = emptyModule();
    FactoryDebugProperty property(modules);
    void **table = *reinterpret_cast<void ***>(&property);
    QWidget widget;
    QObject filter;

    using Self = ActivityProperty *;
    reinterpret_cast<void (*)(Self, QWidget *)>(table[4])(&property, &widget);
    QCOMPARE(reinterpret_cast<QWidget *(*)(Self)>(table[5])(&property), &widget);
    reinterpret_cast<void (*)(Self, QObject *)>(table[6])(&property, &filter);
    QCOMPARE(reinterpret_cast<QObject *(*)(Self)>(table[7])(&property), &filter);
    QCOMPARE(int(reinterpret_cast<TRIGGER_PRIORITY (*)(Self)>(table[9])(&property)), 4);
    reinterpret_cast<void (*)(Self, TRIGGER_PRIORITY)>(table[8])(&property, TRIGGER_PRIORITY(3));
    QCOMPARE(int(property.getPriority()), 3);
    QCOMPARE(int(reinterpret_cast<AnmType (*)(Self)>(table[10])(&property)), 0);
    QCOMPARE(reinterpret_cast<bool (*)(Self)>(table[11])(&property), false);
    QCOMPARE(reinterpret_cast<QString (*)(Self)>(table[2])(&property),
             QStringLiteral("FactoryDebug"));
    QCOMPARE(*reinterpret_cast<QSharedPointer<QStringList> (*)(Self)>(table[3])(&property),
             QStringList(QStringLiteral("mediaplay")));
}

FACTORY_TEST_MAIN(TestFactoryDebugProperty)
#include "tst_factorydebugproperty.moc"
