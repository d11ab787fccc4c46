#include "cdevsinfopage.h"

#include "ui_cdevsinfoform.h"

#include "common/blackpage.h"

#include "mcu/cmsgclass.h"

#include <cstdio>

CDevsInfoPage::CDevsInfoPage(QRect rect, KvWidget *parent)
    : KvWidget(parent)
    , ui(new Ui_CDevsInfoForm)
{
    setGeometry(rect);
    ui->setupUi(this);
    makeBlackPage(this);
    showGpsVersion();
    showBluetoothVersion();
    showAlsProduct();
}

CDevsInfoPage::~CDevsInfoPage() = default;

void CDevsInfoPage::showGpsVersion()
{
    ui->label_gps->setText(tr("GPS Version: ") + CMsgClass::getInstance()->getGpsVerInfo());
}

void CDevsInfoPage::showBluetoothVersion()
{
    ui->label_bt->setAdaptiveFontSize(true);
    ui->label_bt->setText(tr("BLUETOOTH Version: ")
                          + CMsgClass::getInstance()->getBluetoothVersion());
}

void CDevsInfoPage::showAlsProduct()
{
    char text[128] = {};
    const auto id = static_cast<unsigned int>(CMsgClass::getInstance()->getAlsPdtInfo());
    std::snprintf(text, sizeof text, "ALS Sensor ID: 0X%02X", id);
    ui->label_als->setText(QString::fromLatin1(text));
}
