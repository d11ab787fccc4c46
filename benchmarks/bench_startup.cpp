// How long the first painted frame takes, beside a plug-in that is one empty widget of the same
// size, and one with thirteen push buttons of Qt's own that look and read like the menu's: counted
// from the start of the process that the framework is, and from the moment when the running
// framework, which has shown a text already, begins to load the plug-in. Every start is a process
// of its own, so that nothing of the plug-in is loaded or decoded yet; the three take turns.

#include "kvappframework/activity.h"
#include "measurement.h"
#include "support/testunit.h"

#include <QApplication>
#include <QLabel>
#include <QPluginLoader>
#include <QProcess>

#include <chrono>
#include <cstdio>

namespace
{

const int rounds = 30;

int fail(const QString &message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    return 1;
}

qint64 now()
{
    // One clock for all processes.
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

double milliseconds(qint64 from, qint64 to)
{
    return (to - from) / 1e6;
}

/// Loads, creates, paints; prints how many milliseconds that took since \a processStart and since
/// the loading began.
int startOnce(const QString &file, qint64 processStart)
{
    TestUnit unit;
    QLabel greeting(QStringLiteral("Head unit"),
                    unit.framework().layer(kvappframework::UI_HERARCHY_BACKGROUND));
    greeting.show();
    unit.screen().repaint();
    QCoreApplication::processEvents();

    const qint64 loadStart = now();
    QPluginLoader loader(file);
    auto *activity = qobject_cast<kvappframework::Activity *>(loader.instance());
    if (activity == nullptr) {
        return fail(loader.errorString());
    }
    activity->onCreat();
    // Paints what is visible now, without waiting for the event loop.
    unit.screen().repaint();
    const qint64 painted = now();
    std::printf("%.4f %.4f\n", milliseconds(processStart, painted),
                milliseconds(loadStart, painted));

    activity->onDestory();
    return 0;
}

/// The two times of several starts of one plug-in.
struct Starts
{
    QVector<double> process;
    QVector<double> load;
};

bool measureStart(const QString &plugin, bool keep, Starts *starts)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {plugin, QString::number(now())});
    process.waitForFinished();
    const QList<QByteArray> times = process.readAllStandardOutput().trimmed().split(' ');
    if (times.size() == 2 && keep) {
        starts->process.append(times.at(0).toDouble());
        starts->load.append(times.at(1).toDouble());
    }
    return times.size() == 2;
}

void print(const QString &what, const QVector<double> &factory, const QVector<double> &menu,
           const QVector<double> &trivial)
{
    const auto ms = QStringLiteral("ms");
    printRow(QStringLiteral("factory debug: ") + what, factory, ms);
    printRow(QStringLiteral("thirteen plain buttons: ") + what, menu, ms);
    printRow(QStringLiteral("empty widget: ") + what, trivial, ms);
    printRatio(QStringLiteral("  ratio to the plain buttons"), factory, menu);
    printRatio(QStringLiteral("  ratio to the empty widget"), factory, trivial);
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc > 2) {
        return startOnce(QString::fromLocal8Bit(argv[1]), QByteArray(argv[2]).toLongLong());
    }

    Starts factory;
    Starts menu;
    Starts trivial;
    for (int round = 0; round <= rounds; ++round) {
        const bool keep = round > 0; // The first round only warms up.
        if (!measureStart(QStringLiteral(FACTORYDEBUG_PLUGIN), keep, &factory)
            || !measureStart(QStringLiteral(MENU_PLUGIN), keep, &menu)
            || !measureStart(QStringLiteral(TRIVIAL_PLUGIN), keep, &trivial)) {
            return fail(QStringLiteral("A start could not be measured."));
        }
    }
    print(QStringLiteral("process start to first paint"), factory.process, menu.process,
          trivial.process);
    print(QStringLiteral("load to first paint"), factory.load, menu.load, trivial.load);
    return 0;
}
