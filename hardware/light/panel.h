#pragma once

#include <QMutex>
#include <QObject>
#include <QStringList>

namespace hardware
{

class Journal;
class Mcu;
class VendorData;

/// The display panel with its picture. It starts with what the vendor data holds, and again after
/// every reboot. Takes any value, as the display service does; the glass shows the nearest it can.
/// Thread-safe.
class Panel : public QObject
{
    Q_OBJECT

public:
    enum Item { Brightness, Contrast, Hue };

    /// Where the backlight is at its brightest; 0 is the darkest, the middle is as pictures are
    /// meant to look.
    static constexpr int brightest = 24;

    /// The largest values that items are meant to have; the smallest is 0.
    static constexpr int largest[] = {brightest, 24, 360};
    static constexpr double maxSaturation = 1.99;

    /// \a mcu restarts the panel, \a vendorData must be open by the time of powerOn().
    Panel(Journal &journal, Mcu &mcu, const VendorData &vendorData);
    Q_DISABLE_COPY(Panel)

    /// Takes the picture from the vendor data; an item without a place there starts at a neutral
    /// value.
    void powerOn();

    int value(Item item) const;
    /// Journal: panel <brightness|contrast|hue> <value>.
    void setValue(Item item, int value);

    double saturation() const;
    /// Journal: panel saturation <value>, with 17 digits, so that it can be read back exactly.
    void setSaturation(double value);

    /// One line for each item, "<name> <value>".
    QStringList description() const;

signals:
    /// Sent on the thread that changed it.
    void pictureChanged();

private:
    Journal &m_journal;
    const VendorData &m_vendorData;
    mutable QMutex m_mutex;
    int m_values[3];
    double m_saturation;
};

} // namespace hardware
