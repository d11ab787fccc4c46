#pragma once

#include "xmodemreceiver.h"

#include <QByteArray>
#include <QString>

#include <functional>

namespace hardware
{

class Journal;
class ReceiverPort;
class UnitFolder;

/// What the GPS receiver runs while its firmware does not: the ROM's loader, which takes a boot
/// loader, and that, which takes a firmware. On the receiver's thread only.
class ReceiverLoader
{
public:
    /// \a loaded is given the image of a firmware that was received.
    ReceiverLoader(ReceiverPort &port, const UnitFolder &folder, Journal &journal,
                   const std::function<void(const QByteArray &image)> &loaded);
    Q_DISABLE_COPY(ReceiverLoader)

    /// Hears nothing, as while the receiver restarts.
    void stop();
    /// Begins in the ROM.
    void start();
    void hear(char byte);

    /// Blocks that a fault has refused are taken again.
    void forgetRefusals();

    /// What it is doing, in a few words.
    QString state() const;

    /// The same in a word: "restart", "rom", "bootloader", "prompt" or "firmware".
    QString stage() const;
    /// Blocks of the transfer that goes on or was the last; 0 for none.
    int blocks() const;

private:
    enum class Stage { Deaf, Rom, Loading, BootPrompt };

    void hearEscapeByte(char byte);
    void enterLoader();
    void hearMenuByte(char byte);
    void selectFlash();

    void beginTransfer(const QString &part);
    void requestFrame();
    void hearFrameByte(char byte);
    void answerBlock(char defaultAnswer);
    void answerEnd();
    void endTransfer();
    void showPrompt();
    void sayRest();

    QString imageFile() const;
    bool keepImage(const QByteArray &image);

    ReceiverPort &m_port;
    const UnitFolder &m_folder;
    Journal &m_journal;
    const std::function<void(const QByteArray &image)> m_loaded;
    Stage m_stage = Stage::Deaf;
    QByteArray m_heard; // of an escape or a menu choice
    QByteArray m_rest;  // of an answer in two pieces, until it is said
    QString m_part;     // in transfer: "bootloader" or "firmware"
    XmodemReceiver m_transfer;
};

} // namespace hardware
