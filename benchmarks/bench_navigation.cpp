// One way from the menu to a page and back, painted each time, for every hosted page; beside hiding
// and showing an empty widget of the page's size.

#include "factorydebug/factorydebugview.h"
#include "measurement.h"
#include "support/testunit.h"

#include <QApplication>

namespace
{

const int rounds = 50;

void measure(TestUnit &unit, FactoryDebugView &view, QWidget &empty, const QString &id)
{
    QVector<double> page;
    QVector<double> plain;
    for (int round = -1; round < rounds; ++round) {
        const Quiet quiet;
        const double first = microseconds([&] {
            view.buttonClicked(id);
            unit.screen().repaint();
            view.buttonClicked(QStringLiteral("return"));
            unit.screen().repaint();
        });
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const double second = microseconds([&] {
            empty.show();
            unit.screen().repaint();
            empty.hide();
            unit.screen().repaint();
        });
        if (round >= 0) { // The first round only warms up.
            page.append(first);
            plain.append(second);
        }
    }
    printRow(id, page, QStringLiteral("us"));
    printRow(QStringLiteral("  empty widget"), plain, QStringLiteral("us"));
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
    QWidget empty(&view);
    empty.setGeometry(0, 66, 800, 412);
    empty.setAutoFillBackground(true);
    for (const char *id : {"usbtest", "usbeye", "ncmtest", "keycolor", "vendordata", "als",
                           "pdtVer", "sysCtrl", "idPanel"}) {
        measure(unit, view, empty, QString::fromLatin1(id));
    }
    return 0;
}
