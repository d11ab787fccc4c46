#pragma once

#include <QByteArray>
#include <QMutex>
#include <QObject>

namespace hardware
{

class Journal;
class Mcu;

/// A colour mixed from three LEDs, 0 to 100 each.
struct KeyColor
{
    int red;
    int green;
    int blue;
};

/// The light behind the hard keys, which the MCU drives. It takes its colour from the MCU's message
///     FF 66 06 15 84 FE <red> <green> <blue> FF
/// and shines in a colour of its own until the first one. Journal: keylight <red> <green> <blue>,
/// or keylight refused with the same numbers where one is more than 100. Thread-safe.
class KeyLight : public QObject
{
    Q_OBJECT

public:
    /// The brightest that an LED can be.
    static constexpr int brightest = 100;

    KeyLight(Journal &journal, Mcu &mcu);
    Q_DISABLE_COPY(KeyLight)

    KeyColor color() const;

signals:
    /// Sent on the thread that the message came on.
    void colorChanged();

private:
    void receive(const QByteArray &message);

    Journal &m_journal;
    mutable QMutex m_mutex;
    KeyColor m_color;
};

} // namespace hardware
