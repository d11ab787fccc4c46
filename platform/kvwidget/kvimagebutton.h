#pragma once

#include "kvtouchbutton.h"

#include <QColor>
#include <QMetaType>
#include <QPixmap>
#include <QString>

/// A button's id, its images and the text on them: what KvIconButton and KvLockButton have alike.
class KV_API KvImageButton : public KvTouchButton
{
    Q_OBJECT
    Q_DISABLE_COPY(KvImageButton)
    Q_ENUMS(ShowMode)
    Q_PROPERTY(QString displayText READ displayText WRITE setDisplayText)
    Q_PROPERTY(int textSize READ textSize WRITE setTextSize)
    Q_PROPERTY(ShowMode showMode READ showMode WRITE setShowMode)
    Q_PROPERTY(QPixmap normalImage READ normalImage WRITE setNormalImage)
    Q_PROPERTY(QPixmap pressImage READ pressImage WRITE setPressImage)
    Q_PROPERTY(QColor normalTextColor READ normalTextColor WRITE setNormalTextColor)
    Q_PROPERTY(QColor pressTextColor READ pressTextColor WRITE setPressTextColor)

public:
    /// What is drawn. The image always is; the text lies on it, centred.
    enum ShowMode { ShowImage = 0, ShowImageText = 1 };

    explicit KvImageButton(QWidget *parent = nullptr);

    /// The id that the button's signals carry.
    QString buttonID() const;

    /// A "\n" starts a new line. A text that is too large for the button is drawn smaller, never
    /// clipped.
    void setDisplayText(QString text);
    QString displayText() const;

    /// In pixels, at least 1. The default is 24.
    void setTextSize(int pixels);
    int textSize() const;

    void setShowMode(const ShowMode &mode);
    ShowMode showMode() const;

    /// The image that gives the button its size. Images are drawn centred, smaller where they must
    /// be, not distorted.
    void setNormalImage(const QPixmap &image);
    QPixmap normalImage() const;

    /// Without it the normal image stays.
    void setPressImage(const QPixmap &image);
    QPixmap pressImage() const;

    void setNormalTextColor(const QColor &color);
    QColor normalTextColor() const;

    void setPressTextColor(const QColor &color);
    QColor pressTextColor() const;

protected:
    /// For the subclasses' setButtonID(), which do not take the id alike.
    void keepButtonID(const QString &id);
    /// Whether the pressed face is shown.
    virtual bool showsPressed() const;
    /// An image that goes before the normal and the pressed one, and is never dimmed; null where
    /// there is none.
    virtual QPixmap precedingImage() const;

    QSize faceSize() const override;
    void paintEvent(QPaintEvent *event) override;

private:
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
};

Q_DECLARE_METATYPE(KvImageButton::ShowMode)
