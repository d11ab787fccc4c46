#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace hardware
{

/// The receiver's side of XMODEM-1K with CRC: takes the sender's bytes one by one, checks every
/// frame and says what to answer. It does not ask for the first frame itself.
class XmodemReceiver
{
public:
    static constexpr int blockSize = 1024; ///< bytes
    static const char request = 'C';
    static const char ack = 0x06;
    static const char nak = 0x15;

    enum class Event {
        Nothing,  ///< in the middle of a frame, or a byte that belongs to none
        Accepted, ///< a block is complete: ACK
        Repeated, ///< the block before came once more, and is kept once: ACK
        Refused,  ///< a frame that is not right, see problem(): NAK
        Ended     ///< the sender has nothing more: ACK
    };

    /// Refuses the blocks of those numbers so many times each, although nothing is wrong with them.
    void refuse(const QMap<int, int> &timesByBlock);

    Event take(char byte);

    /// Whether a frame has begun to arrive.
    bool hasBegun() const;
    /// Number of the last block that was accepted; the first one is 1, and it does not wrap.
    int block() const;
    /// What was wrong with the frame that was refused last.
    QString problem() const;
    /// The blocks as they came, the last one with what fills it up.
    QByteArray data() const;

private:
    Event takeFrame();
    QString frameProblem() const;

    QByteArray m_frame;
    QByteArray m_data;
    QString m_problem;
    bool m_hasBegun = false;
    int m_block = 0;
    QMap<int, int> m_refusals; // by block
};

/// CRC-16/XMODEM: polynomial 0x1021, initial value 0, most significant bit first.
quint16 xmodemCrc(const char *data, int size);

} // namespace hardware
