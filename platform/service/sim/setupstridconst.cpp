#include "service/setupstridconst.h"

const QString SetupStrIdConst::setupU0BCMode = QStringLiteral("setup/usb0BcMode");
const QString SetupStrIdConst::setupU1BCMode = QStringLiteral("setup/usb1BcMode");
const QString SetupStrIdConst::setupTestMode = QStringLiteral("setup/usbTestMode");
const QString SetupStrIdConst::setupSysLang = QStringLiteral("setup/language");
const QString SetupStrIdConst::setupDimmerItem = QStringLiteral("setup/dimmer");
const QString SetupStrIdConst::setupDimmerItemAuto = QStringLiteral("auto");
const QString SetupStrIdConst::sysCtrlCertificationSwitch = QStringLiteral("sysctrl/certification");
