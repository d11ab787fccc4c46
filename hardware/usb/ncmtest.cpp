#include "ncmtest.h"

#include "ncmrun.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/unitfolder.h"

#include <QFile>
#include <QMutexLocker>

namespace hardware
{

namespace
{

/// What the link carries when nothing holds the sender back: a high-speed USB port's 480 Mbit/s
/// less what the bus and the network's frames take.
constexpr int linkMegabits = 280;

struct KindTraits
{
    const char *name;
    NcmRun::Protocol protocol;
    int megabits; ///< that the sender sends in a second
    bool isServer;
};

// By NcmTest::Kind.
const KindTraits kinds[] = {
    {"tcp server", NcmRun::Tcp, linkMegabits, true},  {"udp server", NcmRun::Udp, 100, true},
    {"udp client 50", NcmRun::Udp, 50, false},        {"udp client 100", NcmRun::Udp, 100, false},
    {"tcp client", NcmRun::Tcp, linkMegabits, false},
};

const QLatin1String ncmSource("ncm");

} // namespace

NcmTest::NcmTest(const Clock &clock, const UnitFolder &folder, Journal &journal)
    : m_clock(clock)
    , m_folder(folder)
    , m_journal(journal)
{
}

NcmTest::~NcmTest()
{
    const QMutexLocker locker(&m_mutex);
    endRun();
}

bool NcmTest::start(Kind kind)
{
    const QMutexLocker locker(&m_mutex);
    m_journal.write(ncmSource, QStringLiteral("start ") + name(kind));
    endRun();
    const KindTraits &traits = kinds[kind];
    QString refusal = QStringLiteral("no device is connected");
    std::function<bool()> isAlive = [] { return true; };
    if (traits.isServer) {
        isAlive = [file = processFile()] { return QFile::exists(file); };
    }
    QScopedPointer<NcmRun> run(
        new NcmRun(m_clock, traits.protocol, traits.megabits, std::move(isAlive)));
    if (m_startsRefused || (traits.isServer && !makeProcessFile()) || !run->start(&refusal)) {
        m_journal.write(ncmSource, QStringLiteral("refused %1: %2").arg(name(kind), refusal));
        return false;
    }
    m_kind = kind;
    m_run.swap(run);
    m_isEnded = false;
    return true;
}

bool NcmTest::stop()
{
    const QMutexLocker locker(&m_mutex);
    m_journal.write(ncmSource, QStringLiteral("stop"));
    const bool wasRunning = m_run && m_run->isRunning();
    endRun();
    return wasRunning;
}

void NcmTest::refuseStarts(bool refuse)
{
    const QMutexLocker locker(&m_mutex);
    m_startsRefused = refuse;
}

bool NcmTest::refusesStarts() const
{
    const QMutexLocker locker(&m_mutex);
    return m_startsRefused;
}

bool NcmTest::isRunning() const
{
    const QMutexLocker locker(&m_mutex);
    return m_run && m_run->isRunning();
}

NcmFigures NcmTest::figures() const
{
    const QMutexLocker locker(&m_mutex);
    return m_run ? m_run->figures() : NcmFigures();
}

QStringList NcmTest::description() const
{
    const QMutexLocker locker(&m_mutex);
    if (!m_run) {
        return {QStringLiteral("no test has run")};
    }
    return {name(m_kind)
                + (m_run->isRunning() ? QStringLiteral(" runs") : QStringLiteral(" ended")),
            summary()};
}

QString NcmTest::name(Kind kind)
{
    return QLatin1String(kinds[kind].name);
}

void NcmTest::endRun()
{
    if (m_isEnded) {
        return;
    }
    m_run->end();
    m_isEnded = true;
    QFile::remove(processFile());
    m_journal.write(ncmSource, QStringLiteral("ended %1, %2").arg(name(m_kind), summary()));
}

QString NcmTest::summary() const
{
    const NcmFigures figures = m_run->figures();
    QString text = QStringLiteral("%1 bytes sent, %2 received in %3 s, %4 Mbit/s")
                       .arg(figures.bytesSent)
                       .arg(figures.bytesReceived)
                       .arg(figures.seconds, 0, 'f', 1)
                       .arg(figures.megabits(), 0, 'f', 1);
    if (kinds[m_kind].protocol == NcmRun::Udp) {
        text += QStringLiteral(", %1 datagrams lost").arg(figures.datagramsLost);
    }
    return text;
}

QString NcmTest::processFile() const
{
    return m_folder.path(QStringLiteral("/run/as_server"));
}

bool NcmTest::makeProcessFile() const
{
    return QFile(processFile()).open(QIODevice::WriteOnly);
}

} // namespace hardware
