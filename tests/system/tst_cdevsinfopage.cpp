#include "system/cdevsinfopage.h"

#include "pagerect.h"

#include "factorydebug/factorydebugview.h"
#include "kvwidget/kvdislabel.h"
#include "support/testmain.h"
#include "support/testunit.h"

#include <QFontInfo>
#include <QLabel>
#include <QtTest>

#include <limits>

class TestCDevsInfoPage : public QObject
{
    Q_OBJECT

private slots:
    void endsWithTheFormsSize();
    void sensorIdentifier_data();
    void sensorIdentifier();
    void emptyVersionLeavesThePrefix();
    void onlyTheBluetoothRowShrinks_data();
    void onlyTheBluetoothRowShrinks();
    void reopeningReadsAfresh();
    void openPageKeepsItsValues();
};

namespace
{

struct VersionsPage
{
    VersionsPage() { open(); }

    void open()
    {
        page.reset();
        page.reset(new CDevsInfoPage(pageRect, nullptr));
    }

    void set(const char *name, const QString &value)
    {
        QString error;
        QVERIFY2(unit.unit().versions().setValue(QString::fromLatin1(name), value, &error),
                 qPrintable(error));
    }

    QLabel *label(const char *name) const
    {
        return page->findChild<QLabel *>(QString::fromLatin1(name));
    }

    TestUnit unit;
    QScopedPointer<CDevsInfoPage> page;
};

/// How wide the label's text comes out.
int textWidth(const QLabel *label, const QFont &font)
{
    return QFontMetrics(font).horizontalAdvance(label->text());
}

} // namespace

void TestCDevsInfoPage::endsWithTheFormsSize()
{
    const VersionsPage shown;
    QCOMPARE(shown.page->geometry(), QRect(0, 66, 800, 422));
}

void TestCDevsInfoPage::sensorIdentifier_data()
{
    QTest::addColumn<int>("identifier");
    QTest::addColumn<QString>("line");
    QTest::newRow("5") << 5 << "ALS Sensor ID: 0X05";
    QTest::newRow("171") << 171 << "ALS Sensor ID: 0XAB";
    QTest::newRow("0") << 0 << "ALS Sensor ID: 0X00";
    QTest::newRow("256") << 256 << "ALS Sensor ID: 0X100";
    // Two's complement of 32 bits.
    QTest::newRow("-1") << -1 << "ALS Sensor ID: 0XFFFFFFFF";
    QTest::newRow("largest") << std::numeric_limits<int>::max() << "ALS Sensor ID: 0X7FFFFFFF";
    QTest::newRow("smallest") << std::numeric_limits<int>::min() << "ALS Sensor ID: 0X80000000";
}

void TestCDevsInfoPage::sensorIdentifier()
{
    QFETCH(int, identifier);
    QFETCH(QString, line);
    VersionsPage shown;
    shown.set("alsProduct", QString::number(identifier));
    shown.open();
    QCOMPARE(shown.label("label_als")->text(), line);
}

void TestCDevsInfoPage::emptyVersionLeavesThePrefix()
{
    VersionsPage shown;
    shown.set("gps", QString());
    shown.set("bluetooth", QString());
    shown.open();
    QCOMPARE(shown.label("label_gps")->text(), QStringLiteral("GPS Version: "));
    QCOMPARE(shown.label("label_bt")->text(), QStringLiteral("BLUETOOTH Version: "));
}

void TestCDevsInfoPage::onlyTheBluetoothRowShrinks_data()
{
    QTest::addColumn<int>("length");
    QTest::newRow("a little too long at 30 points") << 50;
    QTest::newRow("twice the row") << 75;
    QTest::newRow("far too long") << 2000;
}

void TestCDevsInfoPage::onlyTheBluetoothRowShrinks()
{
    QFETCH(int, length);
    VersionsPage shown;
    const QFont rowFont = shown.label("label_gps")->font();
    const QString version = QString(length, QLatin1Char('8'));
    shown.set("gps", version);
    shown.set("bluetooth", version);
    shown.open();

    const QLabel *gps = shown.label("label_gps");
    QCOMPARE(gps->text(), QStringLiteral("GPS Version: ") + version);
    QCOMPARE(gps->font(), rowFont);
    QVERIFY(textWidth(gps, gps->font()) > gps->width());
    QCOMPARE(gps->geometry(), QRect(34, 0, 766, 83));

    const auto *bluetooth = qobject_cast<const KvDisLabel *>(shown.label("label_bt"));
    QVERIFY(QFontInfo(bluetooth->shownFont()).pixelSize() < QFontInfo(rowFont).pixelSize());
    QVERIFY(textWidth(bluetooth, bluetooth->shownFont()) <= bluetooth->width() || length == 2000);
}

void TestCDevsInfoPage::reopeningReadsAfresh()
{
    TestUnit unit;
    FactoryDebugView view(unit.framework().layer(kvappframework::UI_HERARCHY_ACTIVITY));
    view.show();
    view.buttonClicked(QStringLiteral("pdtVer"));
    QCOMPARE(view.findChild<QLabel *>(QStringLiteral("label_bt"))->text(),
             QStringLiteral("BLUETOOTH Version: BT 5.0.17"));
    view.buttonClicked(QStringLiteral("return"));

    QString error;
    unit.unit().versions().setValue(QStringLiteral("bluetooth"), QStringLiteral("BT 5.2.0"),
                                    &error);
    unit.unit().versions().setValue(QStringLiteral("alsProduct"), QStringLiteral("5"), &error);
    view.buttonClicked(QStringLiteral("pdtVer"));

    QCOMPARE(view.findChild<QLabel *>(QStringLiteral("label_bt"))->text(),
             QStringLiteral("BLUETOOTH Version: BT 5.2.0"));
    QCOMPARE(view.findChild<QLabel *>(QStringLiteral("label_als"))->text(),
             QStringLiteral("ALS Sensor ID: 0X05"));
}

void TestCDevsInfoPage::openPageKeepsItsValues()
{
    VersionsPage shown;
    shown.set("gps", QStringLiteral("2.0"));
    QCoreApplication::processEvents();
    QCOMPARE(shown.label("label_gps")->text(), QStringLiteral("GPS Version: GNSS 1.04.2"));
}

FACTORY_TEST_MAIN(TestCDevsInfoPage)
#include "tst_cdevsinfopage.moc"
