#include "ncmtestview.h"

#include "ui_ncmtest.h"

#include "common/formwidgets.h"
#include "common/runcommand.h"

#include "kvwidget/kvlockbutton.h"
#include "service/kvplatformcontrol.h"

#include <QTextBrowser>

#include <cstring>

using kvplfctrl::KVPlatformControl;

namespace
{

constexpr const char *quietLogCommand = "logset ALOG_OUTPUT n";
constexpr const char *quietConsoleCommand = "echo 0 > /proc/sys/kernel/printk";
constexpr const char *endServerCommand = "killall as_server";

constexpr char udpClient50Id[] = "C_UPD50";
constexpr char udpClient100Id[] = "C_UPD100";
constexpr char tcpClientId[] = "C_TCP";
constexpr char clientStopId[] = "C_STOP";
constexpr char udpServerId[] = "S_UDP";
constexpr char tcpServerId[] = "S_TCP";
constexpr char serverStopId[] = "S_STOP";

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
    , platformControl(nullptr)
    , result(0)
    , state(0)
{
    std::memset(text, 0, sizeof text);
    ui->setupUi(parent);
    if (platformControl == nullptr) {
        platformControl = KVPlatformControl::GetInstance();
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
    ui->clientUdp50->setButtonID(QString::fromLatin1(udpClient50Id));
    ui->clientUdp100->setButtonID(QString::fromLatin1(udpClient100Id));
    ui->clientTcp->setButtonID(QString::fromLatin1(tcpClientId));
    ui->clientStop->setButtonID(QString::fromLatin1(clientStopId));
    ui->serverUdp->setButtonID(QString::fromLatin1(udpServerId));
    ui->serverTcp->setButtonID(QString::fromLatin1(tcpServerId));
    ui->serverStop->setButtonID(QString::fromLatin1(serverStopId));

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
    if (id == QLatin1String(udpClient50Id)) {
        result = platformControl->startUdpTestClient50();
    } else if (id == QLatin1String(udpClient100Id)) {
        result = platformControl->startUdpTestClient100();
    } else if (id == QLatin1String(tcpClientId)) {
        result = platformControl->startTcpTestClient();
    } else if (id == QLatin1String(clientStopId)) {
        result = platformControl->stopTest();
    }
}

void NCMTestView::clickedServer(QString id)
{
    resetServerBtn(id);
    if (id == QLatin1String(udpServerId)) {
        result = platformControl->startUdpTestServer();
    } else if (id == QLatin1String(tcpServerId)) {
        result = platformControl->startTcpTestServer();
    } else if (id == QLatin1String(serverStopId)) {
        result = platformControl->stopTest();
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
