#include "csetupkeylight.h"

#include "calcutelateval.h"
#include "ui_csetupkeylightform.h"

#include "common/blackpage.h"

#include "mcu/mcumsgmodule.h"
#include "service/printlogex.h"

namespace
{

constexpr int initialIntensity = 50;
constexpr int maxIntensity = 100;

} // namespace

CSetupKeyLight::CSetupKeyLight(QRect rect, QWidget *parent)
    : BaseView(QStringLiteral("Key Led Brightness"), parent)
    , ui(new Ui_CSetupKeyLightForm)
    , red(initialIntensity)
    , green(initialIntensity)
    , blue(initialIntensity)
{
    setGeometry(rect);
    ui->setupUi(this);
    makeBlackPage(this);
    initButton();
}

CSetupKeyLight::~CSetupKeyLight() = default;

void CSetupKeyLight::initButton()
{
    for (KvHorStrButton *button : {ui->decreaseRed, ui->increaseRed, ui->decreaseGreen,
                                   ui->increaseGreen, ui->decreaseBlue, ui->increaseBlue}) {
        connect(button, &KvHorStrButton::clicked, this, &CSetupKeyLight::clickedAdjustItem);
    }
    setValue(0, float(red));
    setValue(1, float(green));
    setValue(2, float(blue));
}

void CSetupKeyLight::setValue(int index, float value)
{
    const QString text = QString::number(int(value));
    switch (index) {
    case 0:
        ui->brightnessText->setText(text);
        break;
    case 1:
        ui->ConstastText->setText(text);
        break;
    case 2:
        ui->HueText->setText(text);
        break;
    default:
        break;
    }
    sendColor();
}

void CSetupKeyLight::sendColor() const
{
    // What the bytes around the colour mean is the MCU's business.
    unsigned char message[] = {0xFF,
                               0x66,
                               0x06,
                               0x15,
                               0x84,
                               0xFE,
                               static_cast<unsigned char>(red),
                               static_cast<unsigned char>(green),
                               static_cast<unsigned char>(blue),
                               0xFF};
    McuMsgModule::sendMsgToMcu(message, int(sizeof message));
}

void CSetupKeyLight::clickedAdjustItem(QString id)
{
    printLogEx("INFO", "CSetupKeyLight", "%s %s\n", "clickedAdjustItem", qPrintable(id));
    if (id == ui->decreaseRed->buttonId()) {
        step(0, red, false);
    } else if (id == ui->increaseRed->buttonId()) {
        step(0, red, true);
    } else if (id == ui->decreaseGreen->buttonId()) {
        step(1, green, false);
    } else if (id == ui->increaseGreen->buttonId()) {
        step(1, green, true);
    } else if (id == ui->decreaseBlue->buttonId()) {
        step(2, blue, false);
    } else if (id == ui->increaseBlue->buttonId()) {
        step(2, blue, true);
    }
}

void CSetupKeyLight::step(int index, int &intensity, bool increase)
{
    intensity = CALCUTELATE_VAL(0, maxIntensity, intensity, increase, 1);
    setValue(index, float(intensity));
}
