#include "kvwidget/kvlockbutton.h"

KvLockButton::KvLockButton(QWidget *parent)
    : KvImageButton(parent)
{
}

void KvLockButton::setButtonID(QString id)
{
    keepButtonID(id);
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
    emit btnReleased(buttonID());
}

bool KvLockButton::showsPressed() const
{
    return isDown();
}
