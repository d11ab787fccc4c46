#include "upgradeprogress.h"

#include <algorithm>

namespace panel
{

namespace
{

// What a stage without blocks takes, in blocks: at the line's 115200 baud one lasts 90 ms.
const double resetBlocks = 12;
const double promptBlocks = 3;
const double restartBlocks = 3;

const int blockBytes = 1024;
const double measuredSeconds = 1;

} // namespace

const QStringList &UpgradeProgress::stages()
{
    static const QStringList names = {QStringLiteral("rom"), QStringLiteral("bootloader"),
                                      QStringLiteral("prompt"), QStringLiteral("firmware"),
                                      QStringLiteral("restart")};
    return names;
}

int UpgradeProgress::blocksOf(qint64 bytes)
{
    return int((bytes + blockBytes - 1) / blockBytes);
}

void UpgradeProgress::setBlocks(int bootloader, int firmware)
{
    m_bootloader = bootloader;
    m_firmware = firmware;
}

void UpgradeProgress::take(const QString &name, int blocks, double seconds)
{
    const int stage = name == stages().constLast() ? stageOfRestart() : stages().indexOf(name);
    if (stage < 0) {
        *this = UpgradeProgress();
        return;
    }
    if (stage < m_stage) {
        m_part = 0; // a second attempt
    }
    if (stage != m_stage) {
        m_stage = stage;
        m_blocksPerSecond = 0;
        m_blocksBefore = 0;
        m_secondsBefore = seconds;
    }
    const bool hasBlocks = stage == Bootloader || stage == Firmware;
    if (hasBlocks) {
        measure(blocks, seconds);
    }
    const double here = hasBlocks ? std::min<double>(blocks, work(stage)) : 0;
    const double done = workBefore(stage) + here;
    m_part = std::max(m_part, std::min(1.0, done / workBefore(stages().size())));
}

double UpgradeProgress::secondsLeft() const
{
    if (m_blocksPerSecond <= 0 || (m_stage == Bootloader && m_bootloader == 0) || m_firmware == 0) {
        return -1;
    }
    return (1 - m_part) * workBefore(stages().size()) / m_blocksPerSecond;
}

/// It restarts ahead of its ROM, into its boot loader, and into its firmware.
int UpgradeProgress::stageOfRestart() const
{
    return m_stage < Bootloader ? Rom : m_stage < Firmware ? Prompt : Restart;
}

/// What a stage takes, in blocks.
double UpgradeProgress::work(int stage) const
{
    const double works[] = {resetBlocks, double(m_bootloader), promptBlocks, double(m_firmware),
                            restartBlocks};
    return works[stage];
}

double UpgradeProgress::workBefore(int stage) const
{
    double sum = 0;
    for (int index = 0; index < stage; ++index) {
        sum += work(index);
    }
    return sum;
}

void UpgradeProgress::measure(int blocks, double seconds)
{
    if (blocks < m_blocksBefore) {
        m_blocksBefore = 0;
        m_secondsBefore = seconds;
    }
    const double passed = seconds - m_secondsBefore;
    if (passed >= measuredSeconds) {
        m_blocksPerSecond = (blocks - m_blocksBefore) / passed;
        m_blocksBefore = blocks;
        m_secondsBefore = seconds;
    }
}

} // namespace panel
