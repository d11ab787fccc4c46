#pragma once

#include "receiverloader.h"
#include "receiverport.h"

#include "hardware/unit/cause.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace hardware
{

class Clock;
class Journal;
class UnitFolder;
class Versions;

/// The GPS receiver behind "/dev/ttyS3", on a thread of its own. It takes sentences, restarts into
/// its ROM loader, takes a boot loader and through that a firmware by XMODEM-1K, and runs it: then
/// it sends positions at 9600 baud, and its version is that in the image. It understands only what
/// comes at its own speed. The images are kept in the unit's folder "receiver". All functions may
/// be called from any thread.
class GpsReceiver
{
public:
    /// \a lineUser tells what the line was last opened for: what the receiver hears, and answers,
    /// follows from that.
    GpsReceiver(const UnitFolder &folder, const Clock &clock, Journal &journal, Versions &versions,
                std::function<Cause()> lineUser);
    ~GpsReceiver();
    Q_DISABLE_COPY(GpsReceiver)

    /// Switches it on. False with a sentence in \a error when the host has no pseudo-terminal or
    /// the unit's folder cannot lead to it.
    bool open(QString *error);

    /// As after the unit's restart: runs its firmware, at 230400 baud, for the unit's service. A
    /// line that was hung up is there again. Journal: receiver runs <version>.
    void restart();

    /// While the unit's own service reads the line (at first it does), it gets all that the
    /// receiver says; others get nothing.
    void setServiceReading(bool reading);

    /// Adds a fault, which lasts until clearFaults(); ReceiverFaults says which there are. The
    /// refusal of blocks begins with the next transfer. False with a sentence in \a error.
    /// Journal: receiver fault <words>.
    bool addFault(const QStringList &words, QString *error);
    /// Journal: receiver repaired.
    void clearFaults();
    /// Those that there are, as addFault() would take them.
    QStringList faults();

    /// What it is doing, in a few words.
    QString state();

    struct Progress
    {
        QString stage; ///< "run", "hung up", or one of ReceiverLoader's.
        int blocks;    ///< Of a kilobyte, of the transfer that goes on or was the last.
    };
    Progress progress();

    /// See ReceiverPort.
    void showWire(bool show) { m_port.showWire(show); }
    bool showsWire() const { return m_port.showsWire(); }

    /// Host path of the link to its line.
    QString portFile() const;

private:
    bool makeLine(QString *error);
    void runFirmware(int speed, bool inUse);

    void hearLine();
    void hearSentenceByte(char byte);
    void hearSentence(const QByteArray &sentence);
    void configure(const QByteArray &sentence);
    void tellProduct();
    void reset();
    void takeFirmware(const QByteArray &image);
    void startFirmware();
    void sendSentences();

    const UnitFolder &m_folder;
    Versions &m_versions;
    const std::function<Cause()> m_lineUser;
    bool m_hasMadePort = false;
    bool m_isRunning = true; // its firmware, and not the loader
    QByteArray m_heard;      // of a sentence
    ReceiverPort m_port;
    ReceiverLoader m_loader;
};

} // namespace hardware
