#pragma once

#include <QByteArray>

#include <atomic>

/// A raw pseudo-terminal without any pace: the port for the code under test, the far end for the
/// test's own receiver, which runs on a thread beside it.
class TestLine
{
public:
    TestLine();
    ~TestLine();
    Q_DISABLE_COPY(TestLine)

    int port() const { return m_port; }
    /// The port's path on the host.
    const QByteArray &name() const { return m_name; }
    int farEnd() const { return m_farEnd; }

    void say(const QByteArray &bytes) const;
    /// So many bytes, or what has come when nothing more does for some seconds.
    QByteArray hear(int count) const;
    /// Whoever talked at the port is through: hear() has nothing to wait for any more.
    void portIsThrough() const;
    /// Closes the far end.
    void hangUp();

private:
    bool waitForBytes() const;

    int m_farEnd;
    int m_port;
    QByteArray m_name;
    mutable std::atomic<bool> m_portIsThrough;
};
