#include "hardware/light/panel.h"

#include "support/openunit.h"
#include "support/testmain.h"

#include <QSignalSpy>
#include <QtTest>

using hardware::Panel;

class tst_Panel : public QObject
{
    Q_OBJECT

private slots:
    void aNewUnitHasANeutralPicture();
    void changesAreJournalledAndTold();
    void theSaturationIsJournalledExactly();
    void anyValueIsTaken();
    void aRestartTakesThePictureFromTheVendorData();
    void aRebootTakesThePictureFromTheVendorData();
    void anItemWithoutAPlaceStartsNeutral();
};

namespace
{

/// 32 bits, lowest byte first.
QByteArray record(int value)
{
    QByteArray bytes;
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.append(char((quint32(value) >> shift) & 0xFF));
    }
    return bytes;
}

} // namespace

void tst_Panel::aNewUnitHasANeutralPicture()
{
    OpenUnit unit;
    QCOMPARE(unit->panel().description(),
             (QStringList{QStringLiteral("brightness 12"), QStringLiteral("contrast 12"),
                          QStringLiteral("hue 180"), QStringLiteral("saturation 1")}));
}

void tst_Panel::changesAreJournalledAndTold()
{
    OpenUnit unit;
    QSignalSpy changed(&unit->panel(), &Panel::pictureChanged);
    unit->panel().setValue(Panel::Brightness, 3);
    unit->panel().setValue(Panel::Contrast, 4);
    unit->panel().setValue(Panel::Hue, 5);
    unit->panel().setSaturation(0.5);
    QCOMPARE(unit->journal().lines(QStringLiteral("/^panel/")),
             (QStringList{QStringLiteral("panel brightness 3"), QStringLiteral("panel contrast 4"),
                          QStringLiteral("panel hue 5"), QStringLiteral("panel saturation 0.5")}));
    QCOMPARE(changed.count(), 4);
    QCOMPARE(unit->panel().value(Panel::Contrast), 4);
    QCOMPARE(unit->panel().saturation(), 0.5);
}

void tst_Panel::theSaturationIsJournalledExactly()
{
    OpenUnit unit;
    const double value = double(0.99f); // 0.9900000095367431640625
    unit->panel().setSaturation(value);
    const QString line = unit->journal().lines(QStringLiteral("panel saturation")).value(0);
    QCOMPARE(line, QStringLiteral("panel saturation 0.99000000953674316"));
    QVERIFY(line.midRef(line.lastIndexOf(' ')).toDouble() == value);
}

void tst_Panel::anyValueIsTaken()
{
    OpenUnit unit;
    for (const int value : {-1, 25, 2147483647}) {
        unit->panel().setValue(Panel::Brightness, value);
        QCOMPARE(unit->panel().value(Panel::Brightness), value);
    }
}

void tst_Panel::aRestartTakesThePictureFromTheVendorData()
{
    QTemporaryDir folder;
    QString error;
    {
        hardware::Unit unit(folder.filePath(QStringLiteral("unit")));
        QVERIFY2(unit.open(&error), qPrintable(error));
        // The places that "vendor.ini" gives.
        QVERIFY(unit.vendorData().write(256, record(7)));
        QVERIFY(unit.vendorData().write(268, record(8)));
        QVERIFY(unit.vendorData().write(260, record(359)));
        QVERIFY(unit.vendorData().write(264, record(157)));
    }
    hardware::Unit unit(folder.filePath(QStringLiteral("unit")));
    QVERIFY2(unit.open(&error), qPrintable(error));
    QCOMPARE(unit.panel().value(Panel::Brightness), 7);
    QCOMPARE(unit.panel().value(Panel::Contrast), 8);
    QCOMPARE(unit.panel().value(Panel::Hue), 359);
    QCOMPARE(unit.panel().saturation(), 1.57);
}

void tst_Panel::aRebootTakesThePictureFromTheVendorData()
{
    OpenUnit unit;
    QVERIFY(unit->vendorData().write(256, record(20)));
    unit->panel().setValue(Panel::Brightness, 3); // Applied, but not kept.
    QSignalSpy changed(&unit->panel(), &Panel::pictureChanged);
    unit->mcu().reboot();
    QCOMPARE(unit->panel().value(Panel::Brightness), 20);
    QCOMPARE(changed.count(), 1);
}

void tst_Panel::anItemWithoutAPlaceStartsNeutral()
{
    QTemporaryDir folder;
    QString error;
    const QString root = folder.filePath(QStringLiteral("unit"));
    writeFile(root + QStringLiteral("/vendor.ini"),
              "[panelHue]\nposition = 3\noffset = 0\nlength = 4\ninitial = -70000\n");
    hardware::Unit unit(root);
    QVERIFY2(unit.open(&error), qPrintable(error));
    QCOMPARE(unit.panel().value(Panel::Brightness), 12);
    QCOMPARE(unit.panel().value(Panel::Hue), -70000);
    QCOMPARE(unit.panel().saturation(), 1.0);
}

FACTORY_TEST_GUILESS_MAIN(tst_Panel)
#include "tst_panel.moc"
