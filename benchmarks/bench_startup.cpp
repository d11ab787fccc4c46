// From the start of loading the plug-in to its first painted frame, beside a plug-in that is one
// empty widget of the same size. Every start is a process of its own, so that nothing is loaded or
// decoded yet; the two take turns.

#include "kvappframework/activity.h"
#include "measurement.h"
#include "support/testunit.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPluginLoader>
#include <QProcess>

#include <cstdio>

namespace
{

const int rounds = 30;

int fail(const QString &message)
{
    std::fprintf(stderr, "%s\n", qPrintable(message));
    return 1;
}

/// Loads, creates, paints; prints how many milliseconds that took.
int startOnce(const QString &file)
{
    TestUnit unit;
    QCoreApplication::processEvents();

    QElapsedTimer clock;
    clock.start();
    QPluginLoader loader(file);
    auto *activity = qobject_cast<kvappframework::Activity *>(loader.instance());
    if (activity == nullptr) {
        return fail(loader.errorString());
    }
    activity->onCreat();
    // Paints what is visible now, without waiting for the event loop.
    unit.screen().repaint();
    std::printf("%.4f\n", clock.nsecsElapsed() / 1e6);

    activity->onDestory();
    return 0;
}

double measuredStart(const QString &plugin)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::SeparateChannels);
    process.start(QCoreApplication::applicationFilePath(), {plugin});
    process.waitForFinished();
    return process.readAllStandardOutput().trimmed().toDouble();
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc > 1) {
        return startOnce(QString::fromLocal8Bit(argv[1]));
    }

    QVector<double> factory;
    QVector<double> trivial;
    for (int round = -1; round < rounds; ++round) {
        const double first = measuredStart(QStringLiteral(FACTORYDEBUG_PLUGIN));
        const double second = measuredStart(QStringLiteral(TRIVIAL_PLUGIN));
        if (first <= 0 || second <= 0) {
            return fail(QStringLiteral("A start could not be measured."));
        }
        if (round >= 0) { // The first round only warms up.
            factory.append(first);
            trivial.append(second);
        }
    }
    printRow(QStringLiteral("factory debug: load to first paint"), factory, QStringLiteral("ms"));
    printRow(QStringLiteral("empty 800 x 480 widget: the same"), trivial, QStringLiteral("ms"));
    printRatio(QStringLiteral("ratio"), factory, trivial);
    return 0;
}
