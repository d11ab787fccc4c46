#include "csetupalstest.h"

#include "calcutelateval.h"
#include "ui_csetupalsform.h"

#include "service/calsdevice.h"
#include "service/datadefault.h"
#include "service/datasavecontrol.h"
#include "service/printlogex.h"
#include "service/setupstridconst.h"

#include <cstdio>

namespace
{

const int initialValue = 50;
const int lowestThreshold = 0;
const int highestThreshold = 1000;
const int dayIndex = 1;
const int nightIndex = 2;

bool isDimmerAutomatic()
{
    const QString &key = SetupStrIdConst::setupDimmerItem;
    const QVariant dimmer =
        DataSaveControl::readSettingData(key, DataDefault::getDefault(key), QString());
    return dimmer.toString() == SetupStrIdConst::setupDimmerItemAuto;
}

} // namespace

CSetupALSTest::CSetupALSTest(QRect rect, QWidget *parent)
    : BaseView(QStringLiteral("ALS SENSOR DEBUG"), parent)
    , ui(new Ui_CSetupAlsForm)
    , m_spare(initialValue)
    , m_dayThreshold(initialValue)
    , m_nightThreshold(initialValue)
{
    setGeometry(rect);
    ui->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("background-color:rgb(0, 0, 0);"));
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
    m_dayThreshold = CALSDevice::getInstance()->getCirticalValue(true);
    m_nightThreshold = CALSDevice::getInstance()->getCirticalValue(false);
    setValue(dayIndex, m_dayThreshold);
    setValue(nightIndex, m_nightThreshold);
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
    m_dayThreshold =
        CALCUTELATE_VAL(m_nightThreshold, highestThreshold, m_dayThreshold, increase, 1);
    setValue(dayIndex, m_dayThreshold);
}

void CSetupALSTest::stepNight(bool increase)
{
    m_nightThreshold =
        CALCUTELATE_VAL(lowestThreshold, m_dayThreshold, m_nightThreshold, increase, 1);
    setValue(nightIndex, m_nightThreshold);
}
