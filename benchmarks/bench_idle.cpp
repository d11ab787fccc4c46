// Wake-ups of the graphical thread with the menu shown and nothing moving, counted over some
// seconds, with the plug-in's menu and with an empty widget in its place.

#include "kvappframework/activity.h"
#include "support/testunit.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QElapsedTimer>
#include <QPluginLoader>
#include <QTimer>

#include <cstdio>

namespace
{

const int settleMs = 500;
const int watchMs = 5000;

void runFor(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Wake-ups per second with that plug-in's activity on the screen; -1 when it cannot be loaded.
double wakeUps(const QString &file)
{
    TestUnit unit;
    QPluginLoader loader(file);
    auto *activity = qobject_cast<kvappframework::Activity *>(loader.instance());
    if (activity == nullptr) {
        std::fprintf(stderr, "%s\n", qPrintable(loader.errorString()));
        return -1;
    }
    activity->onCreat();
    runFor(settleMs);

    int count = 0;
    const auto watch = QObject::connect(QAbstractEventDispatcher::instance(),
                                        &QAbstractEventDispatcher::awake, [&count] { ++count; });
    runFor(watchMs);
    QObject::disconnect(watch);
    activity->onDestory();
    // The watching itself ends in one wake-up, that of its timer, and starts with one.
    return (count - 2) * 1000.0 / watchMs;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    std::printf("menu shown:         %.2f wake-ups per second\n",
                wakeUps(QStringLiteral(FACTORYDEBUG_PLUGIN)));
    std::printf("empty widget shown: %.2f wake-ups per second\n",
                wakeUps(QStringLiteral(TRIVIAL_PLUGIN)));
    return 0;
}
