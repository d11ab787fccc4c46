#include "popupbox.h"

#include "kvpainting.h"
#include "kvwidget/kviconbutton.h"

#include <QPainter>

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

QPixmap image(const char *name)
{
    return QPixmap(QLatin1String(":/kvwidget/") + QLatin1String(name));
}

} // namespace

PopupBox::PopupBox(PopupView &view)
    : m_view(view)
    , m_ok(createButton(QStringLiteral("popupview_ok"), PopupView::tr("OK")))
    , m_cancel(createButton(QStringLiteral("popupview_cancel"), PopupView::tr("Cancel")))
{
    loadImage();
    layOut();
}

void PopupBox::setButtonType(PopupView::ButtonType type)
{
    m_buttonType = type;
    loadImage();
    layOut();
}

void PopupBox::setButtonPosition(PopupView::ButtonPosition position)
{
    m_buttonPosition = position;
    layOut();
}

void PopupBox::setText(const QString &text)
{
    m_text = text;
    layOut();
}

QSize PopupBox::size() const
{
    return hasButtons() ? boxWithButtons : boxWithoutButtons;
}

void PopupBox::layOut()
{
    m_ok->setVisible(hasOk());
    m_cancel->setVisible(hasCancel());
    QRect box(QPoint(), size());
    if (m_view.parentWidget() != nullptr) {
        box.moveCenter(m_view.parentWidget()->rect().center());
    }
    m_view.setGeometry(box);
    placeButtons();
    m_view.update();
}

void PopupBox::paint()
{
    QPainter painter(&m_view);
    painter.drawPixmap(0, 0, m_image);
    painter.setPen(QColor(240, 240, 240));
    painter.setFont(textFont());
    const auto vertical = textIsOnButtons() ? Qt::AlignBottom : Qt::AlignVCenter;
    painter.drawText(QRectF(textArea(buttonTop())), m_text,
                     kvpainting::wrapping(Qt::AlignHCenter | vertical));
}

KvIconButton *PopupBox::createButton(const QString &name, const QString &text)
{
    auto *button = new KvIconButton(&m_view);
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

bool PopupBox::hasOk() const
{
    return m_buttonType == PopupView::OkCancel || m_buttonType == PopupView::OkOnly;
}

bool PopupBox::hasCancel() const
{
    return m_buttonType == PopupView::OkCancel || m_buttonType == PopupView::CancelOnly;
}

bool PopupBox::hasButtons() const
{
    return hasOk() || hasCancel();
}

bool PopupBox::textIsOnButtons() const
{
    return hasButtons() && m_buttonPosition == PopupView::ButtonsUnderText;
}

void PopupBox::loadImage()
{
    m_image = image(hasButtons() ? "popup_676x280.png" : "popup_676x164.png");
}

void PopupBox::placeButtons()
{
    const bool both = hasOk() && hasCancel();
    const int rowWidth = both ? 2 * buttonSize.width() + betweenButtons : buttonSize.width();
    const QRect okPlace(QPoint((m_view.width() - rowWidth) / 2, buttonTop()), buttonSize);
    m_ok->setGeometry(okPlace);
    m_cancel->setGeometry(both ? okPlace.translated(buttonSize.width() + betweenButtons, 0)
                               : okPlace);
}

int PopupBox::lowestButtonTop() const
{
    return m_view.height() - bottomMargin - buttonSize.height();
}

int PopupBox::buttonTop() const
{
    if (!textIsOnButtons()) {
        return lowestButtonTop();
    }
    const int textHeight =
        kvpainting::wrappedHeight(textFont(), m_text, textArea(lowestButtonTop()).width());
    const int group = textHeight + textToButtons + buttonSize.height();
    return qMin(lowestButtonTop(), (m_view.height() + group) / 2 - buttonSize.height());
}

QRect PopupBox::textArea(int buttonTop) const
{
    const int bottom = hasButtons() ? buttonTop - textToButtons : m_view.height() - topMargin;
    return QRect(sideMargin, topMargin, m_view.width() - 2 * sideMargin, bottom - topMargin);
}

QFont PopupBox::textFont() const
{
    return kvpainting::wrappedFont(m_view.font(), textSize, smallestWholeWords, smallestText,
                                   m_text, textArea(lowestButtonTop()).size());
}
