#include "kvwidget/kvimagebutton.h"

#include "kvpainting.h"

#include <QPainter>

KvImageButton::KvImageButton(QWidget *parent)
    : KvTouchButton(parent)
{
}

QString KvImageButton::buttonID() const
{
    return m_buttonID;
}

void KvImageButton::setDisplayText(QString text)
{
    m_displayText = text;
    update();
}

QString KvImageButton::displayText() const
{
    return m_displayText;
}

void KvImageButton::setTextSize(int pixels)
{
    m_textSize = qMax(1, pixels);
    update();
}

int KvImageButton::textSize() const
{
    return m_textSize;
}

void KvImageButton::setShowMode(const ShowMode &mode)
{
    m_showMode = mode;
    update();
}

KvImageButton::ShowMode KvImageButton::showMode() const
{
    return m_showMode;
}

void KvImageButton::setNormalImage(const QPixmap &image)
{
    m_normalImage = image;
    faceSizeChanged();
}

QPixmap KvImageButton::normalImage() const
{
    return m_normalImage;
}

void KvImageButton::setPressImage(const QPixmap &image)
{
    m_pressImage = image;
    update();
}

QPixmap KvImageButton::pressImage() const
{
    return m_pressImage;
}

void KvImageButton::setNormalTextColor(const QColor &color)
{
    m_normalTextColor = color;
    update();
}

QColor KvImageButton::normalTextColor() const
{
    return m_normalTextColor;
}

void KvImageButton::setPressTextColor(const QColor &color)
{
    m_pressTextColor = color;
    update();
}

QColor KvImageButton::pressTextColor() const
{
    return m_pressTextColor;
}

void KvImageButton::keepButtonID(const QString &id)
{
    m_buttonID = id;
}

bool KvImageButton::showsPressed() const
{
    return isUnderFinger();
}

QPixmap KvImageButton::precedingImage() const
{
    return QPixmap();
}

QSize KvImageButton::faceSize() const
{
    return m_normalImage.size();
}

void KvImageButton::paintEvent(QPaintEvent *event)
{
    KvTouchButton::paintEvent(event);
    QPainter painter(this);
    drawFace(painter);
    if (m_showMode == ShowImageText) {
        drawText(painter);
    }
}

void KvImageButton::drawFace(QPainter &painter) const
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

void KvImageButton::drawText(QPainter &painter) const
{
    painter.setOpacity(takesTouches() ? 1 : kvpainting::dimmedText);
    painter.setPen(showsPressed() ? m_pressTextColor : m_normalTextColor);
    kvpainting::drawButtonText(painter, rect(), m_displayText, m_textSize);
}
