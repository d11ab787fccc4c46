#include "ncmtestview.h"

#include "formwidgets.h"
#include "runcommand.h"
#include "ui_ncmtest.h"

#include "kvwidget/kvlockbutton.h"
#include "service/kvplatformcontrol.h"

#include <QTextBrowser>

#include <cstring>

using kvplfctrl::KVPlatformControl;

namespace
{

const char *const quietLogCommand = "logset ALOG_OUTPUT n";
const char *const quietConsoleCommand = "echo 0 > /proc/sys/kernel/printk";
const char *const endServerCommand = "killall as_server";

const QString udpClient50Id = QStringLiteral("C_UPD50");
const QString udpClient100Id = QStringLiteral("C_UPD100");
const QString tcpClientId = QStringLiteral("C_TCP");
const QString clientStopId = QStringLiteral("C_STOP");
const QString udpServerId = QStringLiteral("S_UDP");
const QString tcpServerId = QStringLiteral("S_TCP");
const QString serverStopId = QStringLiteral("S_STOP");

bool isIdOf(const QList<KvLockButton *> &buttons, const QString &id)
{
    for (const KvLockButton *button : buttons) {
        if (button->buttonID() == id) {
            return true;
        }
    }
    return false;
}

} // namespace

NCMTestView::NCMTestView(QWidget *parent)
    : QObject(parent)
    , ui(new UI_NcmTest)
    , m_platformControl(nullptr)
    , m_result(0)
    , m_state(0)
{
    std::memset(m_text, 0, sizeof m_text);
    ui->setupUi(parent);
    if (m_platformControl == nullptr) {
        m_platformControl = KVPlatformControl::GetInstance();
    }
    initWidget();
    runCommand(quietLogCommand);
    runCommand(quietConsoleCommand);
    runCommand(endServerCommand);
}

NCMTestView::~NCMTestView()
{
    formwidgets::dismiss(ui->widgets());
}

void NCMTestView::initWidget()
{
    ui->clientUdp50->setButtonID(udpClient50Id);
    ui->clientUdp100->setButtonID(udpClient100Id);
    ui->clientTcp->setButtonID(tcpClientId);
    ui->clientStop->setButtonID(clientStopId);
    ui->serverUdp->setButtonID(udpServerId);
    ui->serverTcp->setButtonID(tcpServerId);
    ui->serverStop->setButtonID(serverStopId);

    connect(ui->speed, &KvLockButton::btnReleased, this, &NCMTestView::clickedSpeedOff);
    connect(ui->ncm, &KvLockButton::btnReleased, this, &NCMTestView::clickedNcmOn);
    const QList<KvLockButton *> clients = clientButtons();
    for (const KvLockButton *button : clients) {
        connect(button, &KvLockButton::btnReleased, this, &NCMTestView::clickedClient);
    }
    const QList<KvLockButton *> servers = serverButtons();
    for (const KvLockButton *button : servers) {
        connect(button, &KvLockButton::btnReleased, this, &NCMTestView::clickedServer);
    }
    ui->output->clear();
}

void NCMTestView::resetClientBtn(QString id)
{
    releaseOthers(clientButtons(), id);
}

void NCMTestView::resetServerBtn(QString id)
{
    releaseOthers(serverButtons(), id);
}

void NCMTestView::clickedSpeedOff()
{
}

void NCMTestView::clickedNcmOn()
{
    runCommand(endServerCommand);
}

void NCMTestView::clickedClient(QString id)
{
    resetClientBtn(id);
    if (id == udpClient50Id) {
        m_result = m_platformControl->startUdpTestClient50();
    } else if (id == udpClient100Id) {
        m_result = m_platformControl->startUdpTestClient100();
    } else if (id == tcpClientId) {
        m_result = m_platformControl->startTcpTestClient();
    } else if (id == clientStopId) {
        m_result = m_platformControl->stopTest();
    }
}

void NCMTestView::clickedServer(QString id)
{
    resetServerBtn(id);
    if (id == udpServerId) {
        m_result = m_platformControl->startUdpTestServer();
    } else if (id == tcpServerId) {
        m_result = m_platformControl->startTcpTestServer();
    } else if (id == serverStopId) {
        m_result = m_platformControl->stopTest();
    }
}

QList<KvLockButton *> NCMTestView::clientButtons() const
{
    return {ui->clientUdp50, ui->clientUdp100, ui->clientTcp, ui->clientStop};
}

QList<KvLockButton *> NCMTestView::serverButtons() const
{
    return {ui->serverUdp, ui->serverTcp, ui->serverStop};
}

void NCMTestView::releaseOthers(const QList<KvLockButton *> &pressedAmong, const QString &id)
{
    if (!isIdOf(pressedAmong, id)) {
        return;
    }
    const QList<KvLockButton *> all = clientButtons() + serverButtons();
    for (KvLockButton *button : all) {
        if (button->buttonID() != id) {
            button->setIsDown(false);
        }
    }
}
