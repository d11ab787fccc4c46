#include "panel/liveplot.h"

#include "support/testmain.h"

#include <QtTest>

using panel::LivePlot;

class TestLivePlot : public QObject
{
    Q_OBJECT

private slots:
    void holdsWhatWasAdded();
    void showsACurveAndItsMarks();
};

namespace
{

int pixelsLike(const QImage &image, const QColor &color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            count += qAbs(pixel.red() - color.red()) < 40
                && qAbs(pixel.green() - color.green()) < 40
                && qAbs(pixel.blue() - color.blue()) < 40;
        }
    }
    return count;
}

} // namespace

void TestLivePlot::holdsWhatWasAdded()
{
    LivePlot plot("unit");
    plot.addCurve("a", Qt::red);
    plot.addCurve("b", Qt::green);
    plot.add("a", 3);
    plot.add("a", 5);
    plot.add("b", 7);
    QCOMPARE(plot.points("a").size(), 2);
    QCOMPARE(plot.points("a").constLast().y(), 5.0);
    QCOMPARE(plot.points("b").constFirst().y(), 7.0);
    const QVector<QPointF> points = plot.points("a");
    for (const QPointF &point : points) {
        QVERIFY2(point.x() <= 0 && point.x() > -LivePlot::seconds,
                 qPrintable(QString::number(point.x())));
    }
    plot.clear();
    QVERIFY(plot.points("a").isEmpty());
    QVERIFY(plot.points("b").isEmpty());
}

void TestLivePlot::showsACurveAndItsMarks()
{
    LivePlot plot("unit");
    plot.addCurve("a", Qt::red);
    plot.resize(500, 300);
    plot.show();
    QVERIFY(QTest::qWaitForWindowExposed(&plot));
    plot.add("a", 100);
    QCOMPARE(pixelsLike(plot.grab().toImage(), Qt::green), 0);
    plot.setMark("limit", 50, Qt::green);
    QVERIFY(pixelsLike(plot.grab().toImage(), Qt::green) > 100);
    const int before = pixelsLike(plot.grab().toImage(), Qt::red);
    QTest::qWait(300);
    plot.add("a", 0);
    QVERIFY(pixelsLike(plot.grab().toImage(), Qt::red) > before);
}

FACTORY_TEST_MAIN(TestLivePlot)
#include "tst_liveplot.moc"
