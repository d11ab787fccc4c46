#include "receiverloader.h"

#include "receiverimage.h"
#include "receiverport.h"

#include "hardware/unit/journal.h"
#include "hardware/unit/unitfolder.h"
#include "hardware/unit/wholefile.h"

#include <QDir>

namespace hardware
{

namespace
{

const QLatin1String imageFolder("/receiver");

const QLatin1String bootloader("bootloader");
const QLatin1String firmware("firmware");

const char escape[] = "M!T";

// What the receiver takes its time for, in milliseconds.
const int answerMs = 20;
const int firstRequestMs = 200;
const int requestMs = 1000;
const int promptMs = 200;
const int splitMs = 300;
const int eraseMs = 100;

const char noiseText[] = "~#\x01\x7F";

const char menu[] = "\r\nLODESTAR boot loader\r\n 1: run\r\n 2: update flash\r\n";

} // namespace

ReceiverLoader::ReceiverLoader(ReceiverPort &port, const UnitFolder &folder, Journal &journal,
                               const std::function<void(const QByteArray &image)> &loaded)
    : m_port(port)
    , m_folder(folder)
    , m_journal(journal)
    , m_loaded(loaded)
{
}

void ReceiverLoader::stop()
{
    m_stage = Stage::Deaf;
}

void ReceiverLoader::start()
{
    m_stage = Stage::Rom;
    m_heard.clear();
    m_rest.clear();
}

void ReceiverLoader::hear(char byte)
{
    switch (m_stage) {
    case Stage::Deaf:
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

void ReceiverLoader::forgetRefusals()
{
    m_transfer.refuse({});
}

QString ReceiverLoader::state() const
{
    if (m_stage == Stage::Loading) {
        return QStringLiteral("takes the %1, %2 blocks so far").arg(m_part).arg(m_transfer.block());
    }
    return m_stage == Stage::BootPrompt ? QStringLiteral("waits at its boot prompt")
                                        : QStringLiteral("is in its ROM");
}

QString ReceiverLoader::stage() const
{
    switch (m_stage) {
    case Stage::Rom:
        return QStringLiteral("rom");
    case Stage::Loading:
        return m_part;
    case Stage::BootPrompt:
        return QStringLiteral("prompt");
    case Stage::Deaf:
        break;
    }
    return QStringLiteral("restart");
}

int ReceiverLoader::blocks() const
{
    return m_transfer.block();
}

void ReceiverLoader::hearEscapeByte(char byte)
{
    m_heard = (m_heard + byte).right(int(qstrlen(escape)));
    if (m_heard == escape) {
        m_heard.clear();
        enterLoader();
    }
}

void ReceiverLoader::enterLoader()
{
    m_port.note(QStringLiteral("ROM loader"));
    if (!m_port.answers(QStringLiteral("loader"))) {
        m_stage = Stage::Deaf;
        return;
    }
    if (!m_port.faults().has(QStringLiteral("no-yc"))) {
        const bool isSplit = m_port.faults().has(QStringLiteral("split-yc"));
        m_port.loop().after(answerMs, [this, isSplit] { m_port.say(isSplit ? "Y" : "YC"); });
        if (isSplit) {
            m_rest = "C";
            m_port.loop().after(answerMs + splitMs, [this] { sayRest(); });
        }
    }
    beginTransfer(bootloader);
}

void ReceiverLoader::hearMenuByte(char byte)
{
    m_heard = (m_heard + byte).right(2);
    if (m_heard == "2\r") {
        m_heard.clear();
        selectFlash();
    }
}

void ReceiverLoader::selectFlash()
{
    m_port.note(QStringLiteral("menu 2"));
    if (!m_port.answers(QStringLiteral("menu"))) {
        m_stage = Stage::Deaf;
        return;
    }
    m_port.loop().after(eraseMs,
                        [this] { m_port.say("2\r\nbegin to update flash from uart\r\n"); });
    beginTransfer(firmware);
}

void ReceiverLoader::beginTransfer(const QString &part)
{
    m_stage = Stage::Loading;
    m_part = part;
    m_transfer = XmodemReceiver();
    m_transfer.refuse(m_port.faults().refusals(part));
    if (m_port.answers(part)) {
        m_port.loop().after(splitMs + firstRequestMs, [this] { requestFrame(); });
    }
}

void ReceiverLoader::requestFrame()
{
    if (!m_rest.isEmpty()) {
        m_port.loop().after(requestMs, [this] { requestFrame(); });
        return;
    }
    if (m_stage != Stage::Loading || m_transfer.hasBegun()) {
        return;
    }
    QByteArray request;
    const int noiseBytes = m_port.faults().number(QStringLiteral("noise"));
    for (int index = 0; index < noiseBytes; ++index) {
        request += noiseText[index % int(qstrlen(noiseText))];
    }
    m_port.say(request + XmodemReceiver::request);
    m_port.loop().after(requestMs, [this] { requestFrame(); });
}

void ReceiverLoader::hearFrameByte(char byte)
{
    switch (m_transfer.take(byte)) {
    case XmodemReceiver::Event::Nothing:
        break;
    case XmodemReceiver::Event::Accepted:
    case XmodemReceiver::Event::Repeated:
        answerBlock(XmodemReceiver::ack);
        break;
    case XmodemReceiver::Event::Refused:
        m_port.note(QStringLiteral("%1 block %2 %3")
                        .arg(m_part)
                        .arg(m_transfer.block() + 1)
                        .arg(m_transfer.problem()));
        m_port.say(QByteArray(1, XmodemReceiver::nak));
        break;
    case XmodemReceiver::Event::Ended:
        answerEnd();
        break;
    }
}

void ReceiverLoader::answerBlock(char defaultAnswer)
{
    if (!m_port.answers(m_part, m_transfer.block())) {
        return;
    }
    const bool isGarbage = m_port.faults().isGarbage(m_part, m_transfer.block());
    if (isGarbage) {
        m_port.note(QStringLiteral("%1 block %2 is answered with garbage")
                        .arg(m_part)
                        .arg(m_transfer.block()));
    }
    m_port.say(QByteArray(1, isGarbage ? noiseText[0] : defaultAnswer));
}

void ReceiverLoader::answerEnd()
{
    if (!ReceiverImage(m_transfer.data()).isFilledUpRight()) {
        m_port.note(m_part + QStringLiteral(" has a last block that is not filled up with 1A"));
        m_port.say(QByteArray(1, XmodemReceiver::nak));
    } else if (m_port.answers(QStringLiteral("eot"))) {
        m_stage = Stage::Deaf;
        m_port.loop().dropAll();
        m_port.loop().after(m_port.faults().number(QStringLiteral("late-eot")), [this] {
            m_port.say(QByteArray(1, XmodemReceiver::ack));
            endTransfer();
        });
    }
}

void ReceiverLoader::endTransfer()
{
    const QByteArray image = ReceiverImage(m_transfer.data()).content();
    m_port.note(QStringLiteral("%1 received, %2 blocks, %3 bytes")
                    .arg(m_part)
                    .arg(m_transfer.block())
                    .arg(image.size()));
    if (!keepImage(image)) {
        m_port.note(QStringLiteral("cannot write ") + imageFile());
    }
    if (m_part == bootloader) {
        m_port.loop().after(promptMs, [this] { showPrompt(); });
    } else {
        m_loaded(image);
    }
}

void ReceiverLoader::showPrompt()
{
    m_heard.clear();
    m_stage = Stage::BootPrompt;
    if (!m_port.answers(QStringLiteral("prompt"))) {
        m_stage = Stage::Deaf;
    } else if (m_port.faults().has(QStringLiteral("split-prompt"))) {
        m_port.say(QByteArray(menu) + "bo");
        m_rest = "ot> ";
        m_port.loop().after(splitMs, [this] { sayRest(); });
    } else {
        m_port.say(QByteArray(menu) + "boot> ");
    }
}

/// The second piece of an answer waits for its reader: on a host that stands still meanwhile, both
/// pieces would come as one.
void ReceiverLoader::sayRest()
{
    if (m_port.line().hasUnread()) {
        m_port.loop().after(answerMs, [this] { sayRest(); });
        return;
    }
    m_port.say(m_rest);
    m_rest.clear();
}

QString ReceiverLoader::imageFile() const
{
    return m_folder.path(imageFolder + QLatin1Char('/') + m_part + QStringLiteral(".pkg"));
}

bool ReceiverLoader::keepImage(const QByteArray &image)
{
    QDir().mkpath(m_folder.path(imageFolder));
    QString reason;
    if (wholefile::replace(imageFile(), image, &reason)) {
        return true;
    }
    m_journal.reportFailedWrite(imageFile(), reason);
    return false;
}

} // namespace hardware
