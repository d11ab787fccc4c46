#include "kvwidget/popupview.h"

#include "kvpainting.h"
#include "kvwidget/baseview.h"
#include "kvwidget/kviconbutton.h"

#include "simlink/simulatedunit.h"

#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <QTimer>

namespace
{

constexpr QSize boxWithButtons(676, 280);
constexpr QSize boxWithoutButtons(676, 164);
constexpr QSize buttonSize(140, 60);

constexpr int sideMargin = 31;
constexpr int topMargin = 16;
constexpr int bottomMargin = 24;
constexpr int textToButtons = 12;
constexpr int betweenButtons = 78;

constexpr int textSize = 30;
constexpr int smallestWholeWords = 22;
constexpr int smallestText = 12;
constexpr int buttonTextSize = 28;

/// What lies over a page that takes no touches.
constexpr QColor shade(0, 0, 0, 150);

const char okName[] = "popupview_ok";
const char cancelName[] = "popupview_cancel";

QPixmap image(const char *name)
{
    return QPixmap(QLatin1String(":/kvwidget/") + QLatin1String(name));
}

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
    , m_ok(createButton(QLatin1String(okName), tr("OK")))
    , m_cancel(createButton(QLatin1String(cancelName), tr("Cancel")))
    , m_timer(new QTimer(this))
{
    setAttribute(Qt::WA_NoMousePropagation);
    m_timer->setSingleShot(true);
    m_timer->setTimerType(Qt::PreciseTimer);
    connect(m_timer, &QTimer::timeout, this, [this] { goAwayWithPage(&PopupView::timeout); });
    connect(m_ok, &KvIconButton::btnClicked, this, [this] { goAway(&PopupView::ok); });
    connect(m_cancel, &KvIconButton::btnClicked, this,
            [this] { goAwayWithPage(&PopupView::cancel); });
    loadBox();
    layOut();
}

void PopupView::setPopupViewId(const QString &id)
{
    m_id = id;
}

QString PopupView::popupViewId() const
{
    return m_id;
}

void PopupView::setButtonType(ButtonType type)
{
    m_buttonType = type;
    loadBox();
    layOut();
}

void PopupView::setButtonPosition(ButtonPosition position)
{
    m_buttonPosition = position;
    layOut();
}

void PopupView::setShowTimeout(int ms)
{
    m_showTimeout = ms;
}

void PopupView::setOkText(const QString &text)
{
    m_ok->setDisplayText(text);
}

void PopupView::setCancelText(const QString &text)
{
    m_cancel->setDisplayText(text);
}

void PopupView::setText(const QString &text)
{
    m_text = text;
    layOut();
}

QString PopupView::text() const
{
    return m_text;
}

void PopupView::setButtonDisabled(QString buttonName, bool disabled)
{
    for (KvIconButton *button : {m_ok, m_cancel}) {
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
    return boxSize();
}

bool PopupView::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget()) {
        if (event->type() == QEvent::Resize) {
            layOut();
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
    layOut();
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
    QPainter painter(this);
    painter.drawPixmap(0, 0, m_box);
    painter.setPen(QColor(240, 240, 240));
    painter.setFont(textFont());
    const auto vertical = textIsOnButtons() ? Qt::AlignBottom : Qt::AlignVCenter;
    painter.drawText(QRectF(textArea(buttonTop())), m_text,
                     kvpainting::wrapping(Qt::AlignHCenter | vertical));
}

KvIconButton *PopupView::createButton(const QString &name, const QString &text)
{
    auto *button = new KvIconButton(this);
    button->setObjectName(name);
    button->setButtonID(name);
    button->setNormalImage(image("popup_button_nrm.png"));
    button->setPressImage(image("popup_button_psh.png"));
    button->setDisableImage(image("popup_button_dis.png"));
    button->setDisableMode(KvIconButton::DisableImageText);
    button->setShowMode(KvIconButton::ShowImageText);
    button->setTextSize(buttonTextSize);
    button->setDisplayText(text);
    return button;
}

bool PopupView::hasOk() const
{
    return m_buttonType == OkCancel || m_buttonType == OkOnly;
}

bool PopupView::hasCancel() const
{
    return m_buttonType == OkCancel || m_buttonType == CancelOnly;
}

bool PopupView::hasButtons() const
{
    return hasOk() || hasCancel();
}

bool PopupView::textIsOnButtons() const
{
    return hasButtons() && m_buttonPosition == ButtonsUnderText;
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
        m_timer->start(simlink::hostMs(m_showTimeout));
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

QSize PopupView::boxSize() const
{
    return hasButtons() ? boxWithButtons : boxWithoutButtons;
}

void PopupView::loadBox()
{
    m_box = image(hasButtons() ? "popup_676x280.png" : "popup_676x164.png");
}

void PopupView::layOut()
{
    m_ok->setVisible(hasOk());
    m_cancel->setVisible(hasCancel());
    QRect box(QPoint(), boxSize());
    if (parentWidget() != nullptr) {
        box.moveCenter(parentWidget()->rect().center());
    }
    setGeometry(box);
    placeButtons();
    update();
}

void PopupView::placeButtons()
{
    const bool both = hasOk() && hasCancel();
    const int rowWidth = both ? 2 * buttonSize.width() + betweenButtons : buttonSize.width();
    const QRect okPlace(QPoint((width() - rowWidth) / 2, buttonTop()), buttonSize);
    m_ok->setGeometry(okPlace);
    m_cancel->setGeometry(both ? okPlace.translated(buttonSize.width() + betweenButtons, 0)
                               : okPlace);
}

int PopupView::lowestButtonTop() const
{
    return height() - bottomMargin - buttonSize.height();
}

int PopupView::buttonTop() const
{
    if (!textIsOnButtons()) {
        return lowestButtonTop();
    }
    const int textHeight =
        kvpainting::wrappedHeight(textFont(), m_text, textArea(lowestButtonTop()).width());
    const int group = textHeight + textToButtons + buttonSize.height();
    return qMin(lowestButtonTop(), (height() + group) / 2 - buttonSize.height());
}

QRect PopupView::textArea(int buttonTop) const
{
    const int bottom = hasButtons() ? buttonTop - textToButtons : height() - topMargin;
    return QRect(sideMargin, topMargin, width() - 2 * sideMargin, bottom - topMargin);
}

QFont PopupView::textFont() const
{
    return kvpainting::wrappedFont(font(), textSize, smallestWholeWords, smallestText, m_text,
                                   textArea(lowestButtonTop()).size());
}
