// What a page that is shown holds of the heap; and heap, descriptors and threads over many openings
// of pages, after a warm-up: all should stay flat. Usage: bench_openings [OPENINGS [ID...]]; 10000
// openings, spread over all hosted pages, by default.

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

/// What a page holds of the heap once it is shown; its widgets' share of the backing store is the
/// screen's.
void printAtRest(TestUnit &unit, FactoryDebugView &view, const QString &id)
{
    const double menu = usage().heap;
    double page = 0;
    {
        const Quiet quiet;
        view.buttonClicked(id);
        unit.screen().repaint();
        QCoreApplication::processEvents();
        page = usage().heap;
        view.buttonClicked(QStringLiteral("return"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    std::printf("%-12s %12.0f bytes at rest\n", qPrintable(id), page - menu);
}

/// The unit's journal holds its newest lines in memory, and grows until it holds as many as it ever
/// does.
bool isGrowing(const hardware::Journal &journal)
{
    return journal.entries(QString(), 0, hardware::Journal::Everything).size() == journal.end();
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
    do {
        openPages(unit, view, ids, warmUp);
    } while (isGrowing(unit.unit().journal()));
    for (const QString &id : ids) {
        printAtRest(unit, view, id);
    }
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
