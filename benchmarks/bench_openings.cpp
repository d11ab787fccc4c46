// Heap, descriptors and threads over many openings of pages, after a warm-up: all should stay flat.
// Usage: bench_openings [OPENINGS [ID...]]; 10000 openings, spread over all hosted pages, by
// default.

#include "factorydebug/factorydebugview.h"
#include "measurement.h"
#include "support/testunit.h"

#include <QApplication>
#include <QDir>
#include <QPixmapCache>

#include <cstdio>
#include <malloc.h>

namespace
{

const int warmUp = 200;
const double timeFactor = 1000;

struct Usage
{
    double heap;
    int descriptors;
    int threads;
};

Usage usage()
{
    malloc_trim(0);
    return {double(mallinfo2().uordblks),
            QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System).size(),
            QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs).size() - 2};
}

void openPages(TestUnit &unit, FactoryDebugView &view, const QStringList &ids, int count)
{
    const Quiet quiet;
    for (int opening = 0; opening < count; ++opening) {
        view.buttonClicked(ids.at(opening % ids.size()));
        unit.screen().repaint();
        view.buttonClicked(QStringLiteral("return"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }
}

/// The unit's journal holds its newest lines in memory. Gives it as many as it ever holds, of the
/// kind that the warm-up has left, so that it does not grow any more.
void fillJournal(hardware::Journal &journal)
{
    const QStringList typical = journal.lines();
    while (!typical.isEmpty() && journal.lines().size() == journal.end()) {
        for (const QString &line : typical) {
            journal.write(line.section(QLatin1Char(' '), 0, 0), line.section(QLatin1Char(' '), 1));
        }
    }
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ignoreMessages();
    // It grows to its limit, and is tidied twice a minute only.
    QPixmapCache::setCacheLimit(0);
    QStringList arguments = application.arguments().mid(1);
    const int openings = arguments.isEmpty() ? 10000 : arguments.takeFirst().toInt();
    const QStringList ids = !arguments.isEmpty()
        ? arguments
        : QStringList({"usbtest", "usbeye", "ncmtest", "keycolor", "vendordata", "als", "pdtVer",
                       "sysCtrl", "idPanel"});

    TestUnit unit(timeFactor);
    FactoryDebugView view(unit.framework().layer(kvappframework::UI_HERARCHY_ACTIVITY));
    view.show();
    openPages(unit, view, ids, warmUp);
    fillJournal(unit.unit().journal());
    const Usage before = usage();
    openPages(unit, view, ids, openings);
    const Usage after = usage();

    std::printf("%d openings\n", openings);
    std::printf("heap         %12.0f -> %12.0f bytes  %+.3f bytes an opening\n", before.heap,
                after.heap, (after.heap - before.heap) / openings);
    std::printf("descriptors  %12d -> %12d\n", before.descriptors, after.descriptors);
    std::printf("threads      %12d -> %12d\n", before.threads, after.threads);
    return 0;
}
