#include "plainactivity.h"

#include <QPushButton>

/// With what the menu shows, as Qt's own push buttons.
class MenuActivity : public PlainActivity
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "activity/0.1")
    Q_INTERFACES(kvappframework::Activity)

protected:
    void furnish(QWidget *view) override
    {
        view->setStyleSheet(QStringLiteral(
            "QPushButton { border-image: url(:/images/btn210x60_n.png); color: #f0f0f0;"
            " font-size: 28px; }"
            "QPushButton:pressed { border-image: url(:/images/btn210x60_p.png); }"));
        int index = 0;
        for (const char *text :
             {"USB Test", "USB Eye", "NCM Test", "KeyColor", "Vendordata", "GPS Update", "ALS Test",
              "Product", "SysCtrl", "Panel Config", "Copy Btsnoop", "Capture", "Start USB Test"}) {
            auto *button = new QPushButton(QString::fromLatin1(text), view);
            button->setGeometry(65 + 230 * (index % 3), 90 + 80 * (index / 3), 210, 60);
            ++index;
        }
    }
};

#include "menuactivity.moc"
