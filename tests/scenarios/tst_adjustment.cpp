#include "headunitrun.h"

#include "saturationwalk.h"

#include "support/firstdifference.h"
#include "support/testmain.h"

#include <QImage>
#include <QRegularExpression>
#include <QtTest>

/// Sessions on the panel, key light and light sensor pages.
class TestAdjustment : public QObject
{
    Q_OBJECT

private slots:
    void panelIsSteppedToItsBoundsAndKept();
    void panelWhileTheVendorDataRefuses();
    void keyLightIsSteppedToItsBounds();
    void lightSensorThresholdsNearTheirUpperEnds();
    void lightSensorThresholdsNearTheirLowerEnds();
    void lightSensorFollowsADay();
};

namespace
{

/// The journal's lines from these sources ("log|panel"), without their times.
QStringList journal(const HeadunitRun &run, const QString &sources)
{
    const QRegularExpression wanted(QStringLiteral("^[0-9.]+ #\\d+ ((%1) .*)$").arg(sources));
    QStringList found;
    const QStringList lines =
        QString::fromUtf8(run.read(QStringLiteral("/journal.log"))).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const QRegularExpressionMatch match = wanted.match(line);
        if (match.hasMatch()) {
            found.append(match.captured(1));
        }
    }
    return found;
}

QString logged(const char *page, const QString &id)
{
    return QStringLiteral("log INFO %1 clickedAdjustItem %2\\n").arg(QLatin1String(page), id);
}

/// A record of the vendor data, at the offset that a new unit's table gives.
QString written(int offset, int value)
{
    QByteArray bytes;
    for (int shift = 0; shift < 32; shift += 8) {
        bytes.append(char((quint32(value) >> shift) & 0xFF));
    }
    return QStringLiteral("vendor write %1 ").arg(offset)
        + QString::fromLatin1(bytes.toHex(' ').toUpper());
}

/// One of the panel's whole-number items, as it is pressed.
struct PanelItem
{
    QString name;
    QString ids;
    int offset;
    int max;
    int value;

    QStringList press(int times, bool up)
    {
        QStringList lines;
        for (int press = 0; press < times; ++press) {
            value = up ? qMin(value + 1, max) : qMax(value - 1, 0);
            lines += logged("CSetupPanelForm", ids + QLatin1String(up ? "inc" : "dec"));
            lines += QStringLiteral("panel %1 %2").arg(name).arg(value);
            lines += written(offset, value);
        }
        return lines;
    }
};

QStringList pressSaturation(const QList<SaturationStep> &steps, bool up)
{
    QStringList lines;
    for (const SaturationStep &step : steps) {
        lines += logged("CSetupPanelForm", QLatin1String(up ? "satinc" : "satdec"));
        lines += QStringLiteral("panel saturation ") + QString::number(step.value, 'g', 17);
        lines += written(264, step.stored);
    }
    return lines;
}

/// What all presses of the panel scenario have to bring about.
QStringList panelSession()
{
    PanelItem brightness{QStringLiteral("brightness"), QStringLiteral("bri"), 256, 24, 12};
    PanelItem contrast{QStringLiteral("contrast"), QStringLiteral("con"), 268, 24, 12};
    PanelItem hue{QStringLiteral("hue"), QStringLiteral("hue"), 260, 360, 180};
    const QList<SaturationStep> walk = saturationWalk({-101, 205, -42});
    QStringList lines{written(256, 12), written(268, 12), written(260, 180), written(264, 100)};
    // One call a statement: each starts where the one before has ended.
    lines += brightness.press(13, true);
    lines += brightness.press(25, false);
    lines += contrast.press(13, true);
    lines += contrast.press(25, false);
    lines += hue.press(181, true);
    lines += hue.press(361, false);
    lines += pressSaturation(walk.mid(1, 101), false);
    lines += pressSaturation(walk.mid(102, 205), true);
    lines += brightness.press(3, true);
    lines += contrast.press(21, true);
    lines += hue.press(359, true);
    lines += pressSaturation(walk.mid(307), false);
    return lines;
}

QString colorMessage(const int (&colors)[3])
{
    QByteArray bytes;
    for (const int color : colors) {
        bytes.append(char(color));
    }
    return QStringLiteral("mcu FF 66 06 15 84 FE %1 FF")
        .arg(QString::fromLatin1(bytes.toHex(' ').toUpper()));
}

/// What all presses of the key light scenario have to bring about, with both openings.
QStringList keyLightSession()
{
    const char *const ids[] = {"bri", "con", "hue"};
    int colors[3] = {50, 50, 50};
    const QString opening = colorMessage(colors);
    QStringList lines{opening, opening, opening};
    for (int index = 0; index < 3; ++index) {
        for (int press = 0; press < 51 + 101; ++press) {
            const bool up = press < 51;
            colors[index] = up ? qMin(colors[index] + 1, 100) : qMax(colors[index] - 1, 0);
            lines += logged("CSetupKeyLight",
                            QLatin1String(ids[index]) + QLatin1String(up ? "inc" : "dec"));
            lines += colorMessage(colors);
        }
    }
    return lines + QStringList{opening, opening, opening};
}

QStringList thresholds(const char *id, const char *mode, const QList<int> &values)
{
    QStringList lines;
    for (const int value : values) {
        lines += logged("CSetupALSTest", QLatin1String(id));
        lines += QStringLiteral("als %1 threshold %2").arg(QLatin1String(mode)).arg(value);
    }
    return lines;
}

QByteArray thresholdTable(int day, int night)
{
    return QStringLiteral("[daynight]\nday=%1\nnight=%2\nautomatic=true\n")
        .arg(day)
        .arg(night)
        .toLatin1();
}

double meanLight(const QImage &image)
{
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            sum += qGray(image.pixel(x, y));
        }
    }
    return sum / (double(image.width()) * image.height());
}

/// The screen in a picture of the whole window.
QImage screen(const QImage &window)
{
    return window.copy(40, 36, 800, 480);
}

} // namespace

void TestAdjustment::panelIsSteppedToItsBoundsAndKept()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("panel.txt"));
    const QStringList expected = panelSession();
    const QStringList lines = journal(run, QStringLiteral("log|panel|vendor"));
    QCOMPARE(firstDifference(lines, expected), QString());
    // What is shown as 1.57 is a little less, and kept without what is behind the second digit.
    QCOMPARE(lines.last(), written(264, 156));

    RUN_SCENARIO(run, QStringLiteral("panel-kept.txt"), 5.0);
    const auto picture = [&run](const char *name) {
        return QImage(run.pictures() + QLatin1Char('/') + QLatin1String(name));
    };
    const double normal = meanLight(picture("panel-opened.png"));
    QVERIFY(normal > 0);
    QVERIFY(meanLight(screen(picture("panel-dark.png"))) < 0.6 * normal);
    QVERIFY(meanLight(screen(picture("panel-bright.png"))) > 1.1 * normal);
}

void TestAdjustment::panelWhileTheVendorDataRefuses()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("panel-faults.txt"));
}

void TestAdjustment::keyLightIsSteppedToItsBounds()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("key-light.txt"));
    QCOMPARE(firstDifference(journal(run, QStringLiteral("log|mcu")), keyLightSession()),
             QString());

    // The hard keys shine in the colour, and are still legible without any.
    const auto picture = [&run](const char *name) {
        return QImage(run.pictures() + QLatin1Char('/') + QLatin1String(name))
            .copy(300, 540, 130, 60);
    };
    QVERIFY(picture("keylight-opened.png") != picture("keylight-green.png"));
    QVERIFY(picture("keylight-green.png") != picture("keylight-off.png"));
    QVERIFY(meanLight(picture("keylight-green.png")) > meanLight(picture("keylight-off.png")));
}

void TestAdjustment::lightSensorThresholdsNearTheirUpperEnds()
{
    HeadunitRun run;
    run.write(QStringLiteral("/daynight.ini"), thresholdTable(995, 990));
    RUN_SCENARIO(run, QStringLiteral("light-sensor-high.txt"));
    const QStringList expected = QStringList{QStringLiteral("als day threshold 995"),
                                             QStringLiteral("als night threshold 990")}
        + thresholds("coninc", "day", {996, 997, 998, 999, 1000, 1000})
        + thresholds("condec", "day", {999, 998, 997, 996, 995, 994, 993, 992, 991, 990, 990})
        + thresholds("hueinc", "night", {990, 990}) + thresholds("coninc", "day", {991, 992})
        + thresholds("hueinc", "night", {991, 992, 992});
    const QStringList lines = journal(run, QStringLiteral("log|als"));
    QCOMPARE(firstDifference(lines.mid(0, expected.size()), expected), QString());
}

void TestAdjustment::lightSensorThresholdsNearTheirLowerEnds()
{
    HeadunitRun run;
    run.write(QStringLiteral("/daynight.ini"), thresholdTable(8, 5));
    RUN_SCENARIO(run, QStringLiteral("light-sensor-low.txt"));
    const QStringList expected =
        QStringList{QStringLiteral("als day threshold 8"), QStringLiteral("als night threshold 5")}
        + thresholds("huedec", "night", {4, 3, 2, 1, 0, 0})
        + thresholds("hueinc", "night", {1, 2, 3, 4, 5, 6, 7, 8, 8})
        + thresholds("condec", "day", {8, 8})
        + thresholds("huedec", "night", {7, 6, 5, 4, 3, 2, 1, 0, 0})
        + thresholds("condec", "day", {7, 6, 5, 4, 3, 2, 1, 0, 0});
    QCOMPARE(firstDifference(journal(run, QStringLiteral("log|als")), expected), QString());
}

void TestAdjustment::lightSensorFollowsADay()
{
    HeadunitRun run;
    RUN_SCENARIO(run, QStringLiteral("light-sensor-curve.txt"));
}

FACTORY_TEST_GUILESS_MAIN(TestAdjustment)
#include "tst_adjustment.moc"
