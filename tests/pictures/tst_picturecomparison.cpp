#include "picturecomparison.h"

#include "support/testmain.h"

#include <QDir>
#include <QtTest>

/// The comparer must fail, and show why.
class TestPictureComparison : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void samePictureIsFine();
    void oneStepInOneChannelIsADifference_data();
    void oneStepInOneChannelIsADifference();
    void differenceIsShown();
    void otherSize();
    void missingReference();
    void unreadablePicture();
    void nameThatComesTwice();
    void referencesThatNobodyMakes();
    void formerDifferencesAreGone();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }

    /// Writes a picture below one of the folders "references", "others" and "made".
    QString write(const QString &name, const QImage &image) const
    {
        const QString file = path(name);
        const bool isWritten = QDir().mkpath(QFileInfo(file).path()) && image.save(file);
        return isWritten ? file : QString();
    }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<PictureComparison> m_comparison;
};

namespace
{

QImage grey(int width = 8, int height = 6)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(qRgb(100, 100, 100));
    return image;
}

} // namespace

void TestPictureComparison::init()
{
    m_folder.reset(new QTemporaryDir);
    m_comparison.reset(
        new PictureComparison({path("references"), path("others")}, path("differences")));
}

void TestPictureComparison::samePictureIsFine()
{
    write("references/one.png", grey());
    // Of another format, and in the other folder.
    write("others/two.png", grey().convertToFormat(QImage::Format_Indexed8));
    QCOMPARE(m_comparison->complaint(write("made/one.png", grey())), QString());
    QCOMPARE(m_comparison->complaint(write("made/two.png", grey())), QString());
    QCOMPARE(m_comparison->unmade(), QStringList());
    QVERIFY(QDir(path("differences")).isEmpty());
}

void TestPictureComparison::oneStepInOneChannelIsADifference_data()
{
    QTest::addColumn<QRgb>("color");
    QTest::newRow("red") << qRgb(101, 100, 100);
    QTest::newRow("green") << qRgb(100, 99, 100);
    QTest::newRow("blue") << qRgb(100, 100, 101);
}

void TestPictureComparison::oneStepInOneChannelIsADifference()
{
    QFETCH(QRgb, color);
    QImage got = grey();
    got.setPixel(7, 5, color);
    write("references/one.png", grey());
    QCOMPARE(m_comparison->complaint(write("made/one.png", got)),
             QString("one.png differs in 1 pixels from (7, 5) to (7, 5), by up to 1"));
}

void TestPictureComparison::differenceIsShown()
{
    QImage got = grey();
    got.setPixel(1, 2, qRgb(100, 0, 100));
    got.setPixel(3, 4, qRgb(130, 100, 100));
    write("references/one.png", grey());
    QCOMPARE(m_comparison->complaint(write("made/one.png", got)),
             QString("one.png differs in 2 pixels from (1, 2) to (3, 4), by up to 100"));
    QCOMPARE(QImage(path("differences/one-got.png")).convertToFormat(QImage::Format_RGB32), got);
    const QImage shown(path("differences/one-difference.png"));
    QCOMPARE(shown.pixel(1, 2), qRgb(255, 0, 0));
    QCOMPARE(shown.pixel(3, 4), qRgb(255, 0, 0));
    QCOMPARE(shown.pixel(0, 0), qRgb(33, 33, 33));
    // A reference of that name is there all the same.
    QCOMPARE(m_comparison->unmade(), QStringList());
}

void TestPictureComparison::otherSize()
{
    write("references/one.png", grey());
    QCOMPARE(m_comparison->complaint(write("made/one.png", grey(8, 7))),
             QString("one.png is of 8 x 7 pixels, its reference of 8 x 6"));
    QVERIFY(QFileInfo::exists(path("differences/one-got.png")));
}

void TestPictureComparison::missingReference()
{
    QCOMPARE(m_comparison->complaint(write("made/one.png", grey())),
             QString("one.png has no reference"));
    QVERIFY(QFileInfo::exists(path("differences/one-got.png")));
}

void TestPictureComparison::unreadablePicture()
{
    write("references/one.png", grey());
    QCOMPARE(m_comparison->complaint(path("made/one.png")), QString("one.png cannot be read"));
}

void TestPictureComparison::nameThatComesTwice()
{
    write("references/one.png", grey());
    const QString file = write("made/one.png", grey());
    QCOMPARE(m_comparison->complaint(file), QString());
    QCOMPARE(m_comparison->complaint(file), QString("two pictures are called one.png"));
}

void TestPictureComparison::referencesThatNobodyMakes()
{
    write("references/one.png", grey());
    write("references/two.png", grey());
    write("others/three.png", grey());
    m_comparison->complaint(write("made/one.png", grey()));
    QCOMPARE(m_comparison->unmade(), QStringList({"two.png", "three.png"}));
    QFile list(path("differences/unmade"));
    QVERIFY(list.open(QIODevice::ReadOnly));
    QCOMPARE(list.readAll(), QByteArray("two.png\nthree.png\n"));
}

void TestPictureComparison::formerDifferencesAreGone()
{
    m_comparison->complaint(write("made/one.png", grey()));
    QVERIFY(!QDir(path("differences")).isEmpty());
    const PictureComparison next({path("references")}, path("differences"));
    QVERIFY(QDir(path("differences")).isEmpty());
}

FACTORY_TEST_MAIN(TestPictureComparison)
#include "tst_picturecomparison.moc"
