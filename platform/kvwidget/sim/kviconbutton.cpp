#include "kvwidget/kviconbutton.h"

#include <QPointer>

KvIconButton::KvIconButton(QWidget *parent)
    : KvImageButton(parent)
{
}

void KvIconButton::setButtonID(const QString &id)
{
    keepButtonID(id);
}

void KvIconButton::setOverImage(const QPixmap &image)
{
    m_overImage = image;
    update();
}

QPixmap KvIconButton::overImage() const
{
    return m_overImage;
}

void KvIconButton::setDisableImage(const QPixmap &image)
{
    m_disableImage = image;
    update();
}

QPixmap KvIconButton::disableImage() const
{
    return m_disableImage;
}

void KvIconButton::setDisableMode(const DisableMode &mode)
{
    m_disableMode = mode;
    update();
}

KvIconButton::DisableMode KvIconButton::disableMode() const
{
    return m_disableMode;
}

void KvIconButton::setDisableState(const bool &disabled)
{
    m_disableState = disabled;
    if (disabled) {
        cancelPress();
    }
    update();
}

bool KvIconButton::disableState() const
{
    return m_disableState;
}

bool KvIconButton::takesTouches() const
{
    return !m_disableState && KvImageButton::takesTouches();
}

void KvIconButton::fingerLifted()
{
    const QString id = buttonID();
    const QPointer<KvIconButton> self(this);
    emit btnReleased(id);
    if (self) {
        emit btnClicked(id);
    }
}

QPixmap KvIconButton::precedingImage() const
{
    if (!takesTouches()) {
        return (m_disableMode & DisableImage) ? m_disableImage : QPixmap();
    }
    return isUnderFinger() ? m_overImage : QPixmap();
}
