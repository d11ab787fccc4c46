#include "csysctrlpage.h"

#include "ctouchcheckpage.h"
#include "systemlogcopy.h"
#include "ui_csysctrlform.h"

#include "common/blackpage.h"
#include "common/runcommand.h"
#include "common/storedsetting.h"

#include "dab/dabmodule.h"
#include "gps/cgpsmodule.h"
#include "kvappframework/modulemanager.h"
#include "mcu/cmsgclass.h"
#include "service/datasavecontrol.h"
#include "service/setupstridconst.h"

#include <unistd.h>

namespace
{

/// Status codes of the DAB service.
enum DabStatus {
    DabUpdating = 7,
    DabUpdateFailed = 8,
    DabUpdateSucceeded = 9,
};

/// States of the log-copy button.
enum CopyState {
    CopyDisabled = 0,
    CopyReady = 1,
    CopyRunning = 2,
};

constexpr unsigned int secondsBeforeReboot = 1;

/// Null in a unit without a DAB service. The framework's module keeps it alive.
DabModule *dabModule()
{
    const auto plugin = qSharedPointerDynamicCast<DabModulePlugin>(
        kvappframework::ModuleManager::self()->getModule(QStringLiteral("dab")));
    return plugin.isNull() ? nullptr : plugin->getDabModule();
}

void rebootSoon()
{
    sleep(secondsBeforeReboot);
    CMsgClass::getInstance()->setSysReboot();
}

} // namespace

CSysCtrlPage::CSysCtrlPage(QRect rect, KvWidget *parent)
    : KvWidget(parent)
    , ui(new Ui_CSysCtrlForm)
{
    setGeometry(rect);
    ui->setupUi(this);
    makeBlackPage(this);
    connectButtons();
    showCertification();
    initDab();
    initStorage();
    if (!hasSystemLogs()) {
        setmCopyBtnState(CopyDisabled);
    }
}

CSysCtrlPage::~CSysCtrlPage()
{
    exitTouchPageSlot();
}

void CSysCtrlPage::connectButtons()
{
    connect(ui->CertificationBtn, &CBoolButton::btnReleased, this,
            &CSysCtrlPage::boolBtnReleasedSlot);
    for (KvIconButton *button : {ui->gpsRstBtn, ui->copyBtn, ui->dabBtn, ui->touchBtn}) {
        connect(button, &KvIconButton::btnReleased, this, &CSysCtrlPage::btnReleasedSlot);
    }
}

void CSysCtrlPage::showCertification()
{
    const QVariant stored = storedSetting(SetupStrIdConst::sysCtrlCertificationSwitch);
    ui->CertificationBtn->setState(stored.toBool());
}

void CSysCtrlPage::initDab()
{
    DabModule *dab = dabModule();
    if (dab == nullptr) {
        return;
    }
    connect(dab, &DabModule::dabMsgToOtherModule, this, &CSysCtrlPage::doDabMsg,
            Qt::BlockingQueuedConnection);
    switch (dab->m_DAB_GetCurrentStatus()) {
    case DabUpdating:
        showDabRunning(dab);
        break;
    case DabUpdateFailed:
    case DabUpdateSucceeded:
        break;
    default:
        setDabFace(tr("DAB FW Updata \n") + dab->DAB_GetSdkVersion(), true);
        break;
    }
}

void CSysCtrlPage::initStorage()
{
    CMsgClass *msg = CMsgClass::getInstance();
    rootPath.clear();
    msg->getDevRootPath(rootPath);
    connect(msg, &CMsgClass::sigDevRootPath, this, &CSysCtrlPage::uDevRootPathSlot);
    uDevRootPathSlot(rootPath);
}

void CSysCtrlPage::setmCopyBtnState(int state)
{
    const bool disabled = state != CopyReady && state != CopyRunning;
    ui->copyBtn->setDisableState(disabled);
    ui->copyBtn->setDisplayText(state == CopyRunning ? tr("COPYING...") : tr("SYSTEMLOG"));
    ui->copyBtn->setEnabled(!disabled);
    // At once: the copy blocks the screen.
    ui->copyBtn->repaint();
}

int CSysCtrlPage::checkOutSystemLog2UDisk(const char *rootPath)
{
    return copySystemLogs(rootPath) ? 1 : 0;
}

void CSysCtrlPage::setDabFace(const QString &text, bool disabled)
{
    ui->dabBtn->setDisplayText(text);
    ui->dabBtn->setDisableState(disabled);
}

void CSysCtrlPage::showDabRunning(DabModule *dab)
{
    setDabFace(tr("DAB updata ...\n") + dab->DAB_GetSdkVersion(), true);
}

void CSysCtrlPage::showDabEnd(const QString &outcome)
{
    ui->dabBtn->setDisplayText(outcome + tr("Please reboot!"));
    // Without storage the button stays as it is.
    if (!rootPath.isEmpty()) {
        ui->dabBtn->setDisableState(false);
    }
}

void CSysCtrlPage::uDevRootPathSlot(QString path)
{
    rootPath = path;
    setmCopyBtnState(path.isEmpty() ? CopyDisabled : CopyReady);
    DabModule *dab = dabModule();
    if (dab != nullptr && dab->m_DAB_GetCurrentStatus() != DabUpdating) {
        ui->dabBtn->setDisableState(path.isEmpty());
    }
}

void CSysCtrlPage::boolBtnReleasedSlot(QString id, bool state)
{
    if (id != ui->CertificationBtn->buttonID()) {
        return;
    }
    DataSaveControl::saveSettingData(SetupStrIdConst::sysCtrlCertificationSwitch, state, QString());
    runCommand("sync");
    emit sigShowMaskBg();
    rebootSoon();
}

void CSysCtrlPage::btnReleasedSlot(QString id)
{
    if (id == ui->gpsRstBtn->buttonID()) {
        resetGps();
    } else if (id == ui->copyBtn->buttonID()) {
        copyLogs();
    } else if (id == ui->dabBtn->buttonID()) {
        updateDab();
    } else if (id == ui->touchBtn->buttonID()) {
        openTouchPage();
    }
}

void CSysCtrlPage::resetGps()
{
    CGpsModule::getInstance()->clearGpsConfig();
    runCommand("sync");
    rebootSoon();
}

void CSysCtrlPage::copyLogs()
{
    setmCopyBtnState(CopyRunning);
    checkOutSystemLog2UDisk(rootPath.toLocal8Bit().constData());
    setmCopyBtnState(CopyReady);
}

void CSysCtrlPage::updateDab()
{
    DabModule *dab = dabModule();
    if (dab == nullptr || dab->m_DAB_GetCurrentStatus() == DabUpdating) {
        return;
    }
    showDabRunning(dab);
    dab->m_DAB_FwUpdate(rootPath.toLocal8Bit().constData());
}

void CSysCtrlPage::openTouchPage()
{
    // One that is open already is forgotten.
    touchPage = new CTouchCheckPage(nullptr);
    connect(touchPage.data(), &CTouchCheckPage::sigExitPage, this,
            &CSysCtrlPage::exitTouchPageSlot);
    touchPage->show();
    touchPage->raise();
}

void CSysCtrlPage::exitTouchPageSlot()
{
    if (touchPage != nullptr) {
        touchPage->deleteLater();
        touchPage = nullptr;
    }
}

void CSysCtrlPage::doDabMsg(unsigned char code)
{
    DabModule *dab = dabModule();
    if (dab == nullptr) {
        return;
    }
    switch (code) {
    case DabUpdating:
        showDabRunning(dab);
        break;
    case DabUpdateFailed:
        showDabEnd(tr("DAB updata Fail\n"));
        break;
    case DabUpdateSucceeded:
        showDabEnd(tr("DAB updata ok\n"));
        break;
    default:
        break;
    }
}
