#include "menubutton.h"

#include "common/textonimage.h"

#include "kvwidget/kviconbutton.h"

KvIconButton *createMenuButton(const QRect &rect, const QString &label, const QString &id,
                               QWidget *parent)
{
    const QColor textColor(240, 240, 240, 255);
    auto *button = new KvIconButton(parent);
    // A button whose rectangle is empty takes the size of its image.
    button->setGeometry(rect);
    button->setNormalImage(QPixmap(QStringLiteral(":/images/btn210x60_n.png")));
    button->setOverImage(QPixmap(QStringLiteral(":/images/btn210x60_p.png")));
    button->setShowMode(textOnImage);
    button->setTextSize(28);
    button->setNormalTextColor(textColor);
    button->setPressTextColor(textColor);
    button->setDisplayText(label);
    button->setButtonID(id);
    return button;
}
