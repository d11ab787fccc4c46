#include "simulator/window/unitlights.h"

#include "simulator/window/backlight.h"
#include "simulator/window/bezel.h"
#include "simulator/window/hardkey.h"
#include "simulator/window/modeindicator.h"

#include "hardware/unit/unit.h"
#include "support/testmain.h"

#include <QTemporaryDir>
#include <QtTest>

#include <thread>

using hardware::Panel;
using namespace simulator;

class TestUnitLights : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void showsWhatTheUnitStartsWith();
    void panelLightsTheScreen();
    void keyLightShinesThroughTheHardKeys();
    void keysWithoutLightAreLegible();
    void modeFollowsTheLightSensor();
    void changesOnOtherThreadsAreShown();

private:
    hardware::Unit &unit() { return *m_unit; }
    QImage key() { return m_bezel->homeKey().grab().toImage(); }

    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<hardware::Unit> m_unit;
    QScopedPointer<Bezel> m_bezel;
    QScopedPointer<UnitLights> m_lights;
};

namespace
{

/// The colour message with these three.
QByteArray colorMessage(char red, char green, char blue)
{
    return QByteArray::fromHex("FF66061584FE") + red + green + blue + QByteArray::fromHex("FF");
}

/// Sums of an image's red, green and blue.
struct Sums
{
    qint64 red = 0;
    qint64 green = 0;
    qint64 blue = 0;
};

Sums sums(const QImage &image)
{
    Sums result;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            result.red += qRed(pixel);
            result.green += qGreen(pixel);
            result.blue += qBlue(pixel);
        }
    }
    return result;
}

} // namespace

void TestUnitLights::init()
{
    m_folder.reset(new QTemporaryDir);
    m_unit.reset(new hardware::Unit(m_folder->filePath(QStringLiteral("unit"))));
    QString error;
    QVERIFY2(m_unit->open(&error), qPrintable(error));
    m_bezel.reset(new Bezel);
    m_lights.reset(new UnitLights(*m_unit, *m_bezel));
    m_bezel->show();
}

void TestUnitLights::cleanup()
{
    m_lights.reset();
    m_bezel.reset();
    m_unit.reset();
}

void TestUnitLights::showsWhatTheUnitStartsWith()
{
    QVERIFY(!m_bezel->backlight().isVisible()); // Nothing to change at the neutral brightness.
    QVERIFY(!m_bezel->modeIndicator().isNight());
    unit().panel().setValue(Panel::Brightness, 0);
    unit().lightSensor().report(0);
    Bezel another;
    const UnitLights lights(unit(), another);
    another.show();
    QVERIFY(another.backlight().isVisible());
    QVERIFY(another.modeIndicator().isNight());
}

void TestUnitLights::panelLightsTheScreen()
{
    const auto light = [this] {
        const Sums all = sums(m_bezel->grab(m_bezel->screenRect()).toImage());
        return all.red + all.green + all.blue;
    };
    const qint64 normal = light();
    unit().panel().setValue(Panel::Brightness, 0);
    QVERIFY(light() < normal / 2);
    unit().panel().setValue(Panel::Brightness, 24);
    QVERIFY(light() > normal);
    unit().panel().setValue(Panel::Brightness, 12);
    QCOMPARE(light(), normal);
}

void TestUnitLights::keyLightShinesThroughTheHardKeys()
{
    unit().mcu().send(colorMessage(100, 0, 0));
    const Sums red = sums(key());
    unit().mcu().send(colorMessage(0, 100, 0));
    const Sums green = sums(key());
    unit().mcu().send(colorMessage(0, 0, 100));
    const Sums blue = sums(key());
    QVERIFY(red.red > green.red && red.red > blue.red);
    QVERIFY(green.green > red.green && green.green > blue.green);
    QVERIFY(blue.blue > red.blue && blue.blue > green.blue);
    QCOMPARE(m_bezel->factoryKey().grab().toImage().pixelColor(66, 5),
             m_bezel->homeKey().grab().toImage().pixelColor(66, 5));
}

void TestUnitLights::keysWithoutLightAreLegible()
{
    unit().mcu().send(colorMessage(0, 0, 0));
    const QImage dark = key();
    // The label is lighter than the key around it.
    int lightest = 0;
    for (int x = 40; x < 92; ++x) {
        lightest = qMax(lightest, qGray(dark.pixel(x, 28)));
    }
    QVERIFY(lightest > qGray(dark.pixel(20, 28)) + 25);
}

void TestUnitLights::modeFollowsTheLightSensor()
{
    unit().lightSensor().report(99);
    QVERIFY(m_bezel->modeIndicator().isNight());
    unit().lightSensor().report(301);
    QVERIFY(!m_bezel->modeIndicator().isNight());
}

void TestUnitLights::changesOnOtherThreadsAreShown()
{
    std::thread([this] {
        unit().lightSensor().report(0);
        unit().panel().setValue(Panel::Brightness, 3);
    }).join();
    QVERIFY(!m_bezel->modeIndicator().isNight());
    QTRY_VERIFY(m_bezel->modeIndicator().isNight());
    QVERIFY(m_bezel->backlight().isVisible());
}

FACTORY_TEST_MAIN(TestUnitLights)
#include "tst_unitlights.moc"
