#pragma once

#include "kvtouchbutton.h"

#include <QColor>
#include <QMetaType>
#include <QPixmap>
#include <QString>

/// The platform's push button: an image, with a text on it where the show mode says so, and an id.
class KV_API KvIconButton : public KvTouchButton
{
    Q_OBJECT
    Q_DISABLE_COPY(KvIconButton)
    Q_ENUMS(ShowMode DisableMode)
    Q_PROPERTY(QString buttonID READ buttonID WRITE setButtonID)
    Q_PROPERTY(QString displayText READ displayText WRITE setDisplayText)
    Q_PROPERTY(int textSize MEMBER m_textSize WRITE setTextSize)
    Q_PROPERTY(ShowMode showMode MEMBER m_showMode WRITE setShowMode)
    Q_PROPERTY(QPixmap normalImage MEMBER m_normalImage WRITE setNormalImage)
    Q_PROPERTY(QPixmap pressImage MEMBER m_pressImage WRITE setPressImage)
    Q_PROPERTY(QColor normalTextColor MEMBER m_normalTextColor WRITE setNormalTextColor)
    Q_PROPERTY(QColor pressTextColor MEMBER m_pressTextColor WRITE setPressTextColor)
    Q_PROPERTY(QPixmap overImage MEMBER m_overImage WRITE setOverImage)
    Q_PROPERTY(QPixmap disableImage MEMBER m_disableImage WRITE setDisableImage)
    Q_PROPERTY(DisableMode disableMode MEMBER m_disableMode WRITE setDisableMode)
    Q_PROPERTY(bool disableState READ disableState WRITE setDisableState)

public:
    /// What is drawn. The image always is; the text lies on it, centred.
    enum ShowMode { ShowImage = 0, ShowImageText = 1 };
    /// Which parts of a disabled button have a look of their own; the others are dimmed. There is
    /// no colour for a disabled text, so the text is dimmed in every mode.
    enum DisableMode { DisableNone = 0, DisableImage = 1, DisableText = 2, DisableImageText = 3 };

    explicit KvIconButton(QWidget *parent = nullptr);

    /// The id that the button's signals carry.
    void setButtonID(const QString &id);
    QString buttonID();

    /// A "\n" starts a new line. A text that is too large for the button is drawn smaller, never
    /// clipped.
    void setDisplayText(QString text);
    QString displayText() const;

    /// In pixels, at least 1. The default is 24.
    void setTextSize(int pixels);

    void setShowMode(const ShowMode &mode);

    /// The image that gives the button its size. Images are drawn centred, smaller where they must
    /// be, not distorted.
    void setNormalImage(const QPixmap &image);

    /// Without it the normal image stays.
    void setPressImage(const QPixmap &image);

    void setNormalTextColor(const QColor &color);

    void setPressTextColor(const QColor &color);

    /// Shown under the finger; without it the pressed image is.
    void setOverImage(const QPixmap &image);

    /// Shown while disabled where the disable mode names the image; otherwise the normal image is
    /// dimmed.
    void setDisableImage(const QPixmap &image);

    void setDisableMode(const DisableMode &mode);

    /// A disabled button refuses touches and shows its disabled face, as one does after
    /// setEnabled(false); the two states are independent. Disabling forgets a finger that is down;
    /// no signal tells of it.
    void setDisableState(const bool &disabled);
    bool disableState() const;

signals:
    /// A finger that went down on the button was lifted over it: first btnReleased() tells it, then
    /// btnClicked().
    void btnClicked(QString id);
    void btnReleased(QString id);

protected:
    /// Whether the pressed face is shown.
    virtual bool showsPressed() const;

    QSize faceSize() const override;
    bool takesTouches() const override;
    void fingerLifted() override;
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap precedingImage() const;
    void drawFace(QPainter &painter) const;
    void drawText(QPainter &painter) const;

    QString m_buttonID;
    QString m_displayText;
    int m_textSize = 24;
    ShowMode m_showMode = ShowImage;
    QPixmap m_normalImage;
    QPixmap m_pressImage;
    QColor m_normalTextColor = QColor(240, 240, 240);
    QColor m_pressTextColor = QColor(240, 240, 240);
    QPixmap m_overImage;
    QPixmap m_disableImage;
    DisableMode m_disableMode = DisableNone;
    bool m_disableState = false;
};

Q_DECLARE_METATYPE(KvIconButton::ShowMode)
Q_DECLARE_METATYPE(KvIconButton::DisableMode)
