#pragma once

#include "testpagebutton.h"

#include "kvwidget/kviconbutton.h"

constexpr QColor overColor(0, 255, 0);

/// A button with a normal image, and the order in which its signals came.
class Button : public KvIconButton
{
public:
    explicit Button(QWidget *parent = nullptr)
        : KvIconButton(parent)
    {
        setGeometry(place);
        setButtonID("usbtest");
        setNormalImage(plain(place.size(), normalColor));
        connect(this, &KvIconButton::btnReleased, this,
                [this](const QString &id) { heard << "released " + id; });
        connect(this, &KvIconButton::btnClicked, this,
                [this](const QString &id) { heard << "clicked " + id; });
    }

    QStringList heard;
};
