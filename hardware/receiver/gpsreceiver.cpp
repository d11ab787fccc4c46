#include "gpsreceiver.h"

#include "receiverimage.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/unitfolder.h"
#include "hardware/unit/versions.h"
#include "hardware/unit/wholefile.h"

#include <QDir>
#include <QFile>

namespace hardware
{

namespace
{

const auto portPath = QStringLiteral("/dev/ttyS3");
const auto imageFolder = QStringLiteral("/receiver");

const int serviceSpeed = 230400; // what the unit's service has set
const int firmwareSpeed = 9600;

const auto bootloader = QStringLiteral("bootloader");
const auto firmware = QStringLiteral("firmware");

const char escape[] = "M!T";
const int longestSentence = 256;

// What the receiver takes its time for, in milliseconds.
const int resetMs = 100;
const int answerMs = 20;
const int firstRequestMs = 200;
const int requestMs = 1000;
const int promptMs = 200;
const int splitMs = 300;
const int eraseMs = 100;
const int startMs = 300;
const int sentencesMs = 1000;

const char noise[] = "~#\x01\x7F";

const char menu[] = "\r\nLODESTAR boot loader\r\n 1: run\r\n 2: update flash\r\n";
const char position[] = "$GNGGA,120000.00,4807.038,N,01131.000,E,1,08,0.9,545.4,M,46.9,M,,*59\r\n";
const char recommended[] = "$GNRMC,120000.00,A,4807.038,N,01131.000,E,0.02,31.66,230394,,,A*4E\r\n";

} // namespace

GpsReceiver::GpsReceiver(const UnitFolder &folder, const Clock &clock, Journal &journal,
                         Versions &versions)
    : m_folder(folder)
    , m_journal(journal)
    , m_versions(versions)
    , m_line(clock)
    , m_loop(clock)
{
}

GpsReceiver::~GpsReceiver()
{
    m_loop.stop();
    QFile::remove(portFile());
}

bool GpsReceiver::open(QString *error)
{
    if (!makeLine(error)) {
        return false;
    }
    runFirmware(serviceSpeed, true);
    m_loop.start([this] { return m_line.descriptor(); }, [this] { hearLine(); },
                 [this] { m_line.watchSpeed(); });
    return true;
}

void GpsReceiver::restart()
{
    m_loop.call([this] {
        QString error;
        if (!m_line.isOpen() && !makeLine(&error)) {
            note(error);
            return;
        }
        runFirmware(serviceSpeed, true);
        note(QStringLiteral("runs ") + m_versions.gps());
    });
}

void GpsReceiver::setServiceReading(bool reading)
{
    m_loop.call([this, reading] { m_serviceReads = reading; });
}

bool GpsReceiver::addFault(const QStringList &words, QString *error)
{
    bool isAdded = false;
    m_loop.call([&] {
        isAdded = m_faults.add(words, error);
        if (isAdded) {
            note(QStringLiteral("fault ") + words.join(QLatin1Char(' ')));
        }
    });
    return isAdded;
}

void GpsReceiver::clearFaults()
{
    m_loop.call([this] {
        m_faults = ReceiverFaults();
        m_transfer.refuse({});
        note(QStringLiteral("repaired"));
    });
}

QStringList GpsReceiver::faults()
{
    QStringList list;
    m_loop.call([this, &list] { list = m_faults.list(); });
    return list;
}

QString GpsReceiver::state()
{
    QString text;
    m_loop.call([this, &text] {
        if (!m_line.isOpen()) {
            text = QStringLiteral("hung up");
        } else if (m_stage == Stage::Loading) {
            text = QStringLiteral("takes the %1, %2 blocks so far")
                       .arg(m_part)
                       .arg(m_transfer.block());
        } else if (m_stage == Stage::Running) {
            text = QStringLiteral("runs ") + m_versions.gps();
        } else if (m_stage == Stage::BootPrompt) {
            text = QStringLiteral("waits at its boot prompt");
        } else {
            text = QStringLiteral("is in its ROM");
        }
        text += QStringLiteral(", %1 baud").arg(m_speed);
    });
    return text;
}

QString GpsReceiver::portFile() const
{
    return m_folder.path(portPath);
}

bool GpsReceiver::makeLine(QString *error)
{
    if (!m_line.open(error)) {
        return false;
    }
    const QString path = portFile();
    QFile::remove(path);
    if (QFile::link(m_line.port(), path)) {
        return true;
    }
    *error = QStringLiteral("\"%1\" cannot become a link to the GPS receiver's line.").arg(path);
    return false;
}

void GpsReceiver::runFirmware(int speed, bool inUse)
{
    m_loop.dropAll();
    m_heard.clear();
    m_stage = Stage::Running;
    m_speed = speed;
    m_serviceReads = inUse;
    if (inUse) {
        m_line.discardUnread();
        m_line.setPortSpeed(speed);
    }
}

void GpsReceiver::hearLine()
{
    const QByteArray bytes = m_line.hear(m_speed);
    for (const char byte : bytes) {
        hear(byte);
    }
}

void GpsReceiver::hear(char byte)
{
    switch (m_stage) {
    case Stage::Running:
        hearSentenceByte(byte);
        break;
    case Stage::Resetting:
        break;
    case Stage::Rom:
        hearEscapeByte(byte);
        break;
    case Stage::Loading:
        hearFrameByte(byte);
        break;
    case Stage::BootPrompt:
        hearMenuByte(byte);
        break;
    }
}

void GpsReceiver::hearSentenceByte(char byte)
{
    if (byte != '\n') {
        m_heard = (m_heard + byte).right(longestSentence);
        return;
    }
    const QByteArray sentence = m_heard.trimmed();
    m_heard.clear();
    hearSentence(sentence);
}

void GpsReceiver::hearSentence(const QByteArray &sentence)
{
    note(QStringLiteral("heard ") + QString::fromLatin1(sentence));
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
    if (answers(QStringLiteral("configure")) && speed > 0) {
        m_speed = speed;
    }
}

void GpsReceiver::tellProduct()
{
    if (answers(QStringLiteral("product"))) {
        say("$PDTINFO,LODESTAR," + m_versions.gps().toLatin1() + "\r\n");
    }
}

void GpsReceiver::reset()
{
    m_loop.dropAll();
    m_stage = Stage::Resetting;
    m_loop.after(resetMs, [this] {
        m_stage = Stage::Rom;
        m_heard.clear();
        note(QStringLiteral("reset"));
    });
}

void GpsReceiver::hearEscapeByte(char byte)
{
    m_heard = (m_heard + byte).right(int(qstrlen(escape)));
    if (m_heard == escape) {
        m_heard.clear();
        enterLoader();
    }
}

void GpsReceiver::enterLoader()
{
    note(QStringLiteral("ROM loader"));
    if (!answers(QStringLiteral("loader"))) {
        m_stage = Stage::Resetting;
        return;
    }
    if (!m_faults.has(QStringLiteral("no-yc"))) {
        const bool isSplit = m_faults.has(QStringLiteral("split-yc"));
        m_loop.after(answerMs, [this, isSplit] { say(isSplit ? "Y" : "YC"); });
        if (isSplit) {
            m_loop.after(answerMs + splitMs, [this] { say("C"); });
        }
    }
    beginTransfer(bootloader);
}

void GpsReceiver::hearMenuByte(char byte)
{
    m_heard = (m_heard + byte).right(2);
    if (m_heard == "2\r") {
        m_heard.clear();
        selectFlash();
    }
}

void GpsReceiver::selectFlash()
{
    note(QStringLiteral("menu 2"));
    if (!answers(QStringLiteral("menu"))) {
        m_stage = Stage::Resetting;
        return;
    }
    m_loop.after(eraseMs, [this] { say("2\r\nbegin to update flash from uart\r\n"); });
    beginTransfer(firmware);
}

void GpsReceiver::beginTransfer(const QString &part)
{
    m_stage = Stage::Loading;
    m_part = part;
    m_transfer = XmodemReceiver();
    m_transfer.refuse(m_faults.refusals(part));
    if (answers(part)) {
        m_loop.after(splitMs + firstRequestMs, [this] { requestFrame(); });
    }
}

void GpsReceiver::requestFrame()
{
    if (m_stage != Stage::Loading || m_transfer.hasBegun()) {
        return;
    }
    QByteArray request;
    const int noiseBytes = m_faults.number(QStringLiteral("noise"));
    for (int index = 0; index < noiseBytes; ++index) {
        request += noise[index % int(qstrlen(noise))];
    }
    say(request + XmodemReceiver::request);
    m_loop.after(requestMs, [this] { requestFrame(); });
}

void GpsReceiver::hearFrameByte(char byte)
{
    switch (m_transfer.take(byte)) {
    case XmodemReceiver::Event::Nothing:
        break;
    case XmodemReceiver::Event::Accepted:
    case XmodemReceiver::Event::Repeated:
        answerBlock(XmodemReceiver::ack);
        break;
    case XmodemReceiver::Event::Refused:
        note(QStringLiteral("%1 block %2 %3")
                 .arg(m_part)
                 .arg(m_transfer.block() + 1)
                 .arg(m_transfer.problem()));
        say(QByteArray(1, XmodemReceiver::nak));
        break;
    case XmodemReceiver::Event::Ended:
        answerEnd();
        break;
    }
}

void GpsReceiver::answerBlock(char usualAnswer)
{
    if (!answers(m_part, m_transfer.block())) {
        return;
    }
    const bool isGarbage = m_faults.isGarbage(m_part, m_transfer.block());
    say(QByteArray(1, isGarbage ? noise[0] : usualAnswer));
}

void GpsReceiver::answerEnd()
{
    if (!ReceiverImage(m_transfer.data()).isFilledUpRight()) {
        note(m_part + QStringLiteral(" has a last block that is not filled up with 1A"));
        say(QByteArray(1, XmodemReceiver::nak));
    } else if (answers(QStringLiteral("eot"))) {
        m_stage = Stage::Resetting;
        m_loop.dropAll();
        m_loop.after(m_faults.number(QStringLiteral("late-eot")), [this] {
            say(QByteArray(1, XmodemReceiver::ack));
            endTransfer();
        });
    }
}

void GpsReceiver::endTransfer()
{
    const QByteArray image = ReceiverImage(m_transfer.data()).content();
    note(QStringLiteral("%1 received, %2 blocks, %3 bytes")
             .arg(m_part)
             .arg(m_transfer.block())
             .arg(image.size()));
    if (!keepImage(m_part, image)) {
        note(QStringLiteral("cannot write ") + imageFile(m_part));
    }
    if (m_part == bootloader) {
        m_loop.after(promptMs, [this] { showPrompt(); });
    } else {
        m_versions.setGps(ReceiverImage(image).version());
        m_loop.after(startMs, [this] { startFirmware(); });
    }
}

void GpsReceiver::showPrompt()
{
    m_heard.clear();
    m_stage = Stage::BootPrompt;
    if (!answers(QStringLiteral("prompt"))) {
        m_stage = Stage::Resetting;
    } else if (m_faults.has(QStringLiteral("split-prompt"))) {
        say(QByteArray(menu) + "bo");
        m_loop.after(splitMs, [this] { say("ot> "); });
    } else {
        say(QByteArray(menu) + "boot> ");
    }
}

void GpsReceiver::startFirmware()
{
    runFirmware(firmwareSpeed, false);
    note(QStringLiteral("runs ") + m_versions.gps());
    if (answers(QStringLiteral("sentences"))) {
        sendSentences();
    }
}

void GpsReceiver::sendSentences()
{
    say(m_faults.has(QStringLiteral("no-rmc")) ? QByteArray(position)
                                               : QByteArray(position) + recommended);
    m_loop.after(sentencesMs, [this] { sendSentences(); });
}

/// Whether the receiver answers in that stage, at that block; a fault that says otherwise is
/// carried out.
bool GpsReceiver::answers(const QString &stage, int block)
{
    if (m_faults.hangsUp(stage, block)) {
        note(QStringLiteral("hangs up at ") + stage);
        m_loop.dropAll();
        m_line.hangUp();
        return false;
    }
    const bool isSilent = m_faults.isSilent(stage, block);
    if (isSilent) {
        note(QStringLiteral("silent at ") + stage);
    }
    return !isSilent;
}

void GpsReceiver::say(const QByteArray &bytes)
{
    if (!m_serviceReads) {
        m_line.say(bytes, m_speed);
    }
}

void GpsReceiver::note(const QString &text)
{
    m_journal.write(QStringLiteral("receiver"), text);
}

QString GpsReceiver::imageFile(const QString &part) const
{
    return m_folder.path(imageFolder + QLatin1Char('/') + part + QStringLiteral(".pkg"));
}

bool GpsReceiver::keepImage(const QString &part, const QByteArray &image)
{
    QDir().mkpath(m_folder.path(imageFolder));
    QString reason;
    if (wholefile::replace(imageFile(part), image, &reason)) {
        return true;
    }
    m_journal.reportFailedWrite(imageFile(part), reason);
    return false;
}

} // namespace hardware
