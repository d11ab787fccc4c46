// What a finger feels on a list: a full repaint beside a memory copy of the same area, one scroll
// step of 7 pixels with its repaint beside a plain QListView with the same delegate and beside one
// under QScroller, and how many pixels the content lags behind the finger once it drags.

#include "customwidget/listview.h"
#include "customwidget/lvscrollbar.h"
#include "measurement.h"
#include "support/testunit.h"
#include "system/vendordatadelegate.h"

#include <QApplication>
#include <QScrollBar>
#include <QScroller>
#include <QScrollEvent>
#include <QStringListModel>
#include <QtTest>

#include <cstdio>
#include <cstring>

namespace
{

const QRect place(0, 66, 800, 414);
const int rows = 200;
const int rounds = 200;
const int step = 7;

/// Rows with a title under the role that the delegate reads.
class Rows : public QStringListModel
{
public:
    Rows()
    {
        QStringList titles;
        for (int row = 0; row < rows; ++row) {
            titles.append(QStringLiteral("Row %1").arg(row));
        }
        setStringList(titles);
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        return QStringListModel::data(index,
                                      role == Qt::UserRole + 2 ? int(Qt::DisplayRole) : role);
    }
};

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

/// One step down, and back to the top before the end.
double scrollStep(QWidget &screen, QListView &list)
{
    QScrollBar *bar = list.verticalScrollBar();
    if (bar->value() + step > bar->maximum()) {
        bar->setValue(0);
        paintNow(screen);
    }
    return microseconds([&] {
        bar->setValue(bar->value() + step);
        paintNow(screen);
    });
}

/// The same step, as QScroller makes it.
double scrollerStep(QWidget &screen, QListView &list)
{
    QScrollBar *bar = list.verticalScrollBar();
    return microseconds([&] {
        QScrollEvent scroll(QPointF(0, bar->value() + step), QPointF(),
                            QScrollEvent::ScrollUpdated);
        QCoreApplication::sendEvent(list.viewport(), &scroll);
        paintNow(screen);
    });
}

void measureRepaint(QWidget &screen, QListView &list, const char *what)
{
    QVector<double> repaint;
    QVector<double> copy;
    QImage from(place.size(), QImage::Format_RGB32);
    QImage to(place.size(), QImage::Format_RGB32);
    from.fill(Qt::darkBlue); // Else all of it would be the one page of zeros that the host has.
    for (int round = -1; round < rounds; ++round) {
        const double first = microseconds([&] {
            list.viewport()->update();
            paintNow(screen);
        });
        const double second =
            microseconds([&] { std::memcpy(to.bits(), from.constBits(), from.sizeInBytes()); });
        if (round >= 0) { // The first round only warms up.
            repaint.append(first);
            copy.append(second);
        }
    }
    printRow(QString::fromLatin1(what), repaint, QStringLiteral("us"));
    printRow(QStringLiteral("  memory copy of 800 x 414"), copy, QStringLiteral("us"));
    printRatio(QStringLiteral("  ratio"), repaint, copy);
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
    for (int y = 371; y > 20; y -= step) {
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
    Rows model;
    VendorDataDelegate delegate(nullptr);
    ListView list(&screen);
    QListView plain(&screen);
    QListView scrolled(&screen);
    list.setRowsOpaque(true); // As the pages have it.
    const QList<QListView *> all = {&list, &plain, &scrolled};
    for (QListView *each : all) {
        setUp(*each, model, delegate);
    }
    QScroller::grabGesture(scrolled.viewport(), QScroller::LeftMouseButtonGesture);

    showAlone(screen, list, all);
    measureRepaint(screen, list, "ListView, wide bar: full repaint");
    list.setCustomScrollBarVisible(false);
    measureRepaint(screen, list, "ListView without its wide bar: full repaint");
    list.setCustomScrollBarVisible(true);
    showAlone(screen, plain, all);
    measureRepaint(screen, plain, "plain QListView: full repaint");

    QVector<double> ours;
    QVector<double> theirs;
    QVector<double> scroller;
    for (int round = -1; round < rounds; ++round) {
        showAlone(screen, list, all);
        const double first = scrollStep(screen, list);
        showAlone(screen, plain, all);
        const double second = scrollStep(screen, plain);
        showAlone(screen, scrolled, all);
        const double third = scrollerStep(screen, scrolled);
        if (round >= 0) {
            ours.append(first);
            theirs.append(second);
            scroller.append(third);
        }
    }
    printRow(QStringLiteral("ListView: 7 pixels"), ours, QStringLiteral("us"));
    printRow(QStringLiteral("plain QListView: 7 pixels"), theirs, QStringLiteral("us"));
    printRow(QStringLiteral("QListView under QScroller: 7 pixels"), scroller, QStringLiteral("us"));
    printRatio(QStringLiteral("  ratio to plain"), ours, theirs);
    printRatio(QStringLiteral("  ratio to QScroller"), ours, scroller);

    showAlone(screen, list, all);
    std::printf("ListView: lags %d pixels behind the finger\n", lag(unit, list));
    return 0;
}
