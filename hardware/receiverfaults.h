#pragma once

#include <QStringList>

namespace hardware
{

/// What goes wrong with the GPS receiver.
///
/// Its stages, in the order of an upgrade: "configure" the line, "product" query, ROM "loader",
/// transfer of the "bootloader", boot "prompt", "menu" selection, transfer of the "firmware",
/// "sentences" of the new firmware; and "eot", the end of either transfer.
struct ReceiverFaults
{
    QString silentStage;
    int silentBlock = 0; ///< of a transfer; with 0 it is not even asked for
    QString hangUpStage;
    int hangUpBlock = 0;
    int nakBlock = 0;
    int naks = 0;
    int garbageBlock = 0; ///< answered with a byte that is no answer
    int noiseBytes = 0;   ///< ahead of each 'C'
    int lateEotMs = 0;    ///< of the unit's time
    bool withoutYc = false;
    bool splitYc = false;
    bool splitPrompt = false;
    bool withoutRmc = false;

    /// Adds the fault that the words name; false with a sentence in \a error.
    bool add(const QStringList &words, QString *error);

    /// One line for each fault: the words and what they do.
    static QStringList help();
};

} // namespace hardware
