// One piece of work, of which ./test --bench has the instructions counted: all that counted() does.
// Usage: bench_instructions NAME; without a name it lists what there is.

#include "customwidget/listview.h"
#include "factorydebug/factorydebugview.h"
#include "gps/gpspackage.h"
#include "gps/gpsserial.h"
#include "gps/xmodemsender.h"
#include "kvappframework/activity.h"
#include "lineend.h"
#include "measurement.h"
#include "plainscreen.h"
#include "support/testunit.h"
#include "system/vendordatadelegate.h"
#include "system/vendordatamodel.h"

#include <QApplication>
#include <QPluginLoader>
#include <QScrollBar>
#include <QTemporaryDir>

#include <cstdio>

/// The name by which the counting tool knows when to count.
extern "C" Q_NEVER_INLINE void counted(const std::function<void()> &work)
{
    work();
}

namespace
{

const double timeFactor = 1000; // Prescribed pauses are not counted, and need not last.

void start(const QString &)
{
    TestUnit unit(timeFactor);
    unit.screen().repaint();
    counted([&unit] {
        QPluginLoader loader(QStringLiteral(FACTORYDEBUG_PLUGIN));
        auto *activity = qobject_cast<kvappframework::Activity *>(loader.instance());
        activity->onCreat();
        unit.screen().repaint();
    });
}

/// The second time: the first decodes the pictures.
void open(const QString &id)
{
    TestUnit unit(timeFactor);
    FactoryDebugView view(unit.framework().layer(kvappframework::UI_HERARCHY_ACTIVITY));
    view.show();
    const auto openPage = [&] {
        view.buttonClicked(id);
        unit.screen().repaint();
    };
    openPage();
    view.buttonClicked(QStringLiteral("return"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    unit.screen().repaint();
    counted(openPage);
}

/// The same of plain widgets, by the page's id behind "plain-".
void openPlain(const QString &name)
{
    TestUnit unit(timeFactor);
    FactoryDebugView view(unit.framework().layer(kvappframework::UI_HERARCHY_ACTIVITY));
    view.show();
    PlainScreen screen(view);
    const PlainPage page = plainPage(view, name.section(QLatin1Char('-'), 1));
    screen.open(page);
    screen.leavePage();
    counted([&screen, &page] { screen.open(page); });
}

void scroll(const QString &)
{
    TestUnit unit;
    VendorDataModel model(nullptr);
    VendorDataDelegate delegate(nullptr);
    ListView list(&unit.screen());
    list.setGeometry(0, 66, 800, 414);
    list.setModel(&model);
    list.setItemDelegate(&delegate);
    list.show();
    unit.screen().repaint();
    const auto step = [&list, &unit](int value) {
        list.verticalScrollBar()->setValue(value);
        QEvent update(QEvent::UpdateRequest);
        QCoreApplication::sendEvent(&unit.screen(), &update);
    };
    step(1);
    counted([&step] { step(0); });
}

void send(const QString &)
{
    const QTemporaryDir folder;
    const QByteArray file = writeBlocks(folder, 1);
    use_select_wait = 1;
    LineEnd receiver(false);
    receiver.take(1, [&] { counted([&] { xmodem_send(receiver.port(), file.constData()); }); });
}

void check(const QString &)
{
    const QTemporaryDir folder;
    const QByteArray file = writePackage(folder, 1024 * 1024);
    counted([&file] { check_file(file.constData(), 0); });
}

struct Work
{
    const char *name;
    void (*run)(const QString &id);
};

const Work works[] = {
    {"start", start},
    {"usbtest", open},
    {"plain-usbtest", openPlain},
    {"usbeye", open},
    {"plain-usbeye", openPlain},
    {"ncmtest", open},
    {"plain-ncmtest", openPlain},
    {"keycolor", open},
    {"plain-keycolor", openPlain},
    {"vendordata", open},
    {"plain-vendordata", openPlain},
    {"als", open},
    {"plain-als", openPlain},
    {"pdtVer", open},
    {"plain-pdtVer", openPlain},
    {"sysCtrl", open},
    {"plain-sysCtrl", openPlain},
    {"idPanel", open},
    {"plain-idPanel", openPlain},
    {"list-step", scroll},
    {"block", send},
    {"checked-megabyte", check},
};

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ignoreMessages();
    for (const Work &work : works) {
        if (argc < 2) {
            std::printf("%s\n", work.name);
        } else if (qstrcmp(work.name, argv[1]) == 0) {
            const Quiet quiet;
            work.run(QString::fromLatin1(work.name));
            return 0;
        }
    }
    return argc < 2 ? 0 : 1;
}
