#include "ui_usbeyetest.h"

#include "common/formwidgets.h"
#include "common/textonimage.h"

#include "kvwidget/kviconbutton.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace
{

constexpr int radioHeight = 48;
constexpr int largeText = 24;
constexpr int smallText = 22;
constexpr int shortValue = 5;     // letters that fit the value's label in large text
constexpr int longValueText = 15; // eight hexadecimal digits fit

/// Red text and the 48 x 48 marks for buttons of that class.
QString markStyle(const QString &buttonClass, int textSize)
{
    return QStringLiteral(
               "%1{color:rgb(255, 0, 0);font-size:%2px;}"
               "%1::indicator{width:48px;height:48px;}"
               "%1::indicator:checked{image:url(:/images/btn_radio_check48x48.png);}"
               "%1::indicator:unchecked{image:url(:/images/btn_radio_uncheck48x48.png);}")
        .arg(buttonClass)
        .arg(textSize);
}

QGroupBox *newGroup(QWidget *host, const char *name, const QRect &geometry, int textSize)
{
    auto *group = new QGroupBox(host);
    group->setObjectName(QLatin1String(name));
    group->setGeometry(geometry);
    group->setStyleSheet(markStyle(QStringLiteral("QRadioButton"), textSize));
    return group;
}

QRadioButton *newRadio(QGroupBox *group, const char *name, bool checked)
{
    auto *radio = new QRadioButton(group);
    radio->setObjectName(QLatin1String(name));
    radio->setFixedHeight(radioHeight);
    radio->setChecked(checked);
    if (group->layout() != nullptr) {
        group->layout()->addWidget(radio);
    }
    return radio;
}

KvIconButton *newButton(QWidget *parent, const char *name, const QRect &geometry,
                        const QString &normalImage, const QString &pressImage)
{
    auto *button = new KvIconButton(parent);
    button->setObjectName(QLatin1String(name));
    button->setGeometry(geometry);
    button->setNormalImage(QPixmap(normalImage));
    button->setPressImage(QPixmap(pressImage));
    return button;
}

KvIconButton *newTextButton(QWidget *parent, const char *name, const QRect &geometry)
{
    KvIconButton *button =
        newButton(parent, name, geometry, QStringLiteral(":/images/btn210x60_n.png"),
                  QStringLiteral(":/images/btn210x60_p.png"));
    button->setShowMode(textOnImage);
    return button;
}

} // namespace

UI_USBEyeTest::UI_USBEyeTest()
    : portGroup(nullptr)
    , port0(nullptr)
    , port1(nullptr)
    , speedGroup(nullptr)
    , highSpeed(nullptr)
    , fullSpeed(nullptr)
    , phyGroup(nullptr)
    , swing(nullptr)
    , disconnectLevel(nullptr)
    , decrease(nullptr)
    , value(nullptr)
    , increase(nullptr)
    , patternGroup(nullptr)
    , eyeDiagram(nullptr)
    , testJ(nullptr)
    , testK(nullptr)
    , se0(nullptr)
    , none(nullptr)
    , usePhy(nullptr)
    , read(nullptr)
    , write(nullptr)
    , roleGroup(nullptr)
    , hostMode(nullptr)
    , deviceMode(nullptr)
{
}

void UI_USBEyeTest::setupUi(QWidget *host)
{
    host->resize(800, 480);
    setupPortGroup(host);
    setupSpeedGroup(host);
    setupPhyGroup(host);
    setupPatternGroup(host);
    setupActions(host);
    setupRoleGroup(host);
    retranslateUi();
    formwidgets::show(widgets());
}

void UI_USBEyeTest::retranslateUi()
{
    portGroup->setTitle(tr("USB Port"));
    port0->setText(tr("Port0"));
    port1->setText(tr("Port1"));
    speedGroup->setTitle(tr("USB Speed"));
    highSpeed->setText(tr("High Speed"));
    fullSpeed->setText(tr("Full Speed"));
    phyGroup->setTitle(tr("UPHY Parameter"));
    swing->setText(tr("Swing"));
    disconnectLevel->setText(tr("Disconnect"));
    showValue(tr("0"));
    patternGroup->setTitle(tr("Test Pattern"));
    eyeDiagram->setText(tr("Eye Diagram"));
    testJ->setText(tr("Test J"));
    testK->setText(tr("Test K"));
    se0->setText(tr("SE0"));
    none->setText(tr("None"));
    usePhy->setText(tr("Use UPHY"));
    read->setDisplayText(tr("Read"));
    write->setDisplayText(tr("Write"));
    hostMode->setText(tr("Host Mode"));
    deviceMode->setText(tr("Device Mode"));
}

void UI_USBEyeTest::showValue(const QString &text)
{
    QFont font = value->font();
    font.setPixelSize(text.size() <= shortValue ? largeText : longValueText);
    value->setFont(font);
    value->setText(text);
}

QList<QWidget *> UI_USBEyeTest::widgets() const
{
    return {portGroup,    port0,      port1,           speedGroup, highSpeed, fullSpeed,
            phyGroup,     swing,      disconnectLevel, decrease,   value,     increase,
            patternGroup, eyeDiagram, testJ,           testK,      se0,       none,
            usePhy,       read,       write,           roleGroup,  hostMode,  deviceMode};
}

void UI_USBEyeTest::setupPortGroup(QWidget *host)
{
    portGroup = newGroup(host, "portGroup", QRect(20, 146, 220, 145), largeText);
    new QVBoxLayout(portGroup);
    port0 = newRadio(portGroup, "port0", true);
    port1 = newRadio(portGroup, "port1", false);
}

void UI_USBEyeTest::setupSpeedGroup(QWidget *host)
{
    speedGroup = newGroup(host, "speedGroup", QRect(20, 301, 220, 145), largeText);
    speedGroup->setEnabled(true);
    new QVBoxLayout(speedGroup);
    highSpeed = newRadio(speedGroup, "highSpeed", true);
    fullSpeed = newRadio(speedGroup, "fullSpeed", false);
}

void UI_USBEyeTest::setupPhyGroup(QWidget *host)
{
    phyGroup = newGroup(host, "phyGroup", QRect(530, 76, 220, 196), largeText);
    swing = newRadio(phyGroup, "swing", true);
    swing->setGeometry(10, 49, 220, 48);
    disconnectLevel = newRadio(phyGroup, "disconnectLevel", false);
    disconnectLevel->setGeometry(10, 97, 220, 48);
    decrease = newButton(phyGroup, "decrease", QRect(10, 147, 40, 40),
                         QStringLiteral(":/images/btn_dec_n.png"),
                         QStringLiteral(":/images/btn_dec_p.png"));
    value = new QLabel(phyGroup);
    value->setObjectName(QStringLiteral("value"));
    value->setGeometry(50, 147, 78, 40);
    value->setAlignment(Qt::AlignCenter);
    increase = newButton(phyGroup, "increase", QRect(128, 147, 40, 40),
                         QStringLiteral(":/images/btn_add_n.png"),
                         QStringLiteral(":/images/btn_add_p.png"));
}

void UI_USBEyeTest::setupPatternGroup(QWidget *host)
{
    patternGroup = newGroup(host, "patternGroup", QRect(270, 146, 220, 304), largeText);
    new QVBoxLayout(patternGroup);
    eyeDiagram = newRadio(patternGroup, "eyeDiagram", false);
    testJ = newRadio(patternGroup, "testJ", false);
    testK = newRadio(patternGroup, "testK", false);
    se0 = newRadio(patternGroup, "se0", false);
    none = newRadio(patternGroup, "none", true);
}

void UI_USBEyeTest::setupActions(QWidget *host)
{
    usePhy = new QCheckBox(host);
    usePhy->setObjectName(QStringLiteral("usePhy"));
    usePhy->setGeometry(530, 272, 220, 48);
    usePhy->setStyleSheet(markStyle(QStringLiteral("QCheckBox"), smallText));
    read = newTextButton(host, "read", QRect(530, 320, 210, 60));
    write = newTextButton(host, "write", QRect(530, 390, 210, 60));
}

void UI_USBEyeTest::setupRoleGroup(QWidget *host)
{
    roleGroup = newGroup(host, "roleGroup", QRect(20, 76, 480, 60), smallText);
    auto *layout = new QHBoxLayout(roleGroup);
    // The buttons take most of the group's height.
    layout->setContentsMargins(layout->contentsMargins().left(), 0,
                               layout->contentsMargins().right(), 0);
    hostMode = newRadio(roleGroup, "hostMode", true);
    deviceMode = newRadio(roleGroup, "deviceMode", false);
}
