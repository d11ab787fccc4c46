// One way from the menu to a page and back, painted each time, for every hosted page; beside the
// same with the same widgets of plain Qt. What a page does when it opens is the page's alone.

#include "factorydebug/factorydebugview.h"
#include "measurement.h"
#include "plainscreen.h"
#include "support/testunit.h"

#include <QApplication>

namespace
{

const int rounds = 50;

void measure(TestUnit &unit, FactoryDebugView &view, PlainScreen &screen, const QString &id)
{
    const auto back = QStringLiteral("return");
    QVector<double> page;
    QVector<double> plain;
    const PlainPage twin = plainPage(view, id);
    for (int round = -1; round < rounds; ++round) {
        const Quiet quiet;
        const double first = microseconds([&] {
            view.buttonClicked(id);
            unit.screen().repaint();
            view.buttonClicked(back);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            unit.screen().repaint();
        });
        const double second = microseconds([&] {
            screen.open(twin);
            screen.leavePage();
        });
        if (round >= 0) { // The first round only warms up.
            page.append(first);
            plain.append(second);
        }
    }
    printRow(id, page, QStringLiteral("us"));
    printRow(QStringLiteral("  of plain widgets"), plain, QStringLiteral("us"));
    printRatio(QStringLiteral("  ratio"), page, plain);
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ignoreMessages();

    TestUnit unit;
    FactoryDebugView view(unit.framework().layer(kvappframework::UI_HERARCHY_ACTIVITY));
    view.show();
    PlainScreen screen(view);
    for (const char *id : {"usbtest", "usbeye", "ncmtest", "keycolor", "vendordata", "als",
                           "pdtVer", "sysCtrl", "idPanel"}) {
        measure(unit, view, screen, QString::fromLatin1(id));
    }
    return 0;
}
