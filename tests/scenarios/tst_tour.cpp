#include "headunitrun.h"

#include "support/testmain.h"

#include <QDir>
#include <QImage>
#include <QtTest>

/// The guided tour that a newcomer without a display is shown.
class TestTour : public QObject
{
    Q_OBJECT

private slots:
    void leavesItsPictures();
};

void TestTour::leavesItsPictures()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("tour.txt"));

    const QDir pictures(run.pictures(), QStringLiteral("tour-*.png"));
    const QStringList names = pictures.entryList();
    QVERIFY(names.size() >= 8);
    QImage former;
    for (const QString &name : names) {
        const QImage image(pictures.filePath(name));
        QVERIFY2(!image.isNull(), qPrintable(name));
        QVERIFY2(image.width() >= 800 && image.height() >= 480, qPrintable(name));
        // Each step looks different from the one before.
        QVERIFY2(image != former, qPrintable(name));
        former = image;
    }
}

FACTORY_TEST_GUILESS_MAIN(TestTour)
#include "tst_tour.moc"
