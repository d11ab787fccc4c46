#pragma once

#include "kvtouchbutton.h"

#include <QPixmap>
#include <QString>

/// A push button for rows of controls: one image for each state and a short text on it, in the
/// widget's own font and colour. The button may be larger than its image, which lies in its middle.
/// It has a fixed height, its image's or its minimum's; where it is made higher all the same, only
/// that height in its middle takes touches.
class KV_API KvHorStrButton : public KvTouchButton
{
    Q_OBJECT
    Q_DISABLE_COPY(KvHorStrButton)
    Q_PROPERTY(QString buttonId READ buttonId WRITE setButtonId)
    Q_PROPERTY(QString displayString MEMBER m_displayString WRITE setDisplayString)
    Q_PROPERTY(QPixmap normalPixmap MEMBER m_normalPixmap WRITE setNormalPixmap)
    Q_PROPERTY(QPixmap pressPixmap MEMBER m_pressPixmap WRITE setPressPixmap)
    Q_PROPERTY(QPixmap disablePixmap MEMBER m_disablePixmap WRITE setDisablePixmap)

public:
    explicit KvHorStrButton(QWidget *parent = nullptr);

    /// The id that clicked() carries.
    void setButtonId(QString id);
    QString buttonId() const;

    void setDisplayString(QString text);

    /// The image that gives the button its size.
    void setNormalPixmap(QPixmap pixmap);

    /// Shown under the finger; without it the normal one stays.
    void setPressPixmap(QPixmap pixmap);

    /// Shown while the widget is not enabled; without it the normal one is dimmed.
    void setDisablePixmap(QPixmap pixmap);

signals:
    /// A finger that went down on the button was lifted over it.
    void clicked(QString id);

protected:
    QSize faceSize() const override;
    QRect touchArea() const override;
    void fingerLifted() override;
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap facePixmap() const;

    QString m_buttonId;
    QString m_displayString;
    QPixmap m_normalPixmap;
    QPixmap m_pressPixmap;
    QPixmap m_disablePixmap;
};
