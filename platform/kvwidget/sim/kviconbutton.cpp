#include "kvwidget/kviconbutton.h"

#include "kvpainting.h"

#include "unitlink/calls.h"

#include <QPainter>
#include <QPointer>

KvIconButton::KvIconButton(QWidget *parent)
    : KvTouchButton(parent)
{
}

void KvIconButton::setButtonID(const QString &id)
{
    m_buttonID = id;
}

QString KvIconButton::buttonID()
{
    return m_buttonID;
}

void KvIconButton::setDisplayText(QString text)
{
    m_displayText = text;
    update();
}

QString KvIconButton::displayText() const
{
    return m_displayText;
}

void KvIconButton::setTextSize(int pixels)
{
    m_textSize = qMax(1, pixels);
    update();
}

void KvIconButton::setShowMode(const ShowMode &mode)
{
    m_showMode = mode;
    update();
}

void KvIconButton::setNormalImage(const QPixmap &image)
{
    m_normalImage = image;
    faceSizeChanged();
}

void KvIconButton::setPressImage(const QPixmap &image)
{
    m_pressImage = image;
    update();
}

void KvIconButton::setNormalTextColor(const QColor &color)
{
    m_normalTextColor = color;
    update();
}

void KvIconButton::setPressTextColor(const QColor &color)
{
    m_pressTextColor = color;
    update();
}

void KvIconButton::setOverImage(const QPixmap &image)
{
    m_overImage = image;
    update();
}

void KvIconButton::setDisableImage(const QPixmap &image)
{
    m_disableImage = image;
    update();
}

void KvIconButton::setDisableMode(const DisableMode &mode)
{
    m_disableMode = mode;
    update();
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

bool KvIconButton::showsPressed() const
{
    return isUnderFinger();
}

QSize KvIconButton::faceSize() const
{
    return m_normalImage.size();
}

bool KvIconButton::takesTouches() const
{
    return !m_disableState && KvTouchButton::takesTouches();
}

void KvIconButton::fingerLifted()
{
    const QString id = buttonID();
    const QPointer<KvIconButton> self(this);
    unitlink::tellOfTouch(id + QStringLiteral(" btnReleased"));
    emit btnReleased(id);
    if (self) {
        unitlink::tellOfTouch(id + QStringLiteral(" btnClicked"));
        emit btnClicked(id);
    }
}

void KvIconButton::paintEvent(QPaintEvent *event)
{
    KvTouchButton::paintEvent(event);
    QPainter painter(this);
    drawFace(painter);
    if (m_showMode == ShowImageText) {
        drawText(painter);
    }
}

QPixmap KvIconButton::precedingImage() const
{
    if (!takesTouches()) {
        return (m_disableMode & DisableImage) ? m_disableImage : QPixmap();
    }
    return isUnderFinger() ? m_overImage : QPixmap();
}

void KvIconButton::drawFace(QPainter &painter) const
{
    const QPixmap preceding = precedingImage();
    if (!preceding.isNull()) {
        kvpainting::drawImage(painter, rect(), preceding);
        return;
    }
    painter.setOpacity(takesTouches() ? 1 : kvpainting::dimmedImage);
    const bool pressed = showsPressed() && !m_pressImage.isNull();
    kvpainting::drawImage(painter, rect(), pressed ? m_pressImage : m_normalImage);
}

void KvIconButton::drawText(QPainter &painter) const
{
    painter.setOpacity(takesTouches() ? 1 : kvpainting::dimmedText);
    painter.setPen(showsPressed() ? m_pressTextColor : m_normalTextColor);
    kvpainting::drawButtonText(painter, rect(), m_displayText, m_textSize);
}
