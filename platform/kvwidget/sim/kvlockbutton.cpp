#include "kvwidget/kvlockbutton.h"

#include "unitlink/calls.h"

#include <QVariant>

KvLockButton::KvLockButton(QWidget *parent)
    : KvIconButton(parent)
{
}

void KvLockButton::setButtonID(QString id)
{
    KvIconButton::setButtonID(id);
}

QString KvLockButton::buttonID() const
{
    return property("buttonID").toString();
}

void KvLockButton::setIsDown(bool down)
{
    m_latched = down;
    update();
}

bool KvLockButton::isDown() const
{
    return m_latched || isUnderFinger();
}

void KvLockButton::fingerLifted()
{
    setIsDown(true);
    unitlink::tellOfTouch(buttonID() + QStringLiteral(" btnReleased"));
    emit btnReleased(buttonID());
}

bool KvLockButton::showsPressed() const
{
    return isDown();
}
