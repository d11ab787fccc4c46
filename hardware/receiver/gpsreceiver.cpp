#include "gpsreceiver.h"

#include "receiverimage.h"

#include "hardware/unit/unitfolder.h"
#include "hardware/unit/versions.h"

#include <QFile>

namespace hardware
{

namespace
{

const QLatin1String portPath("/dev/ttyS3");

const int serviceSpeed = 230400; // what the unit's service has set
const int firmwareSpeed = 9600;

const int maxSentence = 256;

// What the receiver takes its time for, in milliseconds.
const int resetMs = 100;
const int startMs = 300;
const int sentencesMs = 1000;

const char position[] = "$GNGGA,120000.00,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*59\r\n";
const char recommended[] = "$GNRMC,120000.00,A,4807.038,N,01131.000,E,0.02,31.66,230394,,,A*4E\r\n";

} // namespace

GpsReceiver::GpsReceiver(const UnitFolder &folder, const Clock &clock, Journal &journal,
                         Versions &versions, std::function<Cause()> lineUser)
    : m_folder(folder)
    , m_versions(versions)
    , m_lineUser(std::move(lineUser))
    , m_port(clock, journal)
    , m_loader(m_port, folder, journal, [this](const QByteArray &image) { takeFirmware(image); })
{
}

GpsReceiver::~GpsReceiver()
{
    m_port.loop().stop();
    // It may be another unit's, on whose folder this one was refused.
    if (m_hasMadePort) {
        QFile::remove(portFile());
    }
}

bool GpsReceiver::open(QString *error)
{
    if (!makeLine(error)) {
        return false;
    }
    runFirmware(serviceSpeed, true);
    const auto hear = [this] {
        const CauseScope scope(m_lineUser());
        hearLine();
    };
    m_port.loop().start([this] { return m_port.line().descriptor(); }, hear,
                        [this] { m_port.line().watchSpeed(); });
    return true;
}

void GpsReceiver::restart()
{
    m_port.loop().call([this] {
        QString error;
        if (!m_port.line().isOpen() && !makeLine(&error)) {
            m_port.note(error);
            return;
        }
        runFirmware(serviceSpeed, true);
        m_port.note(QStringLiteral("runs ") + m_versions.gps());
    });
}

void GpsReceiver::setServiceReading(bool reading)
{
    m_port.loop().call([this, reading] { m_port.setServiceReading(reading); });
}

bool GpsReceiver::addFault(const QStringList &words, QString *error)
{
    bool isAdded = false;
    m_port.loop().call([&] {
        isAdded = m_port.faults().add(words, error);
        if (isAdded) {
            m_port.note(QStringLiteral("fault ") + words.join(QLatin1Char(' ')));
        }
    });
    return isAdded;
}

void GpsReceiver::clearFaults()
{
    m_port.loop().call([this] {
        m_port.faults() = ReceiverFaults();
        m_loader.forgetRefusals();
        m_port.note(QStringLiteral("repaired"));
    });
}

QStringList GpsReceiver::faults()
{
    QStringList list;
    m_port.loop().call([this, &list] { list = m_port.faults().list(); });
    return list;
}

QString GpsReceiver::state()
{
    QString text;
    m_port.loop().call([this, &text] {
        if (!m_port.line().isOpen()) {
            text = QStringLiteral("hung up");
        } else {
            text = m_isRunning ? QStringLiteral("runs ") + m_versions.gps() : m_loader.state();
        }
        text += QStringLiteral(", %1 baud").arg(m_port.speed());
    });
    return text;
}

GpsReceiver::Progress GpsReceiver::progress()
{
    Progress progress;
    m_port.loop().call([this, &progress] {
        progress.stage = !m_port.line().isOpen() ? QStringLiteral("hung up")
            : m_isRunning                        ? QStringLiteral("run")
                                                 : m_loader.stage();
        progress.blocks = m_loader.blocks();
    });
    return progress;
}

QString GpsReceiver::portFile() const
{
    return m_folder.path(portPath);
}

bool GpsReceiver::makeLine(QString *error)
{
    if (!m_port.line().open(error)) {
        return false;
    }
    const QString path = portFile();
    QFile::remove(path);
    m_hasMadePort = QFile::link(m_port.line().port(), path);
    if (m_hasMadePort) {
        return true;
    }
    *error = QStringLiteral("\"%1\" cannot become a link to the GPS receiver's line.").arg(path);
    return false;
}

void GpsReceiver::runFirmware(int speed, bool inUse)
{
    m_port.loop().dropAll();
    m_heard.clear();
    m_isRunning = true;
    m_port.setSpeed(speed);
    m_port.setServiceReading(inUse);
    if (inUse) {
        m_port.line().discardUnread();
        m_port.line().setPortSpeed(speed);
    }
}

void GpsReceiver::hearLine()
{
    const QByteArray bytes = m_port.hear();
    for (const char byte : bytes) {
        if (m_isRunning) {
            hearSentenceByte(byte);
        } else {
            m_loader.hear(byte);
        }
    }
}

void GpsReceiver::hearSentenceByte(char byte)
{
    if (byte != '\n') {
        m_heard = (m_heard + byte).right(maxSentence);
        return;
    }
    const QByteArray sentence = m_heard.trimmed();
    m_heard.clear();
    hearSentence(sentence);
}

void GpsReceiver::hearSentence(const QByteArray &sentence)
{
    m_port.note(QStringLiteral("heard ") + QString::fromLatin1(sentence));
    if (sentence.startsWith("$CFGPRT,")) {
        configure(sentence);
    } else if (sentence == "$PDTINFO") {
        tellProduct();
    } else if (sentence.startsWith("$RESET,")) {
        reset();
    }
}

/// "$CFGPRT,<port>,<0>,<speed>,<in>,<out>".
void GpsReceiver::configure(const QByteArray &sentence)
{
    const int speed = sentence.split(',').value(3).toInt();
    if (m_port.answers(QStringLiteral("configure")) && speed > 0) {
        m_port.setSpeed(speed);
    }
}

void GpsReceiver::tellProduct()
{
    if (m_port.answers(QStringLiteral("product"))) {
        m_port.say("$PDTINFO,LODESTAR," + m_versions.gps().toLatin1() + "\r\n");
    }
}

void GpsReceiver::reset()
{
    m_port.loop().dropAll();
    m_isRunning = false;
    m_loader.stop();
    m_port.loop().after(resetMs, [this] {
        m_loader.start();
        m_port.note(QStringLiteral("reset"));
    });
}

void GpsReceiver::takeFirmware(const QByteArray &image)
{
    m_versions.setGps(ReceiverImage(image).version());
    m_port.loop().after(startMs, [this] { startFirmware(); });
}

void GpsReceiver::startFirmware()
{
    runFirmware(firmwareSpeed, false);
    m_port.note(QStringLiteral("runs ") + m_versions.gps());
    if (m_port.answers(QStringLiteral("sentences"))) {
        sendSentences();
    }
}

void GpsReceiver::sendSentences()
{
    m_port.say(m_port.faults().has(QStringLiteral("no-rmc")) ? QByteArray(position)
                                                             : QByteArray(position) + recommended);
    m_port.loop().after(sentencesMs, [this] { sendSentences(); });
}

} // namespace hardware
