// What a finger feels on a list: one scroll step with its repaint, five rows as the pages have
// them, beside a plain QListView with the same delegate, and how many pixels the content lags
// behind the finger once it drags.

#include "customwidget/listview.h"
#include "measurement.h"
#include "support/testunit.h"
#include "system/vendordatadelegate.h"
#include "system/vendordatamodel.h"

#include <QApplication>
#include <QScrollBar>
#include <QStringListModel>
#include <QtTest>

#include <cstdio>

namespace
{

constexpr QRect place(0, 66, 800, 414);
const int rounds = 400;
const int dragStep = 7;

void setUp(QListView &list, QAbstractItemModel &model, QAbstractItemDelegate &delegate)
{
    list.setGeometry(place);
    list.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list.setModel(&model);
    list.setItemDelegate(&delegate);
}

/// Paints what is to be painted now, in place of the event loop.
void paintNow(QWidget &screen)
{
    QEvent update(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(&screen, &update);
}

void showAlone(QWidget &screen, QListView &list, const QList<QListView *> &all)
{
    for (QListView *each : all) {
        each->setVisible(each == &list);
    }
    QCoreApplication::processEvents();
    paintNow(screen);
}

/// From one end to the other: five rows are one pixel higher than the list.
double scrollStep(QWidget &screen, QListView &list)
{
    QScrollBar *bar = list.verticalScrollBar();
    return microseconds([&] {
        bar->setValue(bar->value() == bar->minimum() ? bar->maximum() : bar->minimum());
        paintNow(screen);
    });
}

/// Largest distance between finger and content, in pixels, from the first step of a drag on.
int lag(TestUnit &unit, ListView &list)
{
    const auto at = [](int y) { return QPoint(300, place.top() + y); };
    QScrollBar *bar = list.verticalScrollBar();
    bar->setValue(1000);
    unit.press(at(380));
    unit.move(at(378)); // Becomes the point from which the first step is measured.
    int largest = 0;
    for (int y = 371; y > 20; y -= dragStep) {
        unit.move(at(y));
        largest = qMax(largest, qAbs(bar->value() - (1000 + 378 - y)));
    }
    unit.release(at(20));
    return largest;
}

} // namespace

int main(int argc, char *argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    ignoreMessages();

    TestUnit unit;
    QWidget &screen = unit.screen();
    VendorDataModel model(nullptr);
    VendorDataDelegate delegate(nullptr);
    ListView list(&screen);
    QListView seeThrough(&screen);
    QListView opaque(&screen);
    const QList<QListView *> all = {&list, &seeThrough, &opaque};
    for (QListView *each : all) {
        setUp(*each, model, delegate);
    }
    seeThrough.setStyleSheet(list.styleSheet());

    QVector<double> steps[3];
    for (int round = -1; round < rounds; ++round) {
        for (int index = 0; index < all.size(); ++index) {
            showAlone(screen, *all.at(index), all);
            const double step = scrollStep(screen, *all.at(index));
            if (round >= 0) { // The first round only warms up.
                steps[index].append(step);
            }
        }
    }
    printRow(QStringLiteral("ListView: one step"), steps[0], QStringLiteral("us"));
    printRow(QStringLiteral("QListView, as see-through"), steps[1], QStringLiteral("us"));
    printRow(QStringLiteral("QListView, opaque"), steps[2], QStringLiteral("us"));
    printRatio(QStringLiteral("  ratio to the see-through one"), steps[0], steps[1]);
    printRatio(QStringLiteral("  ratio to the opaque one"), steps[0], steps[2]);

    QStringListModel longModel(QVector<QString>(200).toList());
    list.setModel(&longModel);
    showAlone(screen, list, all);
    std::printf("ListView: lags %d pixels behind the finger\n", lag(unit, list));
    return 0;
}
