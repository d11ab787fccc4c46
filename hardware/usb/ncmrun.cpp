#include "ncmrun.h"

#include "hardware/unit/clock.h"

#include <QDeadlineTimer>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>

namespace hardware
{

namespace
{

constexpr int pollTimeoutMs = 20;      // of the host, before a thread looks whether it is to end
constexpr int tickMicroseconds = 2000; // of the unit, between two bursts
constexpr qint64 burstTicks = 10;      // that a late sender makes up for

// A datagram fills the frame that a network link of that kind carries; a number stands in front.
constexpr std::size_t datagramSize = 1400;
constexpr std::size_t pieceSize = 65536;

sockaddr_in loopback()
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// Binds the socket to a free port of the loopback and gives its address.
bool bindToLoopback(int socket, sockaddr_in *address)
{
    *address = loopback();
    socklen_t length = sizeof *address;
    return bind(socket, reinterpret_cast<sockaddr *>(address), length) == 0
        && getsockname(socket, reinterpret_cast<sockaddr *>(address), &length) == 0;
}

bool connectTo(int socket, const sockaddr_in &address)
{
    return connect(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0;
}

bool isReady(int socket, short events)
{
    pollfd wanted = {socket, events, 0};
    return poll(&wanted, 1, pollTimeoutMs) > 0;
}

bool isPassing(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR || error == ENOBUFS;
}

} // namespace

NcmRun::NcmRun(const Clock &clock, Protocol protocol, int megabits, std::function<bool()> isAlive)
    : m_clock(clock)
    , m_protocol(protocol)
    , m_megabits(megabits)
    , m_isAlive(std::move(isAlive))
{
}

NcmRun::~NcmRun()
{
    end();
}

bool NcmRun::start(QString *error)
{
    if (!openSockets()) {
        *error = QStringLiteral("The host's loopback gives no socket: %1.")
                     .arg(QString::fromStdString(std::generic_category().message(errno)));
        closeSockets();
        return false;
    }
    m_started = m_clock.elapsed();
    m_isRunning = true;
    m_receiving = std::thread([this] { receive(); });
    m_sending = std::thread([this] { send(); });
    return true;
}

void NcmRun::end()
{
    finish();
    if (m_sending.joinable()) {
        m_sending.join();
        m_receiving.join();
    }
    closeSockets();
}

bool NcmRun::isRunning() const
{
    return m_isRunning;
}

NcmFigures NcmRun::figures() const
{
    NcmFigures figures;
    figures.bytesSent = m_bytesSent;
    figures.bytesReceived = m_bytesReceived;
    figures.datagramsLost = m_datagramsExpected - m_datagramsReceived;
    if (m_started >= 0) {
        const qint64 lasted = m_lasted;
        figures.seconds = double(lasted < 0 ? sinceStart() : lasted) / 1e9;
    }
    return figures;
}

bool NcmRun::openSockets()
{
    return m_protocol == Tcp ? connectTcp() : connectUdp();
}

bool NcmRun::connectTcp()
{
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address;
    m_sender = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (listener >= 0 && m_sender >= 0 && bindToLoopback(listener, &address)
        && listen(listener, 1) == 0 && connectTo(m_sender, address)) {
        m_receiver = accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    }
    if (listener >= 0) {
        const int kept = errno;
        close(listener);
        errno = kept;
    }
    return m_receiver >= 0;
}

bool NcmRun::connectUdp()
{
    sockaddr_in address;
    m_receiver = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    m_sender = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    return m_receiver >= 0 && m_sender >= 0 && bindToLoopback(m_receiver, &address)
        && connectTo(m_sender, address);
}

void NcmRun::closeSockets()
{
    for (int *socket : {&m_sender, &m_receiver}) {
        if (*socket >= 0) {
            close(*socket);
            *socket = -1;
        }
    }
}

void NcmRun::send()
{
    const double bytesPerNanosecond = m_megabits / 8.0 / 1000;
    const qint64 burst =
        std::max<qint64>(datagramSize, qint64(m_megabits) * tickMicroseconds / 8 * burstTicks);
    qint64 missed = 0; // what a sender that was too late for it does not make up for
    while (m_isRunning) {
        const qint64 due = qint64(double(sinceStart()) * bytesPerNanosecond);
        missed = std::max(missed, due - m_bytesSent - burst);
        while (m_isRunning && missed + m_bytesSent < due && sendBlock()) { }
        m_clock.sleep(tickMicroseconds);
    }
}

/// False when the socket takes no more for now.
bool NcmRun::sendBlock()
{
    static const std::array<char, pieceSize> nothing = {};
    std::array<char, datagramSize> datagram = {};
    const char *block = nothing.data();
    std::size_t size = pieceSize;
    if (m_protocol == Udp) {
        const qint64 number = m_bytesSent / qint64(datagramSize);
        std::memcpy(datagram.data(), &number, sizeof number);
        block = datagram.data();
        size = datagramSize;
    }
    if (!isReady(m_sender, POLLOUT)) {
        return false;
    }
    const ssize_t sent = ::send(m_sender, block, size, MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent > 0) {
        m_bytesSent += sent;
    } else if (!isPassing(errno)) {
        finish();
    }
    return sent > 0;
}

void NcmRun::receive()
{
    QDeadlineTimer nextLook(0);
    while (m_isRunning) {
        if (nextLook.hasExpired()) {
            nextLook.setRemainingTime(pollTimeoutMs);
            if (!m_isAlive()) {
                finish();
            }
        }
        if (isReady(m_receiver, POLLIN)) {
            receiveBlock();
        }
    }
}

void NcmRun::receiveBlock()
{
    std::array<char, pieceSize> block;
    const ssize_t size = recv(m_receiver, block.data(), block.size(), MSG_DONTWAIT);
    if (size <= 0) {
        if (size == 0 || !isPassing(errno)) {
            finish();
        }
        return;
    }
    m_bytesReceived += size;
    if (m_protocol == Udp && size >= ssize_t(sizeof(qint64))) {
        qint64 number = 0;
        std::memcpy(&number, block.data(), sizeof number);
        ++m_datagramsReceived;
        m_datagramsExpected = std::max<qint64>(m_datagramsExpected, number + 1);
    }
}

void NcmRun::finish()
{
    if (m_isRunning.exchange(false)) {
        m_lasted = sinceStart();
    }
}

/// Nanoseconds of the unit's time.
qint64 NcmRun::sinceStart() const
{
    return m_clock.elapsed() - m_started;
}

} // namespace hardware
