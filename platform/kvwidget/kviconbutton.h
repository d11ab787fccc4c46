#pragma once

#include "kvimagebutton.h"

/// The platform's push button: an image, with a text on it where the show mode says so, and an id.
class KV_API KvIconButton : public KvImageButton
{
    Q_OBJECT
    Q_DISABLE_COPY(KvIconButton)
    Q_ENUMS(DisableMode)
    Q_PROPERTY(QString buttonID READ buttonID WRITE setButtonID)
    Q_PROPERTY(QPixmap overImage READ overImage WRITE setOverImage)
    Q_PROPERTY(QPixmap disableImage READ disableImage WRITE setDisableImage)
    Q_PROPERTY(DisableMode disableMode READ disableMode WRITE setDisableMode)
    Q_PROPERTY(bool disableState READ disableState WRITE setDisableState)

public:
    /// Which parts of a disabled button have a look of their own; the others are dimmed. There is
    /// no colour for a disabled text, so the text is dimmed in every mode.
    enum DisableMode { DisableNone = 0, DisableImage = 1, DisableText = 2, DisableImageText = 3 };

    explicit KvIconButton(QWidget *parent = nullptr);

    void setButtonID(const QString &id);

    /// Shown under the finger; without it the pressed image is.
    void setOverImage(const QPixmap &image);
    QPixmap overImage() const;

    /// Shown while disabled where the disable mode names the image; otherwise the normal image is
    /// dimmed.
    void setDisableImage(const QPixmap &image);
    QPixmap disableImage() const;

    void setDisableMode(const DisableMode &mode);
    DisableMode disableMode() const;

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
    bool takesTouches() const override;
    void fingerLifted() override;
    QPixmap precedingImage() const override;

private:
    QPixmap m_overImage;
    QPixmap m_disableImage;
    DisableMode m_disableMode = DisableNone;
    bool m_disableState = false;
};

Q_DECLARE_METATYPE(KvIconButton::DisableMode)
