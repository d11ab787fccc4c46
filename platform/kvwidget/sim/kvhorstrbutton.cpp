#include "kvwidget/kvhorstrbutton.h"

#include "kvpainting.h"

#include "unitlink/calls.h"

#include <QFontInfo>
#include <QPainter>

KvHorStrButton::KvHorStrButton(QWidget *parent)
    : KvTouchButton(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void KvHorStrButton::setButtonId(QString id)
{
    m_buttonId = id;
}

QString KvHorStrButton::buttonId() const
{
    return m_buttonId;
}

void KvHorStrButton::setDisplayString(QString text)
{
    m_displayString = text;
    update();
}

void KvHorStrButton::setNormalPixmap(QPixmap pixmap)
{
    m_normalPixmap = pixmap;
    faceSizeChanged();
}

void KvHorStrButton::setPressPixmap(QPixmap pixmap)
{
    m_pressPixmap = pixmap;
    update();
}

void KvHorStrButton::setDisablePixmap(QPixmap pixmap)
{
    m_disablePixmap = pixmap;
    update();
}

QSize KvHorStrButton::faceSize() const
{
    return m_normalPixmap.size();
}

QRect KvHorStrButton::touchArea() const
{
    const int high = qMin(height(), qMax(sizeHint().height(), minimumHeight()));
    return QRect(0, (height() - high) / 2, width(), high);
}

void KvHorStrButton::fingerLifted()
{
    unitlink::tellOfTouch(m_buttonId + QStringLiteral(" clicked"));
    emit clicked(m_buttonId);
}

void KvHorStrButton::paintEvent(QPaintEvent *event)
{
    KvTouchButton::paintEvent(event);
    QPainter painter(this);
    const bool dimmed = !takesTouches() && m_disablePixmap.isNull();
    painter.setOpacity(dimmed ? kvpainting::dimmedImage : 1);
    kvpainting::drawImage(painter, rect(), facePixmap());

    painter.setOpacity(takesTouches() ? 1 : kvpainting::dimmedText);
    painter.setPen(palette().color(QPalette::Active, foregroundRole()));
    kvpainting::drawButtonText(painter, rect(), m_displayString, QFontInfo(font()).pixelSize());
}

QPixmap KvHorStrButton::facePixmap() const
{
    if (!takesTouches() && !m_disablePixmap.isNull()) {
        return m_disablePixmap;
    }
    if (isUnderFinger() && !m_pressPixmap.isNull()) {
        return m_pressPixmap;
    }
    return m_normalPixmap;
}
