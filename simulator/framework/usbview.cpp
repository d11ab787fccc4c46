#include "usbview.h"

#include "simulator/window/colors.h"
#include "simulator/window/screenlabel.h"

#include <QPainter>

namespace simulator
{

UsbView::UsbView(QWidget *parent)
    : QWidget(parent)
    , m_argument(new ScreenLabel(QRect(0, 224, 800, 28), 22, colors::dimmedText, QString(), this))
{
    setGeometry(parent->rect());
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_NoMousePropagation);
    new ScreenLabel(QRect(0, 132, 800, 48), 40, colors::text, tr("USB media (simulated)"), this);
    new ScreenLabel(QRect(0, 376, 800, 24), 18, colors::dimmedText, tr("HOME leaves it"), this);
}

void UsbView::setArgument(int argument)
{
    m_argument->setText(tr("Started with argument %1").arg(argument));
}

void UsbView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), colors::background);
    painter.fillRect(340, 198, 120, 4, colors::accent);
}

} // namespace simulator
