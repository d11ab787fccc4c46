#include "csetupalstest.h"

#include "calcutelateval.h"
#include "ui_csetupalsform.h"

#include "common/blackpage.h"
#include "common/storedsetting.h"

#include "service/calsdevice.h"
#include "service/printlogex.h"
#include "service/setupstridconst.h"

#include <cstdio>

namespace
{

constexpr int initialValue = 50;
constexpr int lowestThreshold = 0;
constexpr int highestThreshold = 1000;
constexpr int dayIndex = 1;
constexpr int nightIndex = 2;

bool isDimmerAutomatic()
{
    return storedSetting(SetupStrIdConst::setupDimmerItem).toString()
        == SetupStrIdConst::setupDimmerItemAuto;
}

} // namespace

CSetupALSTest::CSetupALSTest(QRect rect, QWidget *parent)
    : BaseView(QStringLiteral("ALS SENSOR DEBUG"), parent)
    , ui(new Ui_CSetupAlsForm)
    , spare(initialValue)
    , dayThreshold(initialValue)
    , nightThreshold(initialValue)
{
    setGeometry(rect);
    ui->setupUi(this);
    makeBlackPage(this);
    initButton();
    connect(CALSDevice::getInstance(), &CALSDevice::sigSensorValue, this,
            &CSetupALSTest::sensorValueSlot);
    connect(ui->autoBtn, &CBoolButton::btnReleased, this, &CSetupALSTest::slotBtnReleased);
    ui->autoBtn->setState(isDimmerAutomatic());
}

CSetupALSTest::~CSetupALSTest() = default;

void CSetupALSTest::initButton()
{
    for (KvHorStrButton *button :
         {ui->decreaseDay, ui->increaseDay, ui->decreaseNight, ui->increaseNight}) {
        connect(button, &KvHorStrButton::clicked, this, &CSetupALSTest::clickedAdjustItem);
    }
    dayThreshold = CALSDevice::getInstance()->getCirticalValue(true);
    nightThreshold = CALSDevice::getInstance()->getCirticalValue(false);
    setValue(dayIndex, dayThreshold);
    setValue(nightIndex, nightThreshold);
}

void CSetupALSTest::setValue(int index, int value)
{
    switch (index) {
    case dayIndex:
        ui->dayText->setText(QString::number(value));
        CALSDevice::getInstance()->setCriticalValueAsDay(value);
        break;
    case nightIndex:
        ui->nightText->setText(QString::number(value));
        CALSDevice::getInstance()->setCriticalValueAsNight(value);
        break;
    default:
        break;
    }
}

void CSetupALSTest::sensorValueSlot(int value)
{
    char text[128] = {};
    std::snprintf(text, sizeof text, "Current:%d", value);
    ui->labCurrentVal->setText(QString::fromLatin1(text));
}

void CSetupALSTest::slotBtnReleased(QString id, bool state)
{
    Q_UNUSED(id);
    CALSDevice::getInstance()->autoDetectSwitch(state);
}

void CSetupALSTest::clickedAdjustItem(QString id)
{
    printLogEx("INFO", "CSetupALSTest", "%s %s\n", "clickedAdjustItem", qPrintable(id));
    if (id == ui->decreaseDay->buttonId()) {
        stepDay(false);
    } else if (id == ui->increaseDay->buttonId()) {
        stepDay(true);
    } else if (id == ui->decreaseNight->buttonId()) {
        stepNight(false);
    } else if (id == ui->increaseNight->buttonId()) {
        stepNight(true);
    }
}

void CSetupALSTest::stepDay(bool increase)
{
    dayThreshold = CALCUTELATE_VAL(nightThreshold, highestThreshold, dayThreshold, increase, 1);
    setValue(dayIndex, dayThreshold);
}

void CSetupALSTest::stepNight(bool increase)
{
    nightThreshold = CALCUTELATE_VAL(lowestThreshold, dayThreshold, nightThreshold, increase, 1);
    setValue(nightIndex, nightThreshold);
}
