#pragma once

#include <QString>
#include <QStringList>

namespace panel
{

/// How far an upgrade of the GPS receiver is, told by what the receiver says of itself. Never goes
/// back before the upgrade has ended.
class UpgradeProgress
{
public:
    /// The stages of an upgrade in their order, by the receiver's names.
    static const QStringList &stages();

    /// Blocks of a kilobyte that a package of that size in bytes becomes.
    static int blocksOf(qint64 bytes);

    /// What the images have; 0 for one that nobody knows.
    void setBlocks(int bootloader, int firmware);

    /// What the receiver does at that time, in seconds.
    void take(const QString &stage, int blocks, double seconds);

    /// Index of the stage; -1 while there is no upgrade.
    int stage() const { return m_stage; }
    /// 0 to 1 of the time that the whole takes.
    double part() const { return m_part; }
    /// Of the transfer that goes on, over its last seconds; 0 for none.
    double blocksPerSecond() const { return m_blocksPerSecond; }
    /// Until the end, as fast as it goes on now; less than 0 while nobody knows.
    double secondsLeft() const;

private:
    enum Stage { Rom, Bootloader, Prompt, Firmware, Restart };

    int stageOfRestart() const;
    double work(int stage) const;
    double workBefore(int stage) const;
    void measure(int blocks, double seconds);

    int m_bootloader = 0;
    int m_firmware = 0;
    int m_stage = -1;
    double m_part = 0;
    double m_blocksPerSecond = 0;
    int m_blocksBefore = 0;
    double m_secondsBefore = 0;
};

} // namespace panel
