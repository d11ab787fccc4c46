#include "slottile.h"

#include "colors.h"

#include "hardware/storage/storage.h"

#include <QPainter>

namespace simulator
{

namespace
{

const int textMargin = 6;
const int smallestFont = 6;
constexpr QColor face(24, 25, 27);
constexpr QColor pressedFace(16, 62, 96);

/// Smaller where the line is too narrow.
void draw(QPainter &painter, const QRect &line, int pixelSize, const QColor &color,
          const QString &text)
{
    QFont font = painter.font();
    do {
        font.setPixelSize(pixelSize);
    } while (QFontMetrics(font).horizontalAdvance(text) > line.width()
             && --pixelSize > smallestFont);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(line, Qt::AlignCenter, text);
}

} // namespace

SlotTile::SlotTile(const hardware::StorageSlot &slot, QWidget *parent)
    : QAbstractButton(parent)
    , m_mountRoot(slot.mountRoot)
{
    setObjectName(slot.name);
    setText(slot.name.toUpper());
    setFocusPolicy(Qt::NoFocus);
}

QString SlotTile::mountRoot() const
{
    return m_mountRoot;
}

bool SlotTile::isPlugged() const
{
    return m_plugged;
}

void SlotTile::setPlugged(bool plugged)
{
    m_plugged = plugged;
    update();
}

QString SlotTile::state() const
{
    return m_plugged ? tr("plugged") : tr("empty");
}

QString SlotTile::action() const
{
    return m_plugged ? tr("touch to pull") : tr("touch to plug");
}

void SlotTile::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_plugged || isDown() ? colors::accent : colors::surface, 2));
    painter.setBrush(isDown() ? pressedFace : face);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 6, 6);
    const int room = width() - 2 * textMargin;
    const QColor dimmed = isDown() ? colors::text : colors::dimmedText;
    draw(painter, QRect(textMargin, 9, room, 24), 20, colors::text, text());
    draw(painter, QRect(textMargin, 36, room, 20), 16, m_plugged ? colors::accent : dimmed,
         state());
    draw(painter, QRect(textMargin, 58, room, 18), 14, dimmed, action());
}

} // namespace simulator
