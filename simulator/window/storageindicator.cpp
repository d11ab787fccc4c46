#include "storageindicator.h"

#include "colors.h"
#include "screenlabel.h"

#include "hardware/storage/storage.h"

#include <QPainter>

namespace simulator
{

StorageIndicator::StorageIndicator(const hardware::StorageSlot &slot, QWidget *parent)
    : QWidget(parent)
    , m_mountRoot(slot.mountRoot)
    , m_name(new ScreenLabel(QRect(), 20, colors::text, slot.name.toUpper(), this))
    , m_state(new ScreenLabel(QRect(), 16, colors::dimmedText, QString(), this))
{
    setPlugged(false);
}

QString StorageIndicator::mountRoot() const
{
    return m_mountRoot;
}

void StorageIndicator::setPlugged(bool plugged)
{
    m_plugged = plugged;
    m_state->setText(plugged ? tr("plugged") : tr("empty"));
    m_state->setColor(plugged ? colors::accent : colors::dimmedText);
    update();
}

void StorageIndicator::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_plugged ? colors::accent : colors::surface, 2));
    painter.setBrush(QColor(24, 25, 27));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
}

void StorageIndicator::resizeEvent(QResizeEvent *)
{
    m_name->setGeometry(0, 7, width(), 24);
    m_state->setGeometry(0, 32, width(), 20);
}

} // namespace simulator
