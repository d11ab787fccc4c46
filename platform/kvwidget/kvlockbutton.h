#pragma once

#include "kviconbutton.h"

/// A latching button: a press latches it, and it stays down, with its pressed face, until
/// setIsDown(false).
class KV_API KvLockButton : public KvIconButton
{
    Q_OBJECT
    Q_DISABLE_COPY(KvLockButton)
    Q_PROPERTY(bool isDown READ isDown WRITE setIsDown)

public:
    explicit KvLockButton(QWidget *parent = nullptr);

    void setButtonID(QString id);
    QString buttonID() const;

    /// Latches or releases the button without a signal.
    void setIsDown(bool down);
    /// True while the button is latched, and while a finger holds it down.
    bool isDown() const;

signals:
    /// A press was lifted over the button, which is latched now, or still. Lifted elsewhere it
    /// changes nothing.
    void btnReleased(QString id);

protected:
    void fingerLifted() override;
    bool showsPressed() const override;

private:
    bool m_latched = false;
};
