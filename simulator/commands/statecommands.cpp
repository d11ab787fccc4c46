#include "allcommands.h"

#include "commandtable.h"
#include "faultdevices.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace simulator
{

namespace
{

using hardware::DayNight;
using hardware::Panel;
using hardware::PhysicalMemory;
using hardware::StickTrait;
using hardware::Unit;

QJsonObject unit(Unit &unit)
{
    return {{"speed", unit.clock().factor()},
            {"openFiles", QJsonArray::fromStringList(unit.openFiles().paths())}};
}

QJsonObject panel(Unit &unit)
{
    const Panel &panel = unit.panel();
    return {{"brightness", panel.value(Panel::Brightness)},
            {"contrast", panel.value(Panel::Contrast)},
            {"hue", panel.value(Panel::Hue)},
            {"saturation", panel.saturation()}};
}

QJsonObject keyLight(Unit &unit)
{
    const hardware::KeyColor color = unit.keyLight().color();
    return {{"red", color.red}, {"green", color.green}, {"blue", color.blue}};
}

QJsonObject light(Unit &unit)
{
    const DayNight &dayNight = unit.dayNight();
    const std::optional<int> reading = unit.lightSensor().reading();
    return {{"reading", reading ? QJsonValue(*reading) : QJsonValue()},
            {"curve", unit.lightSensor().followsCurve()},
            {"dayThreshold", dayNight.threshold(DayNight::Day)},
            {"nightThreshold", dayNight.threshold(DayNight::Night)},
            {"automatic", dayNight.isAutomatic()},
            {"mode", dayNight.mode() == DayNight::Day ? "day" : "night"}};
}

/// Of a plugged stick, those that lie in no folder of it.
QJsonArray filesOn(Unit &unit, const hardware::StorageSlot &slot)
{
    QJsonArray files;
    const QDir stick(unit.folder().path(slot.mountRoot));
    const QFileInfoList all = stick.entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo &file : all) {
        files.append(QJsonObject({{"name", file.fileName()}, {"size", file.size()}}));
    }
    return files;
}

QJsonObject storage(Unit &unit)
{
    QJsonArray slotArray;
    const QStringList plugged = unit.storage().mountRoots();
    const QList<hardware::StorageSlot> table = unit.storage().slotTable();
    for (const hardware::StorageSlot &slot : table) {
        const auto is = [&](StickTrait trait) { return unit.storage().trait(slot.name, trait); };
        slotArray.append(QJsonObject({{"name", slot.name},
                                      {"mediaType", slot.mediaType},
                                      {"controller", slot.controllerId},
                                      {"mountRoot", slot.mountRoot},
                                      {"plugged", plugged.contains(slot.mountRoot)},
                                      {"files", filesOn(unit, slot)},
                                      {"full", is(StickTrait::Full) != 0},
                                      {"writeProtected", is(StickTrait::WriteProtected) != 0},
                                      {"bytesPerSecond", is(StickTrait::Slow)}}));
    }
    return {{"slots", slotArray}};
}

QJsonObject usb(Unit &unit)
{
    const hardware::UsbPorts &ports = unit.usbPorts();
    return {{"modes", QJsonArray({ports.bcMode(0), ports.bcMode(1)})},
            {"certification", QString(QChar(ushort(ports.certification())))}};
}

QJsonObject phy(Unit &unit)
{
    const hardware::UsbPhy &phy = unit.usbPhy();
    QJsonArray ports;
    for (int port = 0; port < hardware::UsbPhy::ports; ++port) {
        ports.append(QJsonObject({{"speed", phy.speed(port)},
                                  {"testMode", phy.testMode(port)},
                                  {"swing", phy.swing(port)},
                                  {"disconnectLevel", phy.disconnectLevel(port)}}));
    }
    return {{"role", phy.role()}, {"logoTest", phy.isLogoTestOn()}, {"ports", ports}};
}

QJsonObject memory(Unit &unit)
{
    const PhysicalMemory &memory = unit.memory();
    QJsonObject registers;
    for (const hardware::MemoryRegister &entry : memory.registers().all()) {
        registers[entry.name] = PhysicalMemory::hex(memory.read(entry.address));
    }
    return {{"registers", registers}};
}

QJsonObject ncm(Unit &unit)
{
    const hardware::NcmFigures figures = unit.ncmTest().figures();
    return {{"running", unit.ncmTest().isRunning()},
            {"bytesSent", figures.bytesSent},
            {"bytesReceived", figures.bytesReceived},
            {"datagramsLost", figures.datagramsLost},
            {"seconds", figures.seconds}};
}

QJsonObject vendor(Unit &unit)
{
    QJsonArray items;
    const QList<hardware::VendorItem> table = unit.vendorData().items();
    for (const hardware::VendorItem &item : table) {
        const QByteArray bytes = unit.vendorData().item(item.position).toHex().toUpper();
        items.append(QJsonObject({{"position", item.position},
                                  {"name", item.name},
                                  {"bytes", QString::fromLatin1(bytes)}}));
    }
    return {{"items", items}};
}

QJsonObject settings(Unit &unit)
{
    QJsonObject values;
    const QStringList keys = unit.settings().keys();
    for (const QString &key : keys) {
        values[key] = QJsonValue::fromVariant(unit.settings().value(key));
    }
    return {{"values", values}};
}

QJsonObject versions(Unit &unit)
{
    QJsonObject values;
    const QStringList names = hardware::Versions::names();
    for (const QString &name : names) {
        values[name] = unit.versions().value(name);
    }
    return {{"values", values}};
}

QJsonObject receiver(Unit &unit)
{
    const hardware::GpsReceiver::Progress progress = unit.gpsReceiver().progress();
    return {{"state", unit.gpsReceiver().state()},
            {"stage", progress.stage},
            {"wire", unit.gpsReceiver().showsWire()},
            {"blocks", progress.blocks}};
}

QJsonObject dab(Unit &unit)
{
    return {{"status", unit.dabTuner().status()}, {"progress", unit.dabTuner().progress()}};
}

QJsonObject faults(Unit &unit)
{
    QJsonObject present;
    const QList<FaultDevice> devices = faultDevices(unit);
    for (const FaultDevice &device : devices) {
        present[device.name] = QJsonArray::fromStringList(device.present());
    }
    return {{"present", present}};
}

struct Device
{
    const char *name;
    QJsonObject (*state)(Unit &unit);
};

const Device devices[] = {
    {"unit", unit},         {"panel", panel},   {"keylight", keyLight}, {"light", light},
    {"storage", storage},   {"usb", usb},       {"phy", phy},           {"memory", memory},
    {"ncm", ncm},           {"vendor", vendor}, {"settings", settings}, {"versions", versions},
    {"receiver", receiver}, {"dab", dab},       {"faults", faults},
};

/// What is not the unit's, but its program's.
QJsonObject program(Simulator &simulator)
{
    return {{"device", "program"},
            {"language", simulator.language()},
            {"busySeconds", simulator.stallMeter().busySeconds()},
            {"recording", simulator.recorder().fileName()}};
}

QString asLine(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

ConsoleResult state(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    if (arguments.first() != QLatin1String("--json")) {
        return ConsoleResult::failed(QStringLiteral("usage: state --json"));
    }
    QStringList lines;
    for (const Device &device : devices) {
        QJsonObject object = device.state(simulator.unit());
        object[QStringLiteral("device")] = QString::fromLatin1(device.name);
        lines.append(asLine(object));
    }
    lines.append(asLine(program(simulator)));
    return ConsoleResult::done(lines);
}

} // namespace

void addStateCommands(Console &console, Simulator &simulator)
{
    addCommands(console, simulator, {{"state", Console::Place::AnyThread, Effect::None, state}});
}

} // namespace simulator
