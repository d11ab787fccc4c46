#include "allcommands.h"

#include "arguments.h"
#include "commandtable.h"

#include "hardware/unit/unit.h"
#include "simulator/simulator.h"

#include <QRegularExpression>

namespace simulator
{

namespace
{

const int lastPosition = 255;

QString hex(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toHex(' ').toUpper());
}

ConsoleResult listItems(const hardware::VendorData &vendor)
{
    QStringList lines;
    const QList<hardware::VendorItem> items = vendor.items();
    for (const hardware::VendorItem &item : items) {
        lines.append(QStringLiteral("%1 %2 %3")
                         .arg(item.position)
                         .arg(item.name, hex(vendor.item(item.position))));
    }
    return ConsoleResult::done(lines);
}

/// Writes what an item is to begin with; the rest of it stays.
ConsoleResult writeItem(hardware::VendorData &vendor, int position, const QString &text)
{
    int offset = 0;
    int length = 0;
    if (!vendor.find(position, &offset, &length)) {
        return ConsoleResult::failed(QStringLiteral("the vendor data refuses look-ups"));
    }
    static const QRegularExpression pairs(
        QRegularExpression::anchoredPattern(QStringLiteral("([0-9A-Fa-f]{2} ?)+")));
    const QByteArray bytes = QByteArray::fromHex(text.toLatin1());
    if (!pairs.match(text).hasMatch() || bytes.size() > length) {
        return ConsoleResult::failed(
            QStringLiteral("BYTES is 1 to %1 pairs of hexadecimal digits, not \"%2\"")
                .arg(length)
                .arg(text));
    }
    return vendor.write(offset, bytes)
        ? ConsoleResult::done()
        : ConsoleResult::failed(QStringLiteral("the vendor data refuses writes"));
}

ConsoleResult vendor(Simulator &simulator, const QStringList &arguments, ConsoleSession &)
{
    hardware::VendorData &vendor = simulator.unit().vendorData();
    if (arguments.isEmpty()) {
        return listItems(vendor);
    }
    int position = 0;
    QString error;
    if (!readNumber(arguments.first(), QStringLiteral("POSITION"), 0, lastPosition, &position,
                    &error)) {
        return ConsoleResult::failed(error);
    }
    const QByteArray item = vendor.item(position);
    if (item.isEmpty()) {
        return ConsoleResult::failed(QStringLiteral("nothing has position %1").arg(position));
    }
    return arguments.size() > 1 ? writeItem(vendor, position, arguments.at(1))
                                : ConsoleResult::done({hex(item)});
}

} // namespace

void addVendorCommands(Console &console, Simulator &simulator)
{
    const auto place = Console::Place::AnyThread;
    addCommands(console, simulator,
                {
                    {"vendor", place, Effect::World, vendor},
                });
}

} // namespace simulator
