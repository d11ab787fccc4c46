#pragma once

#include "ncmfigures.h"

#include <QString>

#include <atomic>
#include <functional>
#include <thread>

namespace hardware
{

class Clock;

/// One throughput test: two threads, one that sends and one that receives, joined by a socket of
/// the host's loopback. It runs until it is ended, or ends itself when it is told to.
class NcmRun
{
public:
    enum Protocol { Udp, Tcp };

    /// Sends \a megabits million bits per second of the unit's time, or fewer when the host is too
    /// slow. \a isAlive is asked now and then on the receiving thread; once it says no, the test
    /// ends itself.
    NcmRun(const Clock &clock, Protocol protocol, int megabits, std::function<bool()> isAlive);
    ~NcmRun();
    Q_DISABLE_COPY(NcmRun)

    /// False with a sentence in \a error when the host gives no socket.
    bool start(QString *error);

    /// Ends both threads; returns when they have. The figures stay.
    void end();

    /// False before start() and once the test has ended, however. Any thread.
    bool isRunning() const;

    /// Any thread.
    NcmFigures figures() const;

private:
    bool openSockets();
    bool connectTcp();
    bool connectUdp();
    void closeSockets();
    void send();
    bool sendBlock();
    void receive();
    void receiveBlock();
    void finish();
    qint64 sinceStart() const;

    const Clock &m_clock;
    const Protocol m_protocol;
    const int m_megabits;
    const std::function<bool()> m_isAlive;

    int m_sender = -1;
    int m_receiver = -1;
    std::atomic<bool> m_isRunning{false};
    qint64 m_started = -1;            // by the clock
    std::atomic<qint64> m_lasted{-1}; // unit nanoseconds, once it has ended
    std::atomic<qint64> m_bytesSent{0};
    std::atomic<qint64> m_bytesReceived{0};
    std::atomic<qint64> m_datagramsReceived{0};
    std::atomic<qint64> m_datagramsExpected{0};
    std::thread m_sending;
    std::thread m_receiving;
};

} // namespace hardware
