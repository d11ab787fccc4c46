#include "glassview.h"

#include "panelstyle.h"
#include "unitclient.h"

#include <QMouseEvent>
#include <QPainter>

namespace panel
{

namespace
{

constexpr QSize unitScreen(800, 480);

} // namespace

GlassView::GlassView(UnitClient &client, QWidget *parent)
    : QWidget(parent)
    , m_client(client)
{
    setObjectName(QStringLiteral("glass"));
    setMinimumSize(unitScreen / 4);
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setToolTip(tr("The unit's screen; touch it here"));
    connect(&client, &UnitClient::screenChanged, this, [this](const QImage &screen) {
        m_screen = screen;
        update();
    });
    connect(&client, &UnitClient::detached, this, [this] {
        m_screen = QImage();
        update();
    });
}

QSize GlassView::sizeHint() const
{
    return unitScreen / 2;
}

int GlassView::heightForWidth(int width) const
{
    return width * unitScreen.height() / unitScreen.width();
}

void GlassView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillRect(picture(), Qt::black);
    if (m_screen.isNull()) {
        painter.setPen(style::dimmed);
        painter.drawText(rect(), Qt::AlignCenter, tr("The screen is dark."));
        return;
    }
    // Not by QImage::scaled(): Qt 5.15 splits that among threads, and may then write to a semaphore
    // on the stack whose place is somebody else's by now.
    painter.drawImage(picture(), m_screen);
}

void GlassView::showEvent(QShowEvent *)
{
    m_client.setWatchingScreen(true);
}

void GlassView::hideEvent(QHideEvent *)
{
    m_client.setWatchingScreen(false);
}

void GlassView::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && picture().contains(event->pos())) {
        touch(QStringLiteral("hold"), event->pos());
    }
}

void GlassView::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons().testFlag(Qt::LeftButton) && onScreen(event->pos()) != m_finger) {
        touch(QStringLiteral("hold"), event->pos());
    }
}

void GlassView::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton) {
        touch(QStringLiteral("lift"), event->pos());
    }
}

/// Where the screen is shown: as large as there is room, in its proportions.
QRect GlassView::picture() const
{
    QRect place(QPoint(0, 0), unitScreen.scaled(size(), Qt::KeepAspectRatio));
    place.moveCenter(rect().center());
    return place;
}

QPoint GlassView::onScreen(const QPoint &place) const
{
    const QPoint inside = place - picture().topLeft();
    return {
        qBound(0, inside.x() * unitScreen.width() / picture().width(), unitScreen.width() - 1),
        qBound(0, inside.y() * unitScreen.height() / picture().height(), unitScreen.height() - 1)};
}

void GlassView::touch(const QString &verb, const QPoint &place)
{
    m_finger = onScreen(place);
    m_client.command({verb, QString::number(m_finger.x()), QString::number(m_finger.y())});
}

} // namespace panel
