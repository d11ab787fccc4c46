#include "setuppanel.h"

#include "calcutelateval.h"
#include "ui_setuppanel.h"

#include "common/trace.h"

#include "kvappframework/activitymanager.h"
#include "service/displaycontrol.h"
#include "service/printlogex.h"

namespace
{

constexpr int saturationIndex = 3;
constexpr float saturationStep = 0.01f;
constexpr double saturationMax = 1.99;

// Where the vendor data has the four items.
constexpr auto brightnessPosition = static_cast<VendorDataControl::VendorPos>(2);
constexpr auto huePosition = static_cast<VendorDataControl::VendorPos>(3);
constexpr auto saturationPosition = static_cast<VendorDataControl::VendorPos>(4);
constexpr auto contrastPosition = static_cast<VendorDataControl::VendorPos>(5);

struct StepButton
{
    const char *id;
    int index;
    bool increase;
};

constexpr StepButton stepButtons[] = {
    {"bridec", 0, false},
    {"briinc", 0, true},
    {"condec", 1, false},
    {"coninc", 1, true},
    {"huedec", 2, false},
    {"hueinc", 2, true},
    {"satdec", saturationIndex, false},
    {"satinc", saturationIndex, true},
};

/// An item that is a whole number from 0 on, and how the display service is asked and told.
struct IntegerItem
{
    int max;
    int (*current)();
    void (*apply)(int value);
};

const IntegerItem integerItems[] = {
    {24, [] { return DisplayControl::getInstance()->panelBrightness(); },
     [](int value) { DisplayControl::getInstance()->setPanelBrightness(value); }},
    {24, [] { return DisplayControl::getInstance()->panelContrast(); },
     [](int value) { DisplayControl::getInstance()->setPanelContrast(value); }},
    {360, [] { return DisplayControl::getInstance()->panelHue(); },
     [](int value) { DisplayControl::getInstance()->setPanelHue(value); }},
};

void logSlot(const char *slot)
{
    printLogEx("INFO", "CSetupPanelForm", "%s\n", slot);
}

} // namespace

CSetupPanelForm::CSetupPanelForm(QRect rect, QWidget *parent)
    : BaseView(QStringLiteral("Panel Settings"), parent)
    , ui(new Ui_CSetupPanelForm)
    , saturation(0)
{
    setGeometry(rect);
    ui->setupUi(this);
    initButton();
}

CSetupPanelForm::~CSetupPanelForm() = default;

void CSetupPanelForm::initButton()
{
    for (KvHorStrButton *button :
         {ui->decreaseBrightness, ui->increaseBrightness, ui->decreaseConstast,
          ui->increaseConstast, ui->decreaseHue, ui->increaseHue, ui->decreaseSaturation,
          ui->increaseSaturation}) {
        connect(button, &KvHorStrButton::clicked, this, &CSetupPanelForm::clickedAdjustItem);
    }
    for (int index = 0; index < saturationIndex; ++index) {
        setValue(index, float(integerItems[index].current()));
    }
    saturation = float(DisplayControl::getInstance()->panelSaturation());
    setValue(saturationIndex, saturation);
}

void CSetupPanelForm::setValue(int index, float value)
{
    FACTORY_TRACE << "===v86==="
                  << "setValue" << index << value;
    const QString text = QString::number(int(value));
    switch (index) {
    case 0:
        ui->brightnessText->setText(text);
        keepValue(brightnessPosition, int(value));
        break;
    case 1:
        ui->ConstastText->setText(text);
        keepValue(contrastPosition, int(value));
        break;
    case 2:
        ui->HueText->setText(text);
        keepValue(huePosition, int(value));
        break;
    case saturationIndex:
        ui->SaturationText->setText(QString::number(double(value), 'f', 2));
        keepValue(saturationPosition, int(value * 100.0f));
        break;
    default:
        keepValue(brightnessPosition, int(value));
        break;
    }
}

void CSetupPanelForm::keepValue(VendorDataControl::VendorPos position, int value)
{
    int offset = 0;
    int length = 0;
    if (VendorDataControl::getVendorPosOffset(position, offset, length) != 0) {
        return;
    }
    if (VendorDataControl::saveVendorDataInt(&value, 1, offset, length) != 0) {
        qDebug() << "save data error";
    }
}

void CSetupPanelForm::clickedReturn()
{
    logSlot("clickedReturn");
    deleteLater();
}

void CSetupPanelForm::clickedExit()
{
    logSlot("clickedExit");
    deleteLater();
    kvappframework::ActivityManager::self()->closeActivity(QStringLiteral("setup"));
}

void CSetupPanelForm::clickedAdjustItem(QString id)
{
    printLogEx("INFO", "CSetupPanelForm", "%s %s\n", "clickedAdjustItem", qPrintable(id));
    for (const StepButton &button : stepButtons) {
        if (id == QLatin1String(button.id)) {
            if (button.index == saturationIndex) {
                stepSaturation(button.increase);
            } else {
                stepInteger(button.index, button.increase);
            }
        }
    }
}

void CSetupPanelForm::stepInteger(int index, bool increase)
{
    const IntegerItem &item = integerItems[index];
    const int value = CALCUTELATE_VAL(0, item.max, item.current(), increase, 1);
    item.apply(value);
    setValue(index, float(value));
}

void CSetupPanelForm::stepSaturation(bool increase)
{
    // Single precision throughout, rounding errors included: they decide where the steps end.
    if (increase) {
        if (saturationMax - double(saturation) >= double(saturationStep)) {
            saturation += saturationStep;
        }
    } else {
        const float less = saturation - saturationStep;
        if (less > 0.0f) {
            saturation = less;
        }
    }
    DisplayControl::getInstance()->setPanelSaturation(double(saturation));
    setValue(saturationIndex, saturation);
}
