#include "factorydebug/factorydebugactivity.h"
#include "factorydebug/factorydebugview.h"

#include "kvappframework/activityproperty.h"
#include "kvappframework/eventprivatedata.h"
#include "kvappframework/module.h"
#include "kvappframework/sim/simmodulemanager.h"
#include "kvappframework/sysevent.h"
#include "support/testmain.h"
#include "support/testunit.h"
#include "support/tracecapture.h"

#include <QPointer>
#include <QtTest>

using namespace kvappframework;

class TestFactoryDebugActivity : public QObject
{
    Q_OBJECT

private slots:
    void onDestoryWithoutAPrecedingOnCreatDoesNothing();
    void onCreatBuildsAndShowsTheFocusedView();
    void onDestoryDeletesTheViewAndKeepsTheReference();
    void onStartAndOnStopDoNothing();
    void postsTheImplicitRule();
    void missingInfoModuleSkipsTheRegistration();
    void getPropertyGivesTheSameRecord();
    void traces();
    void virtualSlotOrder();
};

namespace
{

/// An "info" module that keeps what is posted to it.
class RecordingModule : public QObject, public Module
{
public:
    QObject *getReceiver() override { return this; }

    QList<QEvent::Type> types;
    int eventId = 0;
    QVariant value;
    int argument = 0;
    QSharedPointer<EventPrivateData> data;

protected:
    bool event(QEvent *event) override
    {
        types.append(event->type());
        const auto *message = dynamic_cast<SysEvent *>(event);
        if (message == nullptr) {
            return QObject::event(event);
        }
        eventId = message->eventId();
        value = message->value();
        argument = message->argument();
        data = message->privateData();
        return true;
    }
};

} // namespace

void TestFactoryDebugActivity::onDestoryWithoutAPrecedingOnCreatDoesNothing()
{
    TestUnit unit;
    FactoryDebugctivity activity;
    QCOMPARE(activity.onDestory(), 0);
    QVERIFY(activity.getProperty()->getUiObj() == nullptr);
}

void TestFactoryDebugActivity::onCreatBuildsAndShowsTheFocusedView()
{
    TestUnit unit;
    unit.screen().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&unit.screen()));
    FactoryDebugctivity activity;
    QCOMPARE(activity.onCreat(), 0);

    QWidget *view = activity.getProperty()->getUiObj();
    QVERIFY(qobject_cast<FactoryDebugView *>(view) != nullptr);
    QCOMPARE(view->parentWidget(), unit.framework().layer(UI_HERARCHY_ACTIVITY));
    QVERIFY(view->isVisible());
    QCOMPARE(view->focusPolicy(), Qt::StrongFocus);
    QVERIFY(view->hasFocus());
    QCOMPARE(view->geometry(), QRect(0, 0, 800, 480));
    activity.onDestory();
}

void TestFactoryDebugActivity::onDestoryDeletesTheViewAndKeepsTheReference()
{
    TestUnit unit;
    FactoryDebugctivity activity;
    activity.onCreat();
    const QPointer<QWidget> view = activity.getProperty()->getUiObj();
    QWidget *address = view;
    QCOMPARE(activity.onDestory(), 0);
    QVERIFY(view.isNull());
    QCOMPARE(activity.getProperty()->getUiObj(), address);
}

void TestFactoryDebugActivity::onStartAndOnStopDoNothing()
{
    TestUnit unit;
    FactoryDebugctivity activity;
    activity.onCreat();
    const QImage before = unit.screen().grab().toImage();
    QCOMPARE(activity.onStart(), 0);
    QCOMPARE(activity.onStop(), 0);
    QCOMPARE(unit.screen().grab().toImage(), before);
    activity.onDestory();
}

void TestFactoryDebugActivity::postsTheImplicitRule()
{
    TestUnit unit;
    const auto info = QSharedPointer<RecordingModule>::create();
    unit.framework().modules().add(QStringLiteral("info"), info);

    const auto before = QEvent::Type(QEvent::registerEventType());
    const auto after = QEvent::Type(QEvent::registerEventType());

    // The constructor is back before the module has seen the event, which overtakes no other.
    QCoreApplication::postEvent(info.data(), new QEvent(before));
    FactoryDebugctivity activity;
    QCOMPARE(info->types, QList<QEvent::Type>());
    QCoreApplication::postEvent(info.data(), new QEvent(after));
    QCoreApplication::processEvents();

    QCOMPARE(info->types, QList<QEvent::Type>({before, UserType, after}));
    QVERIFY(UserType >= QEvent::User);
    QCOMPARE(info->eventId, 14);
    QCOMPARE(info->value, QVariant(false));
    QCOMPARE(info->argument, -1);
    QCOMPARE(info->data->name(), QStringLiteral("factorydebug"));
    QCOMPARE(info->data->data(), QVariant(QStringLiteral("mediaplay")));
}

void TestFactoryDebugActivity::missingInfoModuleSkipsTheRegistration()
{
    TestUnit unit;
    unit.framework().modules().remove(QStringLiteral("info"));
    const TraceCapture capture;
    FactoryDebugctivity activity;
    QCoreApplication::processEvents();
    QCOMPARE(capture.texts(), QStringList(QStringLiteral("FactoryDebugctivity")));
    QCOMPARE(activity.getProperty()->getName(), QStringLiteral("factorydebug"));
}

void TestFactoryDebugActivity::getPropertyGivesTheSameRecord()
{
    TestUnit unit;
    QSharedPointer<ActivityProperty> property;
    {
        FactoryDebugctivity activity;
        property = activity.getProperty();
        QCOMPARE(property, activity.getProperty());
    }
    QCOMPARE(property->getName(), QStringLiteral("factorydebug"));
}

void TestFactoryDebugActivity::traces()
{
    TestUnit unit;
    const TraceCapture capture;
    {
        const FactoryDebugctivity activity;
    }
    QCOMPARE(capture.texts(),
             QStringList(
                 {QStringLiteral("FactoryDebugctivity"), QStringLiteral("~FactoryDebugctivity")}));
    const QRegularExpression form(QStringLiteral(
        R"(^\[Info\] \[FactoryDebug\] \[ factorydebugactivity\.cpp : \d+ \]  FactoryDebugctivity$)"));
    QVERIFY(form.match(capture.lines().constFirst()).hasMatch());
}

void TestFactoryDebugActivity::virtualSlotOrder()
{
    // The table as the Itanium C++ ABI lays it out: two entries for the destructor, then the
    // virtual functions in the order of the framework's class, whatever the activity's own order.
    TestUnit unit;
    FactoryDebugctivity activity;
    auto *part = static_cast<Activity *>(&activity);
    void **table = *reinterpret_cast<void ***>(part);
    using Call = int (*)(Activity *);

    QCOMPARE(reinterpret_cast<Call>(table[2])(part), 0);
    const QPointer<QWidget> view = activity.getProperty()->getUiObj();
    QVERIFY(!view.isNull()); // Entry 2 was onCreat().
    QCOMPARE(reinterpret_cast<Call>(table[4])(part), 0);
    QCOMPARE(reinterpret_cast<Call>(table[5])(part), 0);
    QVERIFY(!view.isNull());
    QCOMPARE(reinterpret_cast<Call>(table[3])(part), 0);
    QVERIFY(view.isNull()); // Entry 3 was onDestory().
    using Property = QSharedPointer<ActivityProperty> (*)(Activity *);
    QCOMPARE(reinterpret_cast<Property>(table[6])(part), activity.getProperty());
}

FACTORY_TEST_MAIN(TestFactoryDebugActivity)
#include "tst_factorydebugactivity.moc"
