#include "cdevsinfopage.h"

#include "ui_cdevsinfoform.h"

#include "mcu/cmsgclass.h"

#include <QFontInfo>
#include <QFontMetrics>

#include <cstdio>

namespace
{

const int smallestText = 12;

/// Makes the label's font as much smaller as its text needs, down to 12 pixels.
void shrinkToFit(QLabel *label)
{
    QFont font = label->font();
    int pixelSize = QFontInfo(font).pixelSize();
    while (pixelSize > smallestText
           && QFontMetrics(font).size(0, label->text()).width() > label->width()) {
        font.setPixelSize(--pixelSize);
    }
    label->setFont(font);
}

} // namespace

CDevsInfoPage::CDevsInfoPage(QRect rect, KvWidget *parent)
    : KvWidget(parent)
    , ui(new Ui_CDevsInfoForm)
{
    setGeometry(rect);
    ui->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
    setStyleSheet(QStringLiteral("background-color:rgb(0, 0, 0);"));
    showGpsVersion();
    showBluetoothVersion();
    showAlsProduct();
}

CDevsInfoPage::~CDevsInfoPage() = default;

void CDevsInfoPage::showGpsVersion()
{
    ui->label_gps->setText(tr("GPS Version: ") + CMsgClass::getInstance()->getGpsVerInfo());
    shrinkToFit(ui->label_gps);
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
