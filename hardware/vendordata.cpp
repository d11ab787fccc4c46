#include "vendordata.h"

#include "journal.h"
#include "tablefile.h"

#include <QFile>
#include <QMutexLocker>

namespace hardware
{

namespace
{

const auto source = QStringLiteral("vendor");

/// Reads a number of a section and says what is wrong with it.
bool readNumber(const TableFile &file, const TableSection &section, const QString &name, int limit,
                int *number, QString *error)
{
    const auto field = section.fields.constFind(name);
    if (field == section.fields.constEnd()) {
        *error = file.place(section.line)
            + QStringLiteral("item \"%1\" has no field %2.").arg(section.name, name);
        return false;
    }
    bool isNumber = false;
    *number = field->value.toInt(&isNumber);
    if (!isNumber || *number < 0 || *number > limit) {
        *error = file.place(field->line)
            + QStringLiteral("item \"%1\": %2 \"%3\" is not allowed; allowed is a whole number "
                             "from 0 to %4.")
                  .arg(section.name, name, field->value)
                  .arg(limit);
        return false;
    }
    return true;
}

bool readItem(const TableFile &file, const TableSection &section, VendorItem *item, QString *error)
{
    item->name = section.name;
    return readNumber(file, section, QStringLiteral("position"), 255, &item->position, error)
        && readNumber(file, section, QStringLiteral("offset"), VendorData::size, &item->offset,
                      error)
        && readNumber(file, section, QStringLiteral("length"), VendorData::size - item->offset,
                      &item->length, error);
}

bool makeMemory(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadWrite)
        && (file.size() >= VendorData::size || file.resize(VendorData::size));
}

} // namespace

VendorData::VendorData(Journal &journal)
    : m_journal(journal)
{
}

bool VendorData::open(const QString &table, const QString &memory, QString *error)
{
    m_items.clear();
    TableFile file;
    if (!file.read(table, error)) {
        return false;
    }
    for (const TableSection &section : file.sections()) {
        VendorItem item;
        if (!readItem(file, section, &item, error)) {
            return false;
        }
        m_items.append(item);
    }
    if (!makeMemory(memory)) {
        *error = QStringLiteral("The vendor data \"%1\" cannot be read and written.").arg(memory);
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
        m_journal.write(source, QStringLiteral("refused position %1").arg(position));
        return false;
    }
    *offset = item->offset;
    *length = item->length;
    return true;
}

bool VendorData::write(int offset, const QByteArray &data)
{
    const QMutexLocker locker(&m_mutex);
    QFile file(m_memory);
    const bool fits = offset >= 0 && offset <= size - data.size();
    if (m_writesRefused || !fits || !file.open(QIODevice::ReadWrite) || !file.seek(offset)
        || file.write(data) != data.size()) {
        m_journal.write(source, QStringLiteral("refused write"));
        return false;
    }
    m_journal.write(source,
                    QStringLiteral("write %1 ").arg(offset)
                        + QString::fromLatin1(data.toHex(' ').toUpper()));
    return true;
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
