#include "service/displaycontrol.h"

#include "support/testmain.h"
#include "support/testunit.h"

#include <QtTest>

using hardware::Panel;

class TestDisplayControl : public QObject
{
    Q_OBJECT

private slots:
    void saysWhatThePanelShows();
    void appliesAtOnce();
};

void TestDisplayControl::saysWhatThePanelShows()
{
    TestUnit unit;
    Panel &panel = unit.unit().panel();
    panel.setValue(Panel::Brightness, 30);
    panel.setValue(Panel::Contrast, 4);
    panel.setValue(Panel::Hue, 5);
    panel.setSaturation(1.25);
    QCOMPARE(DisplayControl::getInstance()->panelBrightness(), 30);
    QCOMPARE(DisplayControl::getInstance()->panelContrast(), 4);
    QCOMPARE(DisplayControl::getInstance()->panelHue(), 5);
    QCOMPARE(DisplayControl::getInstance()->panelSaturation(), 1.25);
}

void TestDisplayControl::appliesAtOnce()
{
    TestUnit unit;
    DisplayControl::getInstance()->setPanelBrightness(1);
    DisplayControl::getInstance()->setPanelContrast(2);
    DisplayControl::getInstance()->setPanelHue(3);
    DisplayControl::getInstance()->setPanelSaturation(0.25);
    QCOMPARE(unit.journal(QStringLiteral("/^panel /")),
             QStringList({QStringLiteral("panel brightness 1"), QStringLiteral("panel contrast 2"),
                          QStringLiteral("panel hue 3"), QStringLiteral("panel saturation 0.25")}));
    QCOMPARE(unit.unit().panel().value(Panel::Contrast), 2);
}

FACTORY_TEST_MAIN(TestDisplayControl)
#include "tst_displaycontrol.moc"
