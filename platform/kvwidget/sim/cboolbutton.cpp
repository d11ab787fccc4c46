#include "kvwidget/cboolbutton.h"

#include "kvpainting.h"

#include "unitlink/calls.h"

#include <QPainter>

namespace
{

constexpr qreal underFingerOpacity = 0.75;

}

CBoolButton::CBoolButton(QWidget *parent)
    : KvTouchButton(parent)
    , m_onImage(QStringLiteral(":/kvwidget/switch_on.png"))
    , m_offImage(QStringLiteral(":/kvwidget/switch_off.png"))
{
}

void CBoolButton::setButtonID(const QString &id)
{
    m_buttonID = id;
}

QString CBoolButton::buttonID()
{
    return m_buttonID;
}

void CBoolButton::setState(bool on)
{
    m_state = on;
    update();
}

bool CBoolButton::state() const
{
    return m_state;
}

void CBoolButton::setOnImage(const QPixmap &image)
{
    m_onImage = image;
    update();
}

void CBoolButton::setOffImage(const QPixmap &image)
{
    m_offImage = image;
    faceSizeChanged();
}

QSize CBoolButton::faceSize() const
{
    return m_offImage.size();
}

void CBoolButton::fingerLifted()
{
    setState(!m_state);
    unitlink::tellOfTouch(m_buttonID + QStringLiteral(" btnReleased"));
    emit btnReleased(m_buttonID, m_state);
}

void CBoolButton::paintEvent(QPaintEvent *event)
{
    KvTouchButton::paintEvent(event);
    QPainter painter(this);
    if (!takesTouches()) {
        painter.setOpacity(kvpainting::dimmedImage);
    } else if (isUnderFinger()) {
        painter.setOpacity(underFingerOpacity);
    }
    kvpainting::drawImage(painter, rect(), m_state ? m_onImage : m_offImage);
}
