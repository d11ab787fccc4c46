#include "panel.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/mcu.h"
#include "hardware/unit/vendordata.h"

#include <QMutexLocker>
#include <QtEndian>

namespace hardware
{

namespace
{

/// An item's name, the number of its place in the vendor data, and its value without one.
struct ItemTraits
{
    const char *name;
    int position;
    int neutral;
};

const ItemTraits traits[] = {
    {"brightness", 2, Panel::brightest / 2},
    {"contrast", 5, 12},
    {"hue", 3, 180},
};
const ItemTraits saturationTraits = {"saturation", 4, 100}; // In hundredths.

QString line(const ItemTraits &item, const QString &value)
{
    return QLatin1String(item.name) + QLatin1Char(' ') + value;
}

QString exact(double value)
{
    return QString::number(value, 'g', 17);
}

int kept(const VendorData &vendorData, const ItemTraits &item)
{
    const QByteArray record = vendorData.item(item.position);
    return record.size() < int(sizeof(qint32)) ? item.neutral
                                               : qFromLittleEndian<qint32>(record.constData());
}

} // namespace

Panel::Panel(Journal &journal, Mcu &mcu, const VendorData &vendorData)
    : m_journal(journal)
    , m_vendorData(vendorData)
    , m_values{traits[Brightness].neutral, traits[Contrast].neutral, traits[Hue].neutral}
    , m_saturation(saturationTraits.neutral / 100.0)
{
    connect(&mcu, &Mcu::rebootRequested, this, &Panel::powerOn, Qt::DirectConnection);
}

void Panel::powerOn()
{
    {
        const QMutexLocker locker(&m_mutex);
        for (const Item item : {Brightness, Contrast, Hue}) {
            m_values[item] = kept(m_vendorData, traits[item]);
        }
        m_saturation = kept(m_vendorData, saturationTraits) / 100.0;
    }
    emit pictureChanged();
}

int Panel::value(Item item) const
{
    const QMutexLocker locker(&m_mutex);
    return m_values[item];
}

void Panel::setValue(Item item, int value)
{
    {
        const QMutexLocker locker(&m_mutex);
        m_values[item] = value;
        m_journal.write(QStringLiteral("panel"), line(traits[item], QString::number(value)));
    }
    emit pictureChanged();
}

double Panel::saturation() const
{
    const QMutexLocker locker(&m_mutex);
    return m_saturation;
}

void Panel::setSaturation(double value)
{
    {
        const QMutexLocker locker(&m_mutex);
        m_saturation = value;
        m_journal.write(QStringLiteral("panel"), line(saturationTraits, exact(value)));
    }
    emit pictureChanged();
}

QStringList Panel::description() const
{
    const QMutexLocker locker(&m_mutex);
    QStringList lines;
    for (const Item item : {Brightness, Contrast, Hue}) {
        lines.append(line(traits[item], QString::number(m_values[item])));
    }
    lines.append(line(saturationTraits, exact(m_saturation)));
    return lines;
}

} // namespace hardware
