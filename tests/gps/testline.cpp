#include "testline.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <cstdlib>

namespace
{
const int patienceMs = 20000;
const int lookMs = 20; // so often whether there is still somebody to wait for
} // namespace

TestLine::TestLine()
    : m_farEnd(posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    , m_port(-1)
    , m_portIsThrough(false)
{
    char name[64]; // not ptsname()'s, which all threads share
    if (grantpt(m_farEnd) != 0 || unlockpt(m_farEnd) != 0
        || ptsname_r(m_farEnd, name, sizeof name) != 0) {
        qFatal("The host has no pseudo-terminal.");
    }
    m_name = name;
    m_port = open(name, O_RDWR | O_NOCTTY | O_CLOEXEC);
    termios options;
    tcgetattr(m_port, &options);
    cfmakeraw(&options);
    tcsetattr(m_port, TCSANOW, &options);
}

TestLine::~TestLine()
{
    close(m_port);
    hangUp();
}

void TestLine::say(const QByteArray &bytes) const
{
    if (write(m_farEnd, bytes.constData(), size_t(bytes.size())) != bytes.size()) {
        qWarning("The line does not take %d bytes.", bytes.size());
    }
}

QByteArray TestLine::hear(int count) const
{
    QByteArray heard;
    char bytes[4096];
    while (heard.size() < count && waitForBytes()) {
        const ssize_t size = read(m_farEnd, bytes, size_t(qMin(count - heard.size(), 4096)));
        if (size <= 0) {
            break;
        }
        heard.append(bytes, int(size));
    }
    return heard;
}

bool TestLine::waitForBytes() const
{
    pollfd ready = {m_farEnd, POLLIN, 0};
    bool isThere = false;
    for (int waited = 0; !isThere && waited < patienceMs; waited += lookMs) {
        const bool isLastLook = m_portIsThrough;
        isThere = poll(&ready, 1, lookMs) > 0;
        if (isLastLook) {
            break;
        }
    }
    return isThere;
}

void TestLine::portIsThrough() const
{
    m_portIsThrough = true;
}

void TestLine::hangUp()
{
    if (m_farEnd >= 0) {
        close(m_farEnd);
        m_farEnd = -1;
    }
}
