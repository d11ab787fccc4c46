#include "gpscomage.h"

#include "cgpsfwinfo.h"
#include "gpsfilecheck.h"
#include "gpsupgrade.h"

#include "common/blackpage.h"
#include "common/fileexists.h"
#include "common/runcommand.h"
#include "common/trace.h"

#include "gps/cgpsmodule.h"
#include "kvappframework/activitymanager.h"
#include "kvappframework/uimanager.h"
#include "mcu/cmsgclass.h"
#include "service/printlogex.h"
#include "service/threadpool.h"
#include "service/usbcontrol.h"

#include <sys/stat.h>
#include <unistd.h>

using namespace kvappframework;

namespace
{

constexpr char checkTask[] = "threadGpsUpdateId";
constexpr auto clickTone = static_cast<e_clickType>(0);

enum CheckResult { FilesValid = 0, FilesInvalid = 1 };

} // namespace

CGpsComPage *CGpsComPage::staticWinPtr = nullptr;

CGpsComPage::CGpsComPage(QWidget *parent)
    : BaseView(QStringLiteral("setup system version"), parent)
    , fwInfo(nullptr)
{
    staticWinPtr = this;
    setGeometry(UIManager::getDeskTopRect());
    makeBlackPage(this, "background-color:rgba(0, 0, 0, 255);");
    FACTORY_TRACE << "CGpsComPage::CGpsComPage";
    fwInfo = new CGpsFwInfo(UIManager::getDeskTopRect(), this);
    // Else it would come up with the page, which is shown even while it is already closing.
    fwInfo->hide();
    checkUdiskFileState();
    connect(fwInfo, &CGpsFwInfo::sigUpdate, this, &CGpsComPage::updateSlot, Qt::QueuedConnection);
    connect(fwInfo, &CGpsFwInfo::showSystemInfo, this, &CGpsComPage::returnSlot);
    setSystemVerPageState(true);
    connect(CMsgClass::getInstance(), &CMsgClass::sigDevRootPath, this,
            &CGpsComPage::updateUdiskStateSlot, Qt::QueuedConnection);
    connect(this, &CGpsComPage::sigCheckSoftResult, this, &CGpsComPage::softCheckResultSlot);
    showSystemNewFwInfoSlot();
}

CGpsComPage::~CGpsComPage()
{
    FACTORY_TRACE << "CGpsComPage::~CGpsComPage";
    ThreadPool::getInstance()->joinTaskStop(checkTask);
    setSystemVerPageState(true);
    hide();
    disconnect(CMsgClass::getInstance(), &CMsgClass::sigDevRootPath, this,
               &CGpsComPage::updateUdiskStateSlot);
}

void CGpsComPage::checkUdiskFileState()
{
    bootloaderPath.clear();
    firmwarePath.clear();
    bootloaderPath = checkUpdateFileExist(QStringLiteral("gps_bootloader.pkg"));
    firmwarePath = checkUpdateFileExist(QStringLiteral("gps_firmware.pkg"));
}

QString CGpsComPage::checkUpdateFileExist(QString fileName)
{
    const QStringList roots = UsbControl::getInstance()->getMountDevice();
    for (const QString &root : roots) {
        const QString filePath = root + QLatin1Char('/') + fileName;
        FACTORY_TRACE << "CGpsComPage::checkUpdateFileExist filePath: " << filePath;
        struct stat status;
        if (stat(filePath.toLocal8Bit().constData(), &status) == 0) {
            return filePath;
        }
    }
    return QString();
}

void CGpsComPage::setSystemVerPageState(bool state)
{
    CMsgClass::getInstance()->setUpdateReadyState(!state);
}

void CGpsComPage::threadPoolCallback(int argument)
{
    Q_UNUSED(argument);
    FACTORY_TRACE << "threadPoolCallback"
                  << "check software enter...\n";
    CGpsComPage *page = staticWinPtr;
    const bool isValid = fileExists(page->firmwarePath) && fileExists(page->bootloaderPath)
        && checkGpsUpdateFile(page->bootloaderPath.toLocal8Bit().constData(),
                              page->firmwarePath.toLocal8Bit().constData())
            == 0;
    sleep(1);
    emit staticWinPtr->sigCheckSoftResult(isValid ? FilesValid : FilesInvalid);
    FACTORY_TRACE << "threadPoolCallback"
                  << "check software exit...";
}

void CGpsComPage::returnSlot()
{
    printLogEx("INFO", "CGpsComPage", "%s\n", "returnSlot");
    deleteLater();
}

void CGpsComPage::exitSlot()
{
    printLogEx("INFO", "CGpsComPage", "%s\n", "exitSlot");
    deleteLater();
    ActivityManager::self()->closeActivity(QStringLiteral("setup"));
}

void CGpsComPage::showSystemNewFwInfoSlot()
{
    FACTORY_TRACE << "CGpsComPage::showSystemNewFwInfoSlot : " << bootloaderPath;
    FACTORY_TRACE << "CGpsComPage::showSystemNewFwInfoSlot : " << firmwarePath;
    if (bootloaderPath.isEmpty() || firmwarePath.isEmpty()) {
        returnSlot();
        return;
    }
    setSystemVerPageState(false);
    fwInfo->show();
    fwInfo->selectSubPage(false);
    ThreadPool::getInstance()->addTask([] { threadPoolCallback(0); }, checkTask);
}

void CGpsComPage::updateSlot()
{
    CMsgClass::getInstance()->playBeepTone(clickTone);
    if (bootloaderPath.isEmpty() || firmwarePath.isEmpty()) {
        return;
    }
    // The event that would paint the pop-up's new text comes too late: the thread is about to
    // block.
    repaint();
    CGpsModule::getInstance()->stopWork();
    sleep(3);
    upgradeStart(bootloaderPath.toLocal8Bit().constData(), firmwarePath.toLocal8Bit().constData());
    usleep(200000);
    runCommand("sync");
    usleep(300000);
    CMsgClass::getInstance()->setSysReboot();
}

void CGpsComPage::updateUdiskStateSlot(QString rootPath)
{
    if (rootPath.isEmpty()) {
        setSystemVerPageState(true);
    }
}

void CGpsComPage::softCheckResultSlot(int state)
{
    FACTORY_TRACE << "softCheckResultSlot"
                  << "state: " << state;
    if (state == FilesValid) {
        fwInfo->selectSubPage(true);
    } else if (state == FilesInvalid) {
        returnSlot();
    }
}
