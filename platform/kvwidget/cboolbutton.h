#pragma once

#include "kvtouchbutton.h"

#include <QPixmap>
#include <QString>

/// A switch with two states. A tap flips it.
class KV_API CBoolButton : public KvTouchButton
{
    Q_OBJECT
    Q_DISABLE_COPY(CBoolButton)
    Q_PROPERTY(QString buttonID READ buttonID WRITE setButtonID)
    Q_PROPERTY(bool state READ state WRITE setState)
    Q_PROPERTY(QPixmap onImage MEMBER m_onImage WRITE setOnImage)
    Q_PROPERTY(QPixmap offImage MEMBER m_offImage WRITE setOffImage)

public:
    explicit CBoolButton(QWidget *parent = nullptr);

    /// The id that btnReleased() carries.
    void setButtonID(const QString &id);
    QString buttonID();

    /// Switches without a signal. A new button is off.
    void setState(bool on);
    bool state() const;

    /// The faces. At first they are the library's own switch of 80 x 62 pixels. The off image gives
    /// the switch its size.
    void setOnImage(const QPixmap &image);
    void setOffImage(const QPixmap &image);

signals:
    /// A finger that went down on the switch was lifted over it, and the switch is in \a state now.
    void btnReleased(QString id, bool state);

protected:
    QSize faceSize() const override;
    void fingerLifted() override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_buttonID;
    bool m_state = false;
    QPixmap m_onImage;
    QPixmap m_offImage;
};
