#include "gpscomage.h"

#include "cgpsfwinfo.h"
#include "gpsupgrade.h"

#include "factorydebug/trace.h"

#include "gps/cgpsmodule.h"
#include "kvappframework/activitymanager.h"
#include "kvappframework/uimanager.h"
#include "mcu/cmsgclass.h"
#include "service/printlogex.h"
#include "service/threadpool.h"
#include "service/usbcontrol.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

using namespace kvappframework;

namespace
{

const char checkTask[] = "threadGpsUpdateId";
const auto clickTone = static_cast<e_clickType>(0);

enum CheckResult { FilesValid = 0, FilesInvalid = 1 };

bool exists(const QString &path)
{
    return access(path.toLocal8Bit().constData(), F_OK) == 0;
}

void syncDisks()
{
    const int status = std::system("sync");
    Q_UNUSED(status);
}

} // namespace

CGpsComPage *CGpsComPage::staticWinPtr = nullptr;

CGpsComPage::CGpsComPage(QWidget *parent)
    : BaseView(QStringLiteral("setup system version"), parent)
    , m_fwInfo(nullptr)
{
    staticWinPtr = this;
    setGeometry(UIManager::getDeskTopRect());
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("background-color:rgba(0, 0, 0, 255);"));
    FACTORY_TRACE << "CGpsComPage::CGpsComPage";
    m_fwInfo = new CGpsFwInfo(UIManager::getDeskTopRect(), this);
    // Else it would come up with the page, which is shown even while it is already closing.
    m_fwInfo->hide();
    checkUdiskFileState();
    connect(m_fwInfo, &CGpsFwInfo::sigUpdate, this, &CGpsComPage::updateSlot, Qt::QueuedConnection);
    connect(m_fwInfo, &CGpsFwInfo::showSystemInfo, this, &CGpsComPage::returnSlot);
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
    m_bootloaderPath.clear();
    m_firmwarePath.clear();
    m_bootloaderPath = checkUpdateFileExist(QStringLiteral("gps_bootloader.pkg"));
    m_firmwarePath = checkUpdateFileExist(QStringLiteral("gps_firmware.pkg"));
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
    const bool isValid = exists(page->m_firmwarePath) && exists(page->m_bootloaderPath)
        && checkGpsUpdateFile(page->m_bootloaderPath.toLocal8Bit().constData(),
                              page->m_firmwarePath.toLocal8Bit().constData())
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
    FACTORY_TRACE << "CGpsComPage::showSystemNewFwInfoSlot : " << m_bootloaderPath;
    FACTORY_TRACE << "CGpsComPage::showSystemNewFwInfoSlot : " << m_firmwarePath;
    if (m_bootloaderPath.isEmpty() || m_firmwarePath.isEmpty()) {
        returnSlot();
        return;
    }
    setSystemVerPageState(false);
    m_fwInfo->show();
    m_fwInfo->selectSubPage(false);
    ThreadPool::getInstance()->addTask([] { threadPoolCallback(0); }, checkTask);
}

void CGpsComPage::updateSlot()
{
    CMsgClass::getInstance()->playBeepTone(clickTone);
    if (m_bootloaderPath.isEmpty() || m_firmwarePath.isEmpty()) {
        return;
    }
    // The event that would paint the pop-up's new text comes too late: the thread is about to
    // block.
    repaint();
    CGpsModule::getInstance()->stopWork();
    sleep(3);
    upgradeStart(m_bootloaderPath.toLocal8Bit().constData(),
                 m_firmwarePath.toLocal8Bit().constData());
    usleep(200000);
    syncDisks();
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
        m_fwInfo->selectSubPage(true);
    } else if (state == FilesInvalid) {
        returnSlot();
    }
}
