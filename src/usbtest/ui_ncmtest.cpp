#include "ui_ncmtest.h"

#include "common/formwidgets.h"

#include "kvwidget/kvlockbutton.h"

#include <QGroupBox>
#include <QLabel>
#include <QTextBrowser>

namespace
{

constexpr int buttonTextSize = 24;
constexpr auto lockTextOnImage = static_cast<KvLockButton::ShowMode>(1);

QGroupBox *newGroup(QWidget *host, const char *name, const QRect &geometry)
{
    auto *group = new QGroupBox(host);
    group->setObjectName(QLatin1String(name));
    group->setGeometry(geometry);
    return group;
}

/// A button with the images of its size: btn<width>x60_n.png and …_p.png.
KvLockButton *newButton(QGroupBox *group, const char *name, const QPoint &place, int width)
{
    const QString image = QStringLiteral(":/images/btn%1x60_%2.png").arg(width);
    auto *button = new KvLockButton(group);
    button->setObjectName(QLatin1String(name));
    button->setGeometry(QRect(place, QSize(width, 60)));
    button->setNormalImage(QPixmap(image.arg(QLatin1Char('n'))));
    button->setPressImage(QPixmap(image.arg(QLatin1Char('p'))));
    button->setTextSize(buttonTextSize);
    button->setShowMode(lockTextOnImage);
    return button;
}

KvLockButton *newWideButton(QGroupBox *group, const char *name, const QPoint &place)
{
    return newButton(group, name, place, 210);
}

KvLockButton *newNarrowButton(QGroupBox *group, const char *name, const QPoint &place)
{
    return newButton(group, name, place, 140);
}

} // namespace

UI_NcmTest::UI_NcmTest()
    : notice(nullptr)
    , speedGroup(nullptr)
    , speed(nullptr)
    , ncmGroup(nullptr)
    , ncm(nullptr)
    , clientGroup(nullptr)
    , clientUdp100(nullptr)
    , clientTcp(nullptr)
    , clientStop(nullptr)
    , clientUdp50(nullptr)
    , serverGroup(nullptr)
    , serverUdp(nullptr)
    , serverTcp(nullptr)
    , serverStop(nullptr)
    , output(nullptr)
{
}

void UI_NcmTest::setupUi(QWidget *host)
{
    setupNotice(host);
    setupSwitches(host);
    setupClientGroup(host);
    setupServerGroup(host);
    setupOutput(host);
    retranslateUi();
    formwidgets::show(widgets());
}

void UI_NcmTest::retranslateUi()
{
    notice->setText(tr("Connect the accessory to an Apple device that client test"));
    speedGroup->setTitle(tr("USB Speed SW"));
    speed->setDisplayText(tr("off"));
    ncmGroup->setTitle(tr("NCM SW"));
    ncm->setDisplayText(tr("NCM On"));
    clientGroup->setTitle(tr("Client"));
    clientUdp100->setDisplayText(tr("UDP 100"));
    clientTcp->setDisplayText(tr("TCP"));
    clientStop->setDisplayText(tr("Stop"));
    clientUdp50->setDisplayText(tr("UDP 50"));
    serverGroup->setTitle(tr("Server"));
    serverUdp->setDisplayText(tr("UDP"));
    serverTcp->setDisplayText(tr("TCP"));
    serverStop->setDisplayText(tr("Stop"));
    output->setHtml(QStringLiteral("<p><br/></p>"));
}

QList<QWidget *> UI_NcmTest::widgets() const
{
    return {notice,      speedGroup,   speed,     ncmGroup,   ncm,
            clientGroup, clientUdp100, clientTcp, clientStop, clientUdp50,
            serverGroup, serverUdp,    serverTcp, serverStop, output};
}

void UI_NcmTest::setupNotice(QWidget *host)
{
    notice = new QLabel(host);
    notice->setObjectName(QStringLiteral("notice"));
    notice->setGeometry(0, 66, 800, 30);
    notice->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
    // The sheet cannot be parsed, as it always was, and the notice keeps the plain look. On a label
    // that is shown already Qt says so once only.
    notice->show();
    notice->setStyleSheet(
        QStringLiteral("background-color(212, 173, 70);color:rgb(255, 0, 0,);font-size:26px;"));
}

void UI_NcmTest::setupSwitches(QWidget *host)
{
    speedGroup = newGroup(host, "speedGroup", QRect(10, 112, 236, 90));
    speed = newWideButton(speedGroup, "speed", QPoint(13, 24));
    ncmGroup = newGroup(host, "ncmGroup", QRect(250, 112, 236, 90));
    ncm = newWideButton(ncmGroup, "ncm", QPoint(13, 24));
}

void UI_NcmTest::setupClientGroup(QWidget *host)
{
    clientGroup = newGroup(host, "clientGroup", QRect(10, 207, 476, 153));
    clientUdp100 = newWideButton(clientGroup, "clientUdp100", QPoint(253, 24));
    clientTcp = newWideButton(clientGroup, "clientTcp", QPoint(10, 88));
    clientStop = newWideButton(clientGroup, "clientStop", QPoint(253, 88));
    clientUdp50 = newWideButton(clientGroup, "clientUdp50", QPoint(13, 24));
}

void UI_NcmTest::setupServerGroup(QWidget *host)
{
    serverGroup = newGroup(host, "serverGroup", QRect(10, 365, 476, 90));
    serverUdp = newNarrowButton(serverGroup, "serverUdp", QPoint(13, 24));
    serverTcp = newNarrowButton(serverGroup, "serverTcp", QPoint(168, 24));
    serverStop = newNarrowButton(serverGroup, "serverStop", QPoint(323, 24));
}

void UI_NcmTest::setupOutput(QWidget *host)
{
    output = new QTextBrowser(host);
    output->setObjectName(QStringLiteral("output"));
    output->setGeometry(498, 112, 291, 360);
    output->setStyleSheet(
        QStringLiteral("background:transparent;color:rgb(255, 255, 255);font-size:24px;"));
    output->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}
