#include "homescreen.h"

#include "colors.h"
#include "screenlabel.h"
#include "storageindicator.h"

#include "hardware/storage/storage.h"

#include <QPainter>

namespace simulator
{

namespace
{
const int margin = 60;
const int gap = 16;
const int indicatorTop = 376;
const int indicatorHeight = 60;
const int widestIndicator = 158;
} // namespace

HomeScreen::HomeScreen(QWidget *parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    new ScreenLabel(QRect(0, 132, 800, 48), 40, colors::text, tr("Simulated head unit"), this);
    new ScreenLabel(QRect(0, 224, 800, 28), 22, colors::dimmedText,
                    tr("Press FACTORY below the screen to open the factory menu"), this);
}

void HomeScreen::setSlots(const QList<hardware::StorageSlot> &slotTable)
{
    const int count = qMax(1, slotTable.size());
    const int room = width() - 2 * margin + gap;
    const int indicatorWidth = qMin(widestIndicator, room / count - gap);
    int left = (width() - count * (indicatorWidth + gap) + gap) / 2;
    for (const hardware::StorageSlot &slot : slotTable) {
        auto *indicator = new StorageIndicator(slot, this);
        indicator->setGeometry(left, indicatorTop, indicatorWidth, indicatorHeight);
        m_indicators.append(indicator);
        left += indicatorWidth + gap;
    }
}

void HomeScreen::setPlugged(const QStringList &mountRoots)
{
    for (StorageIndicator *indicator : qAsConst(m_indicators)) {
        indicator->setPlugged(mountRoots.contains(indicator->mountRoot()));
    }
}

void HomeScreen::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), colors::background);
    painter.fillRect(340, 198, 120, 4, colors::accent);
}

} // namespace simulator
