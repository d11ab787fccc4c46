#include "listview.h"

#include "lvscrollbar.h"

#include "kvappframework/sysevent.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QScrollBar>

namespace
{

constexpr int stillDistance = 5; // A finger that moves further drags.

constexpr char nativeBarSheet[] =
    "QScrollBar:vertical{width:1px;background:rgba(0,0,0,0%);}"
    "QScrollBar::handle:vertical{width:1px;background:rgba(0,0,0,0%);}"
    "QScrollBar::add-line:vertical,QScrollBar::sub-line:vertical{background:rgba(0,0,0,"
    "0%);}"
    "QScrollBar::add-page:vertical,QScrollBar::sub-page:vertical{background:rgba(0,0,0,"
    "0%);}";

constexpr char customBarSheet[] =
    "QScrollBar:vertical{width:60px;background:rgba(0,0,0,0%);"
    "background-image: url(:/images/bg_scrollbar.png);margin-top:0px;margin-bottom:0px;"
    "margin-left:0px;margin-right:0px;padding-left:0px;padding-right:0px;padding-top:56px;"
    "padding-bottom:56px;}"
    "QScrollBar::add-page:vertical,QScrollBar::sub-page:vertical{width:60px;"
    "background:rgba(71, 71, 75, 0%);border:2px solid rgba(0,0,0,0%);border-radius:4px;}"
    "QScrollBar::handle:vertical{width:60px;height:86px;background:rgba(128, 128, 131,"
    "80%);border-radius:6px;}"
    "QScrollBar::add-line:vertical{height:60px;width:60px;background:rgba(0,0,0,0%);"
    "subcontrol-position: bottom;}"
    "QScrollBar::sub-line:vertical{height:56px;width:60px;background:rgba(0,0,0,0%);"
    "subcontrol-position: top;}"
    "QScrollBar::up-arrow:vertical{subcontrol-origin: margin;height:56px;width:60px;"
    "border-image: url(:/images/btn_scrollbar_up_n.png);}"
    "QScrollBar::down-arrow:vertical{subcontrol-origin: margin;height:56px;width:60px;"
    "border-image:url(:/images/btn_scrollbar_down_n.png);}"
    "QScrollBar::up-arrow:vertical:pressed{"
    "border-image:url(:/images/btn_scrollbar_up_p.png);}"
    "QScrollBar::down-arrow:vertical:pressed{"
    "border-image:url(:/images/btn_scrollbar_down_p.png);}";

constexpr char listSheet[] =
    "QListView{background-color:transparent;color:transparent;border:null;}";

} // namespace

ListView::ListView(QWidget *parent)
    : QListView(parent)
    , m_dragging(false)
    , m_pressed(false)
    , m_customBarWanted(true)
    , m_customBar(nullptr)
{
    verticalScrollBar()->setStyleSheet(QLatin1String(nativeBarSheet));
    m_customBar = new LvScrollBar(this);
    m_customBar->setStyleSheet(QLatin1String(customBarSheet));
    placeCustomBar();
    connectBars();
    setStyleSheet(QLatin1String(listSheet));
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // The finger alone scrolls: a row that is half in view must not jump away from under it.
    setAutoScroll(false);
}

LvScrollBar *ListView::getVerticalScrollBar() const
{
    return m_customBar;
}

void ListView::setCustomScrollBarVisible(bool visible)
{
    m_customBarWanted = visible;
    showCustomBarWhenNeeded();
}

void ListView::pressedTimeoutSlot()
{
    if (m_pressed) {
        m_pressedIndex = indexAt(m_pressPoint);
        emit setIndexPress(m_pressedIndex.row(), true);
    }
}

bool ListView::event(QEvent *event)
{
    const bool handled = QListView::event(event);
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::ApplicationLayoutDirectionChange:
    case QEvent::LayoutRequest:
    case QEvent::LayoutDirectionChange:
    case QEvent::StyleChange:
        placeCustomBar();
        emit scrollbarVisible(verticalScrollBar()->isVisible());
        break;
    default:
        break;
    }
    return handled;
}

void ListView::mousePressEvent(QMouseEvent *event)
{
    QAbstractItemView::mousePressEvent(event);
    m_pressPoint = event->pos();
    m_pressed = true;
    pressedTimeoutSlot();
    viewport()->update();
}

void ListView::mouseMoveEvent(QMouseEvent *event)
{
    QListView::mouseMoveEvent(event);
    if (m_pressed && qAbs(event->pos().y() - m_pressPoint.y()) > stillDistance) {
        beginDrag();
    }
    if (m_dragging) {
        emit setIndexPress(-1, false);
        dragTo(event->pos().y());
    }
    m_lastPoint = event->pos();
}

void ListView::beginDrag()
{
    if (!m_dragging) {
        m_dragging = true;
        // Scrolling moves what is painted: the pressed row has to be painted anew.
        viewport()->update();
    }
}

void ListView::dragTo(int y)
{
    QScrollBar *bar = verticalScrollBar();
    bar->setValue(qBound(bar->minimum(), bar->value() + m_lastPoint.y() - y, bar->maximum()));
}

void ListView::mouseReleaseEvent(QMouseEvent *event)
{
    QListView::mouseReleaseEvent(event);
    if (!m_dragging) {
        const QModelIndex index = indexAt(event->pos());
        if (index == m_pressedIndex) {
            click(index);
        }
    }
    m_dragging = false;
    m_pressed = false;
    viewport()->update();
}

void ListView::click(const QModelIndex &index)
{
    emit listClicked(index);
    emit setIndexPress(-1, true);
    QEvent beep(kvappframework::EventType_Beep);
    QCoreApplication::sendEvent(parent(), &beep);
}

void ListView::placeCustomBar()
{
    m_customBar->setGeometry(QRect(QPoint(width() - 70, 16), QPoint(width() - 11, height() - 13)));
    m_customBar->raise();
    showCustomBarWhenNeeded();

    const QScrollBar *native = verticalScrollBar();
    m_customBar->setInvertedAppearance(native->invertedAppearance());
    m_customBar->setInvertedControls(native->invertedControls());
    m_customBar->setRange(native->minimum(), native->maximum());
    m_customBar->setPageStep(native->pageStep());
    m_customBar->setSingleStep(native->singleStep());
    m_customBar->setSliderDown(native->isSliderDown());
    m_customBar->setSliderPosition(native->sliderPosition());
    m_customBar->setTracking(native->hasTracking());
    m_customBar->setValue(native->value());
}

void ListView::showCustomBarWhenNeeded()
{
    m_customBar->setVisible(m_customBarWanted && verticalScrollBar()->isVisible());
}

void ListView::connectBars()
{
    QScrollBar *native = verticalScrollBar();
    connect(native, &QScrollBar::valueChanged, m_customBar, &QScrollBar::setValue);
    connect(native, &QScrollBar::rangeChanged, m_customBar, &QScrollBar::setRange);
    connect(m_customBar, &QScrollBar::valueChanged, native, &QScrollBar::setValue);
    connect(m_customBar, &QScrollBar::rangeChanged, native, &QScrollBar::setRange);
}
