#pragma once

#include "conversation.h"

#include "support/testunit.h"

#include <QScopedPointer>

const char bootloader[] = "/media/flash/gps_bootloader.pkg";
const char firmware[] = "/media/flash/gps_firmware.pkg";
const char timeOut[] = "\ntimeout!!!\n";

/// What tests of the upgrader have alike: a unit whose receiver no service reads, both files in its
/// flash.
class UpgradeTest
{
protected:
    /// The time factor with which a host that stands still for 0.2 s changes nothing: the receiver
    /// asks again each second.
    static const int steady = 4;
    /// For when it matters which block an answer is for: the host may stand still for 0.4 s. When
    /// the receiver has asked twice, each answer is taken for that to the block behind.
    static const int careful = 2;
    /// For when one answer too late fails the whole.
    static const int unhurried = 1;
    /// For when there is only silence to be waited for.
    static const int hasty = 10;

    /// Switches a unit on, in place of the former one. What waits for the line sleeps meanwhile.
    void switchOn(int timeFactor = steady);
    void switchOff();

    void make(const QByteArray &file, const char *kind, const char *version, int size);
    void fault(const QString &words);
    Conversation upgrade();

    /// Test data: an upgrade with a fault of the receiver, and how it ends.
    void addFaultColumns();
    void addFaultRow(const char *words, int result, const QByteArray &end, int timeFactor = steady);
    void checkReturn();

    QScopedPointer<TestUnit> m_unit;
};
