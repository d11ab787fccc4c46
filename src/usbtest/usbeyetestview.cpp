#include "usbeyetestview.h"

#include "testpattern.h"
#include "ui_usbeyetest.h"
#include "uphyvalue.h"
#include "usbregisters.h"
#include "usbspeed.h"

#include "common/formwidgets.h"
#include "common/runcommand.h"
#include "common/trace.h"

#include "kvwidget/kviconbutton.h"
#include "service/usbcontrol.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QRadioButton>

#include <unistd.h>

namespace
{

enum Parameter { Swing = 0, Disconnect = 1 };
enum Speed { HighSpeed = 0, FullSpeed = 1 };

// The test selectors of USB 2.0 (section 9.4.9, table 9-7).
constexpr auto testJ = static_cast<UsbControl::UsbTestMode>(1);
constexpr auto testK = static_cast<UsbControl::UsbTestMode>(2);
constexpr auto testSe0Nak = static_cast<UsbControl::UsbTestMode>(3);
constexpr auto testPacket = static_cast<UsbControl::UsbTestMode>(4);

constexpr unsigned int byteMask = 0xFF;
} // namespace

USBEyeTestView::USBEyeTestView(QWidget *parent)
    : QObject(parent)
    , isUPHY(false)
    , usbPort(0)
    , usbSpeed(0)
    , testPattern(0)
    , parameterKind(0)
    , usbUphyData(0)
    , ui(new UI_USBEyeTest)
{
    ui->setupUi(parent);
    readBtnClicked();
    modeChange(ui->usePhy->checkState());
    startLogoTest();
    patterns << ui->eyeDiagram << ui->testJ << ui->testK << ui->se0 << ui->none;
    ui->read->hide();
    connectForm();
}

USBEyeTestView::~USBEyeTestView()
{
    FACTORY_TRACE << "~USBEyeTestView";
    formwidgets::dismiss(ui->widgets());
}

void USBEyeTestView::connectForm()
{
    connect(ui->hostMode, &QRadioButton::clicked, this, &USBEyeTestView::switchToHostMode);
    connect(ui->deviceMode, &QRadioButton::clicked, this, &USBEyeTestView::switchToDeviceMode);
    connect(ui->usePhy, &QCheckBox::stateChanged, this, &USBEyeTestView::modeChange);
    connect(ui->decrease, &KvIconButton::btnClicked, this, &USBEyeTestView::uphyDecClicked);
    connect(ui->increase, &KvIconButton::btnClicked, this, &USBEyeTestView::uphyAddClicked);
    connect(ui->swing, &QRadioButton::clicked, this, &USBEyeTestView::readBtnClicked);
    connect(ui->disconnectLevel, &QRadioButton::clicked, this, &USBEyeTestView::readBtnClicked);
    connect(ui->read, &KvIconButton::btnClicked, this, &USBEyeTestView::readBtnClicked);
    connect(ui->write, &KvIconButton::btnClicked, this, &USBEyeTestView::writeBtnClicked);
    connect(ui->highSpeed, &QRadioButton::clicked, this, &USBEyeTestView::speedClicked);
    connect(ui->fullSpeed, &QRadioButton::clicked, this, &USBEyeTestView::speedClicked);
    connect(ui->eyeDiagram, &QRadioButton::clicked, this, &USBEyeTestView::TEST_EYE);
    connect(ui->testJ, &QRadioButton::clicked, this, &USBEyeTestView::TEST_J);
    connect(ui->testK, &QRadioButton::clicked, this, &USBEyeTestView::TEST_K);
    connect(ui->se0, &QRadioButton::clicked, this, &USBEyeTestView::TEST_SE0);
}

void USBEyeTestView::startLogoTest()
{
    FACTORY_TRACE << "start usb logo test";
    runCommand("echo 1 > /sys/module/usbcore/parameters/usb_logo_test_start");
    FACTORY_TRACE << "start sleep 500*1000u";
    usleep(500 * 1000u);
}

void USBEyeTestView::refreshUphy()
{
    if (parameterKind == Disconnect) {
        ui->showValue(uphyvalue::disconnectDigits(usbUphyData));
    } else if (uphyvalue::isMinusZero(usbUphyData)) {
        ui->showValue(tr("-0"));
    } else {
        const QString number = uphyvalue::swingNumber(usbUphyData);
        if (!number.isEmpty()) {
            ui->showValue(number);
        }
    }
}

void USBEyeTestView::refreshMode()
{
    FACTORY_TRACE << "refreshMode isUPHY:" << (isUPHY ? "true" : "false");
    ui->phyGroup->setVisible(isUPHY);
    ui->patternGroup->setVisible(!isUPHY);
    ui->read->setDisableState(!isUPHY);
}

void USBEyeTestView::readParameter()
{
    usbPort = ui->port0->isChecked() ? 0 : 1;
    usbSpeed = ui->highSpeed->isChecked() ? HighSpeed : FullSpeed;
    for (int index = 0; index < patterns.size(); ++index) {
        if (patterns.at(index)->isChecked()) {
            testPattern = index;
        }
    }
    parameterKind = ui->swing->isChecked() ? Swing : Disconnect;
    FACTORY_TRACE << "usbPort:" << usbPort;
    FACTORY_TRACE << "usbSpeed:" << usbSpeed;
    FACTORY_TRACE << "testPattern:" << testPattern;
    FACTORY_TRACE << "useUphyPara:" << parameterKind;
    FACTORY_TRACE << "usbUphyData:" << usbUphyData;
}

void USBEyeTestView::openIICDebug()
{
    FACTORY_TRACE << "open iic debug usbPort:" << usbPort;
    if (usbPort != 0 && usbPort != 1) {
        return;
    }
    usbregisters::write(usbregisters::ofPort(usbregisters::debugAccess, usbPort),
                        usbregisters::debugAccessOn);
    usbregisters::write(usbregisters::ofPort(usbregisters::testMode, usbPort),
                        usbregisters::debugTestMode);
    usbregisters::write(usbregisters::debugGate, usbregisters::debugGateOpen);
    usbregisters::write(usbregisters::debugSelect,
                        usbPort == 0 ? usbregisters::debugSelectPort0
                                     : usbregisters::debugSelectPort1);
}

void USBEyeTestView::fullToHigh(int port)
{
    FACTORY_TRACE << "change to high speed port:" << port;
    switchUsbSpeed(port, 1);
}

void USBEyeTestView::highToFull(int port)
{
    FACTORY_TRACE << "change to full speed port:" << port;
    switchUsbSpeed(port, 0);
}

void USBEyeTestView::switchToHostMode()
{
    ui->port1->show();
    ui->usePhy->show();
    usbregisters::write(usbregisters::role, usbregisters::roleHost);
}

void USBEyeTestView::switchToDeviceMode()
{
    ui->port0->setChecked(true);
    ui->port1->hide();
    ui->usePhy->hide();
    usbregisters::write(usbregisters::role, usbregisters::roleDevice);
    usbregisters::write(usbregisters::deviceControl, 0);
}

void USBEyeTestView::modeChange(int state)
{
    FACTORY_TRACE << "state:" << state;
    if (state != 0) {
        ui->write->setDisplayText(tr("Write"));
        ui->read->show();
        ui->deviceMode->setEnabled(false);
        isUPHY = true;
        readBtnClicked();
    } else {
        isUPHY = false;
        ui->write->setDisplayText(tr("Set Test Mode"));
        ui->deviceMode->setEnabled(true);
        ui->read->hide();
    }
    refreshMode();
}

void USBEyeTestView::uphyAddClicked()
{
    usbUphyData = parameterKind == Swing ? uphyvalue::swingUp(usbUphyData)
                                         : uphyvalue::disconnectUp(usbUphyData);
    refreshUphy();
    FACTORY_TRACE << "data:" << usbUphyData;
}

void USBEyeTestView::uphyDecClicked()
{
    usbUphyData = parameterKind == Swing ? uphyvalue::swingDown(usbUphyData)
                                         : uphyvalue::disconnectDown(usbUphyData);
    refreshUphy();
    FACTORY_TRACE << "data:" << usbUphyData;
}

void USBEyeTestView::readBtnClicked()
{
    readParameter();
    if (parameterKind == Swing) {
        const unsigned int word = usbregisters::read(usbregisters::phySwing);
        usbUphyData = static_cast<int>((word >> (8 * usbPort)) & byteMask);
    } else {
        const unsigned int address = usbregisters::ofPort(usbregisters::phyDisconnect, usbPort);
        usbUphyData = static_cast<int>(usbregisters::read(address));
    }
    refreshUphy();
}

void USBEyeTestView::writeBtnClicked()
{
    readParameter();
    if (!isUPHY) {
        writeTestMode();
    } else if (parameterKind == Swing) {
        writeSwing();
    } else {
        writeDisconnect();
    }
}

void USBEyeTestView::writeSwing()
{
    const int shift = 8 * usbPort;
    unsigned int word = usbregisters::read(usbregisters::phySwing);
    word &= ~(byteMask << shift);
    word |= static_cast<unsigned int>(usbUphyData) << shift;
    word |= usbregisters::phySwingUpperBytes;
    usbregisters::write(usbregisters::phySwing, word);
}

void USBEyeTestView::writeDisconnect()
{
    openIICDebug();
    usbregisters::write(usbregisters::ofPort(usbregisters::phyDisconnect, usbPort),
                        static_cast<unsigned int>(usbUphyData));
}

void USBEyeTestView::writeTestMode()
{
    if (testPattern == testpattern::None) {
        FACTORY_TRACE << "nothing to do.";
    } else if (testPattern > testpattern::None) {
        FACTORY_TRACE << "not support!";
    }
    usbregisters::write(usbregisters::ofPort(usbregisters::testMode, usbPort),
                        testpattern::code(testPattern, usbSpeed == HighSpeed));
}

void USBEyeTestView::speedClicked()
{
    const auto *button = qobject_cast<QRadioButton *>(sender());
    if (button == nullptr) {
        return;
    }
    readParameter();
    const bool isHighSpeed = button == ui->highSpeed;
    ui->testJ->setVisible(isHighSpeed);
    ui->testK->setVisible(isHighSpeed);
    ui->se0->setVisible(isHighSpeed);
    if (isHighSpeed) {
        fullToHigh(usbPort);
    } else {
        ui->none->setChecked(true);
        highToFull(usbPort);
    }
}

void USBEyeTestView::TEST_EYE()
{
    UsbControl::getInstance()->setUsbTestMode(testPacket);
    FACTORY_TRACE << "TEST_EYE";
}

void USBEyeTestView::TEST_J()
{
    UsbControl::getInstance()->setUsbTestMode(testJ);
    FACTORY_TRACE << "TEST_J";
}

void USBEyeTestView::TEST_K()
{
    UsbControl::getInstance()->setUsbTestMode(testK);
    FACTORY_TRACE << "TEST_K";
}

void USBEyeTestView::TEST_SE0()
{
    UsbControl::getInstance()->setUsbTestMode(testSe0Nak);
    FACTORY_TRACE << "TEST_SE0";
}
