#include "bezel.h"

#include "backlight.h"
#include "colors.h"
#include "hardkey.h"
#include "modeindicator.h"
#include "screen.h"

#include <QBackingStore>
#include <QCoreApplication>
#include <QEvent>
#include <QPainter>

namespace simulator
{

namespace
{
constexpr QSize windowSize(880, 612);
constexpr QPoint screenPosition(40, 36);
constexpr QRect keyStrip(40, 524, 800, 88);
const int keyGap = 20;
constexpr QColor frameTop(43, 45, 48);
constexpr QColor frameBottom(25, 26, 28);
} // namespace

Bezel::Bezel()
    : m_screen(new Screen(this))
    , m_backlight(new Backlight(this))
    , m_homeKey(new HardKey(tr("HOME"), this))
    , m_factoryKey(new HardKey(tr("FACTORY"), this))
    , m_modeIndicator(new ModeIndicator(this))
{
    setWindowTitle(tr("Simulated head unit"));
    setFixedSize(windowSize);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_screen->move(screenPosition);
    m_backlight->setGeometry(m_screen->geometry());
    const int keyTop = keyStrip.center().y() - m_homeKey->height() / 2;
    m_homeKey->move(width() / 2 - keyGap / 2 - m_homeKey->width(), keyTop);
    m_factoryKey->move(width() / 2 + keyGap / 2, keyTop);
    m_modeIndicator->move(keyStrip.right() + 1 - m_modeIndicator->width(),
                          keyStrip.center().y() - m_modeIndicator->height() / 2);
}

Screen &Bezel::screen()
{
    return *m_screen;
}

HardKey &Bezel::homeKey()
{
    return *m_homeKey;
}

HardKey &Bezel::factoryKey()
{
    return *m_factoryKey;
}

Backlight &Bezel::backlight()
{
    return *m_backlight;
}

ModeIndicator &Bezel::modeIndicator()
{
    return *m_modeIndicator;
}

QImage Bezel::lastFrame() const
{
    QMutexLocker locker(&m_frameMutex);
    return m_frame;
}

void Bezel::paintPending()
{
    QEvent request(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(this, &request);
}

QRect Bezel::screenRect() const
{
    return m_screen->geometry();
}

bool Bezel::event(QEvent *event)
{
    const bool handled = QWidget::event(event);
    // Qt paints a window and its children in answer to this event, be it posted by update() or
    // sent by repaint().
    if (event->type() == QEvent::UpdateRequest) {
        keepFrame();
    }
    return handled;
}

void Bezel::paintEvent(QPaintEvent *)
{
    QLinearGradient frame(0, 0, 0, height());
    frame.setColorAt(0, frameTop);
    frame.setColorAt(1, frameBottom);

    QPainter painter(this);
    painter.fillRect(rect(), frame);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(64, 67, 71), 1));
    painter.setBrush(Qt::black);
    painter.drawRoundedRect(QRectF(screenRect()).adjusted(-7.5, -7.5, 7.5, 7.5), 6, 6);

    painter.setPen(Qt::NoPen);
    painter.setBrush(colors::accent);
    painter.drawEllipse(QPointF(keyStrip.left() + 5, keyStrip.center().y() + 0.5), 4, 4);
    painter.setPen(colors::dimmedText);
    QFont labelFont = font();
    labelFont.setPixelSize(15);
    painter.setFont(labelFont);
    painter.drawText(keyStrip.adjusted(20, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     tr("Simulated head unit"));

    // A window that comes to light is painted without the event above; its children follow yet.
    QMetaObject::invokeMethod(this, &Bezel::keepFrame, Qt::QueuedConnection);
}

void Bezel::keepFrame()
{
    QBackingStore *store = backingStore();
    const auto *image =
        store == nullptr ? nullptr : dynamic_cast<const QImage *>(store->paintDevice());
    if (image != nullptr) {
        // The window system may own the image's bytes, so they are not shared.
        const QImage frame = withoutOpacity(image->copy());
        QMutexLocker locker(&m_frameMutex);
        m_frame = frame;
        locker.unlock();
        emit painted();
    }
}

QImage withoutOpacity(QImage image)
{
    return image.reinterpretAsFormat(QImage::Format_RGB32)
        ? image
        : image.convertToFormat(QImage::Format_RGB32); // of another depth
}

} // namespace simulator
