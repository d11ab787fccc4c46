#include "kvwidget/popupview.h"

#include "kvwidget/baseview.h"
#include "kvwidget/kviconbutton.h"
#include "popupbox.h"

#include "hardware/unit/cause.h"
#include "unitlink/simulatedunit.h"

#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <QTimer>

namespace
{

/// What lies over a page that takes no touches.
constexpr QColor shade(0, 0, 0, 150);

/// Remembers what it was started for.
class PopupTimer : public QTimer
{
public:
    using QTimer::QTimer;

    void setCause(const hardware::Cause &cause) { m_cause = cause; }
    hardware::Cause cause() const { return m_cause; }

private:
    hardware::Cause m_cause;
};

bool carriesSomething(const QWidget &page)
{
    const QObjectList &all = page.children();
    for (const QObject *child : all) {
        const auto *widget = qobject_cast<const QWidget *>(child);
        if (widget != nullptr && !widget->isWindow() && !widget->isHidden()) {
            return true;
        }
    }
    return false;
}

} // namespace

PopupView::PopupView(QWidget *parent)
    : KvWidget(parent)
    , m_box(new PopupBox(*this))
    , m_timer(new PopupTimer(this))
{
    setAttribute(Qt::WA_NoMousePropagation);
    m_timer->setSingleShot(true);
    m_timer->setTimerType(Qt::PreciseTimer);
    connect(m_timer, &QTimer::timeout, this, [this] {
        const hardware::CauseScope scope(static_cast<PopupTimer *>(m_timer)->cause());
        goAwayWithPage(&PopupView::timeout);
    });
    connect(m_box->ok(), &KvIconButton::btnClicked, this, [this] { goAway(&PopupView::ok); });
    connect(m_box->cancel(), &KvIconButton::btnClicked, this,
            [this] { goAwayWithPage(&PopupView::cancel); });
}

PopupView::~PopupView() = default;

void PopupView::setPopupViewId(const QString &id)
{
    m_id = id;
}

void PopupView::setButtonType(ButtonType type)
{
    m_box->setButtonType(type);
}

void PopupView::setButtonPosition(ButtonPosition position)
{
    m_box->setButtonPosition(position);
}

void PopupView::setShowTimeout(int ms)
{
    m_showTimeout = ms;
}

void PopupView::setOkText(const QString &text)
{
    m_box->ok()->setDisplayText(text);
}

void PopupView::setCancelText(const QString &text)
{
    m_box->cancel()->setDisplayText(text);
}

void PopupView::setText(const QString &text)
{
    m_box->setText(text);
}

QString PopupView::text() const
{
    return m_box->text();
}

void PopupView::setButtonDisabled(QString buttonName, bool disabled)
{
    for (KvIconButton *button : {m_box->ok(), m_box->cancel()}) {
        if (button->buttonID() == buttonName) {
            button->setDisableState(disabled);
        }
    }
}

void PopupView::setVisible(bool visible)
{
    KvWidget::setVisible(visible);
    // A box that was visible already gets no show event.
    if (isVisible()) {
        startTimeout();
    }
}

QSize PopupView::sizeHint() const
{
    return m_box->size();
}

bool PopupView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget()) {
        if (event->type() == QEvent::Resize) {
            m_box->layOut();
        } else if (event->type() == QEvent::Paint) {
            dimPage();
        }
    }
    return KvWidget::eventFilter(watched, event);
}

void PopupView::showEvent(QShowEvent *event)
{
    KvWidget::showEvent(event);
    if (parentWidget() != nullptr) {
        parentWidget()->installEventFilter(this);
        parentWidget()->update();
    }
    m_box->layOut();
    raise();
    startTimeout();
}

void PopupView::hideEvent(QHideEvent *event)
{
    KvWidget::hideEvent(event);
    if (parentWidget() != nullptr) {
        parentWidget()->removeEventFilter(this);
        parentWidget()->update();
    }
    m_timer->stop();
}

void PopupView::paintEvent(QPaintEvent *event)
{
    KvWidget::paintEvent(event);
    m_box->paint();
}

void PopupView::goAway(Signal signal)
{
    const QString id = m_id;
    const QPointer<PopupView> self(this);
    hide();
    if (self) {
        (this->*signal)(id);
    }
}

void PopupView::goAwayWithPage(Signal signal)
{
    const QPointer<BaseView> page(qobject_cast<BaseView *>(parentWidget()));
    goAway(signal);
    // Only now: whoever heard the signal may have put something else on the page, or deleted it.
    if (page && !carriesSomething(*page)) {
        page->hide();
    }
}

void PopupView::startTimeout()
{
    if (m_showTimeout > 0) {
        static_cast<PopupTimer *>(m_timer)->setCause(hardware::Cause::current());
        m_timer->start(unitlink::hostMs(m_showTimeout));
    } else {
        m_timer->stop();
    }
}

/// Below the page's own style sheet, so that a page which is opaque stays as it is.
void PopupView::dimPage()
{
    if (auto *page = qobject_cast<BaseView *>(parentWidget())) {
        QPainter(page).fillRect(page->rect(), shade);
    }
}
