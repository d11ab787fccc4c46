#include "homescreen.h"

#include "colors.h"
#include "screenlabel.h"
#include "slottile.h"

#include "hardware/storage/storage.h"

#include <QPainter>

namespace simulator
{

namespace
{
const int margin = 60;
const int gap = 16;
const int tileTop = 356;
const int tileHeight = 86;
const int widestTile = 158;
} // namespace

HomeScreen::HomeScreen(QWidget *parent)
    : QWidget(parent)
    , m_failure(new ScreenLabel(QRect(margin, 268, 680, 76), 16, colors::warning, QString(), this))
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_failure->setWordWrap(true);
    new ScreenLabel(QRect(0, 132, 800, 48), 40, colors::text, tr("Simulated head unit"), this);
    new ScreenLabel(QRect(0, 224, 800, 28), 22, colors::dimmedText,
                    tr("Press FACTORY below the screen to open the factory menu"), this);
}

void HomeScreen::setSlots(const QList<hardware::StorageSlot> &slotTable)
{
    const int count = qMax(1, slotTable.size());
    const int room = width() - 2 * margin + gap;
    const int tileWidth = qMin(widestTile, room / count - gap);
    int left = (width() - count * (tileWidth + gap) + gap) / 2;
    for (const hardware::StorageSlot &slot : slotTable) {
        auto *tile = new SlotTile(slot, this);
        tile->setGeometry(left, tileTop, tileWidth, tileHeight);
        connect(tile, &SlotTile::clicked, this, [this, tile] {
            m_failure->clear();
            emit slotTouched(tile->objectName(), tile->isPlugged());
        });
        m_tiles.append(tile);
        left += tileWidth + gap;
    }
}

void HomeScreen::setPlugged(const QStringList &mountRoots)
{
    m_failure->clear();
    for (SlotTile *tile : qAsConst(m_tiles)) {
        tile->setPlugged(mountRoots.contains(tile->mountRoot()));
    }
}

void HomeScreen::showFailure(const QString &sentence)
{
    m_failure->setText(sentence);
}

void HomeScreen::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), colors::background);
    painter.fillRect(340, 198, 120, 4, colors::accent);
}

} // namespace simulator
