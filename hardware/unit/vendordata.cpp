#include "vendordata.h"

#include "journal.h"
#include "tablefile.h"
#include "tablerow.h"
#include "wholefile.h"

#include <QFile>
#include <QMutexLocker>
#include <QtEndian>

#include <algorithm>
#include <limits>

namespace hardware
{

namespace
{

const QLatin1String vendorSource("vendor");
const QLatin1String positionField("position");
const QLatin1String offsetField("offset");
const QLatin1String lengthField("length");
const QLatin1String initialField("initial");

/// The field "initial", which may be missing: a 32-bit integer that has to fit the item.
bool readInitial(const TableRow &row, VendorItem *item)
{
    qint32 number = 0;
    if (!row.contains(initialField)) {
        return true;
    }
    if (item->length < int(sizeof number)) {
        return row.refuse(initialField, QStringLiteral("it needs a length of at least 4"));
    }
    item->initial.resize(sizeof number);
    const bool isNumber = row.readNumber(initialField, std::numeric_limits<qint32>::min(),
                                         std::numeric_limits<qint32>::max(), &number);
    qToLittleEndian(number, item->initial.data());
    return isNumber;
}

bool readItem(const TableRow &row, VendorItem *item)
{
    return row.hasFields({positionField, offsetField, lengthField}, {initialField})
        && row.readNumber(positionField, 0, 255, &item->position)
        && row.readNumber(offsetField, 0, VendorData::size, &item->offset)
        && row.readNumber(lengthField, 0, VendorData::size - item->offset, &item->length)
        && readInitial(row, item);
}

bool overlap(const VendorItem &one, const VendorItem &other)
{
    return one.offset < other.offset + other.length && other.offset < one.offset + one.length;
}

/// Whether two items may stand in one table.
bool stayApart(const TableRow &row, const VendorItem &item, const VendorItem &other)
{
    if (item.position == other.position) {
        return row.refuse(positionField,
                          QStringLiteral("item \"%1\" has it already").arg(other.name));
    }
    return !overlap(item, other)
        || row.refuse(offsetField,
                      QStringLiteral("item \"%1\" has the bytes from %2 to %3")
                          .arg(other.name)
                          .arg(other.offset)
                          .arg(other.offset + other.length - 1));
}

/// Fills up a memory that is too short; a new one begins with the items' initial values.
bool makeMemory(const QString &fileName, const QList<VendorItem> &items, QString *reason)
{
    QFile file(fileName);
    const bool isNew = !file.exists();
    if (!isNew && !file.open(QIODevice::ReadOnly)) {
        *reason = file.errorString();
        return false;
    }
    if (file.size() >= VendorData::size) {
        return true;
    }
    QByteArray content = isNew ? QByteArray() : file.readAll();
    content.append(VendorData::size - content.size(), '\0');
    for (const VendorItem &item : isNew ? items : QList<VendorItem>()) {
        content.replace(item.offset, item.initial.size(), item.initial);
    }
    return isNew ? wholefile::make(fileName, content, reason)
                 : wholefile::replace(fileName, content, reason);
}

} // namespace

VendorData::VendorData(Journal &journal)
    : m_journal(journal)
{
}

bool VendorData::open(const QString &table, const QString &memory, QString *error,
                      const std::function<bool()> &prepare)
{
    const QMutexLocker locker(&m_mutex);
    if (!prepare()) {
        return false;
    }
    m_items.clear();
    TableFile file;
    if (!file.read(table, error)) {
        return false;
    }
    for (const TableSection &section : file.sections()) {
        const TableRow row(file, section, QStringLiteral("item"), error);
        VendorItem item;
        item.name = section.name;
        if (!readItem(row, &item)
            || !std::all_of(m_items.cbegin(), m_items.cend(),
                            [&](const VendorItem &other) { return stayApart(row, item, other); })) {
            return false;
        }
        m_items.append(item);
    }
    QString reason;
    if (!makeMemory(memory, m_items, &reason)) {
        *error = QStringLiteral("The vendor data \"%1\" cannot be read and written: %2.")
                     .arg(memory, reason);
        return false;
    }
    m_memory = memory;
    return true;
}

bool VendorData::find(int position, int *offset, int *length) const
{
    const QMutexLocker locker(&m_mutex);
    const VendorItem *item = m_lookUpsRefused ? nullptr : itemAt(position);
    if (item == nullptr) {
        m_journal.write(vendorSource, QStringLiteral("refused position %1").arg(position));
        return false;
    }
    *offset = item->offset;
    *length = item->length;
    return true;
}

bool VendorData::write(int offset, const QByteArray &data)
{
    const QMutexLocker locker(&m_mutex);
    const bool fits = offset >= 0 && offset <= size - data.size();
    if (m_writesRefused || !fits || !store(offset, data)) {
        m_journal.write(vendorSource, QStringLiteral("refused write"));
        return false;
    }
    m_journal.write(vendorSource,
                    QStringLiteral("write %1 ").arg(offset)
                        + QString::fromLatin1(data.toHex(' ').toUpper()));
    return true;
}

QList<VendorItem> VendorData::items() const
{
    const QMutexLocker locker(&m_mutex);
    return m_items;
}

QByteArray VendorData::item(int position) const
{
    const QMutexLocker locker(&m_mutex);
    const VendorItem *item = itemAt(position);
    QFile file(m_memory);
    if (item == nullptr || !file.open(QIODevice::ReadOnly) || !file.seek(item->offset)) {
        return QByteArray();
    }
    return file.read(item->length);
}

void VendorData::refuseLookUps(bool refuse)
{
    const QMutexLocker locker(&m_mutex);
    m_lookUpsRefused = refuse;
}

void VendorData::refuseWrites(bool refuse)
{
    const QMutexLocker locker(&m_mutex);
    m_writesRefused = refuse;
}

bool VendorData::refusesLookUps() const
{
    const QMutexLocker locker(&m_mutex);
    return m_lookUpsRefused;
}

bool VendorData::refusesWrites() const
{
    const QMutexLocker locker(&m_mutex);
    return m_writesRefused;
}

bool VendorData::store(int offset, const QByteArray &data)
{
    QFile file(m_memory);
    QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    content.append(size - content.size(), '\0');
    QString reason;
    if (wholefile::replace(m_memory, content.replace(offset, data.size(), data), &reason)) {
        return true;
    }
    m_journal.reportFailedWrite(m_memory, reason);
    return false;
}

const VendorItem *VendorData::itemAt(int position) const
{
    for (const VendorItem &item : m_items) {
        if (item.position == position) {
            return &item;
        }
    }
    return nullptr;
}

} // namespace hardware
