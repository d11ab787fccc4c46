#pragma once

#include "receiverfaults.h"
#include "serialline.h"
#include "xmodemreceiver.h"

#include "hardware/unit/deviceloop.h"

#include <QByteArray>
#include <QString>

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
    GpsReceiver(const UnitFolder &folder, const Clock &clock, Journal &journal, Versions &versions);
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

    /// Host path of the link to its line.
    QString portFile() const;

private:
    enum class Stage { Running, Resetting, Rom, Loading, BootPrompt };

    bool makeLine(QString *error);
    void runFirmware(int speed, bool inUse);

    void hearLine();
    void hear(char byte);
    void hearSentenceByte(char byte);
    void hearSentence(const QByteArray &sentence);
    void configure(const QByteArray &sentence);
    void tellProduct();
    void reset();
    void hearEscapeByte(char byte);
    void enterLoader();
    void hearMenuByte(char byte);
    void selectFlash();

    void beginTransfer(const QString &part);
    void requestFrame();
    void hearFrameByte(char byte);
    void answerBlock(char usualAnswer);
    void answerEnd();
    void endTransfer();
    void showPrompt();
    void startFirmware();
    void sendSentences();

    bool answers(const QString &stage, int block = 0);
    void say(const QByteArray &bytes);
    void note(const QString &text);
    QString imageFile(const QString &part) const;
    bool keepImage(const QString &part, const QByteArray &image);

    const UnitFolder &m_folder;
    Journal &m_journal;
    Versions &m_versions;
    SerialLine m_line;
    ReceiverFaults m_faults;
    Stage m_stage = Stage::Running;
    int m_speed = 0; // baud
    bool m_serviceReads = true;
    QByteArray m_heard; // of a sentence, an escape or a menu choice
    QString m_part;     // in transfer: "bootloader" or "firmware"
    XmodemReceiver m_transfer;
    DeviceLoop m_loop; // the last one: its thread uses all the others
};

} // namespace hardware
