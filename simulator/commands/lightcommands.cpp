#include "allcommands.h"

#include "arguments.h"
#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

#include <cmath>
#include <limits>

namespace simulator
{

namespace
{

const int maxReadingsPerSecond = 1000;
const int defaultDaySeconds = 240;
const int maxDaySeconds = 86400;

using hardware::Panel;

ConsoleResult als(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    hardware::LightSensor &sensor = simulator.unit().lightSensor();
    if (arguments.isEmpty()) {
        const std::optional<int> reading = sensor.reading();
        const QString shown = reading ? QString::number(*reading) : QStringLiteral("none");
        return ConsoleResult::done(QStringList(QStringLiteral("reading ") + shown)
                                   + simulator.unit().dayNight().description());
    }
    int reading = 0;
    QString error;
    if (!readNumber(arguments.first(), QStringLiteral("READING"), std::numeric_limits<int>::min(),
                    std::numeric_limits<int>::max(), &reading, &error)) {
        return ConsoleResult::failed(error);
    }
    sensor.report(reading);
    return ConsoleResult::done();
}

ConsoleResult setThreshold(hardware::DayNight &dayNight, hardware::DayNight::Mode mode,
                           const QString &value)
{
    int threshold = 0;
    QString error;
    if (!readNumber(value, QStringLiteral("VALUE"), std::numeric_limits<int>::min(),
                    std::numeric_limits<int>::max(), &threshold, &error)) {
        return ConsoleResult::failed(error);
    }
    dayNight.setThreshold(mode, threshold);
    return ConsoleResult::done();
}

ConsoleResult dayNight(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    using hardware::DayNight;
    DayNight &dayNight = simulator.unit().dayNight();
    if (arguments.isEmpty()) {
        return ConsoleResult::done(dayNight.description());
    }
    const QString &item = arguments.first();
    const QString value = arguments.value(1);
    if (item == QLatin1String("day") || item == QLatin1String("night")) {
        return setThreshold(dayNight,
                            item == QLatin1String("day") ? DayNight::Day : DayNight::Night, value);
    }
    const int isOn = QStringList({QStringLiteral("off"), QStringLiteral("on")}).indexOf(value);
    if (item != QLatin1String("automatic") || isOn < 0) {
        return ConsoleResult::failed(QStringLiteral("usage: daynight, daynight day VALUE, daynight "
                                                    "night VALUE, daynight automatic on|off"));
    }
    dayNight.setAutomatic(isOn == 1);
    return ConsoleResult::done();
}

ConsoleResult alsCurve(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    int perSecond = 0;
    int daySeconds = 0;
    QString error;
    if (!readNumber(arguments.first(), QStringLiteral("RATE"), 0, maxReadingsPerSecond, &perSecond,
                    &error)
        || !readNumber(arguments.value(1, QString::number(defaultDaySeconds)),
                       QStringLiteral("SECONDS"), 1, maxDaySeconds, &daySeconds, &error)) {
        return ConsoleResult::failed(error);
    }
    if (perSecond == 0) {
        simulator.unit().lightSensor().stopCurve();
    } else {
        simulator.unit().lightSensor().startCurve(perSecond, daySeconds);
    }
    return ConsoleResult::done();
}

ConsoleResult setSaturation(Panel &panel, const QString &value, bool isWrong)
{
    bool isNumber = false;
    const double saturation = value.toDouble(&isNumber);
    if (!isNumber || !std::isfinite(saturation)) {
        return ConsoleResult::failed(
            QStringLiteral("VALUE is a number for the saturation, not \"%1\"").arg(value));
    }
    if (!isWrong && (saturation < 0 || saturation > Panel::maxSaturation)) {
        return ConsoleResult::failed(
            QStringLiteral("VALUE is a number from 0 to %1, not \"%2\"; \"wrong\" behind it "
                           "allows others")
                .arg(Panel::maxSaturation)
                .arg(value));
    }
    panel.setSaturation(saturation);
    return ConsoleResult::done();
}

ConsoleResult setPanel(Panel &panel, const QString &item, const QString &value, bool isWrong)
{
    if (item == QLatin1String("saturation")) {
        return setSaturation(panel, value, isWrong);
    }
    const int index = QStringList({QStringLiteral("brightness"), QStringLiteral("contrast"),
                                   QStringLiteral("hue")})
                          .indexOf(item);
    if (index < 0) {
        return ConsoleResult::failed(
            QStringLiteral("ITEM is brightness, contrast, hue or saturation, not \"%1\"")
                .arg(item));
    }
    const Panel::Item which = Panel::Item(index);
    int number = 0;
    QString error;
    if (!readNumberOrWrong(value, QStringLiteral("VALUE"), 0, Panel::largest[which], isWrong,
                           &number, &error)) {
        return ConsoleResult::failed(error);
    }
    panel.setValue(which, number);
    return ConsoleResult::done();
}

ConsoleResult panel(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    Panel &panel = simulator.unit().panel();
    if (arguments.isEmpty()) {
        return ConsoleResult::done(panel.description());
    }
    if (arguments.size() == 1) {
        return ConsoleResult::failed(QStringLiteral("an ITEM needs a VALUE"));
    }
    bool isWrong = false;
    QString error;
    return readWrong(arguments.value(2), &isWrong, &error)
        ? setPanel(panel, arguments.at(0), arguments.at(1), isWrong)
        : ConsoleResult::failed(error);
}

ConsoleResult keyLight(Simulator &simulator, const QStringList &, ConsoleSession &)
{
    const hardware::KeyColor color = simulator.unit().keyLight().color();
    return ConsoleResult::done({QStringLiteral("red %1").arg(color.red),
                                QStringLiteral("green %1").arg(color.green),
                                QStringLiteral("blue %1").arg(color.blue)});
}

} // namespace

void addLightCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(console, simulator,
                {
                    {"als", place, Effect::World, als},
                    {"als-curve", place, Effect::World, alsCurve},
                    {"daynight", place, Effect::World, dayNight},
                    {"panel", place, Effect::World, panel},
                    {"keylight", place, Effect::None, keyLight},
                });
}

} // namespace simulator
