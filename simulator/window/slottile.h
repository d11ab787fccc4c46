#pragma once

#include <QAbstractButton>

namespace hardware
{
struct StorageSlot;
}

namespace simulator
{

/// One storage socket on the home screen: its name, whether a stick is in it, and what a touch
/// does. Its id is the slot's name.
class SlotTile final : public QAbstractButton
{
    Q_OBJECT
    Q_PROPERTY(QString displayText READ state)
    Q_PROPERTY(QString displayString READ action)

public:
    SlotTile(const hardware::StorageSlot &slot, QWidget *parent);

    QString mountRoot() const;
    bool isPlugged() const;
    void setPlugged(bool plugged);

    QString state() const;
    QString action() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    const QString m_mountRoot;
    bool m_plugged = false;
};

} // namespace simulator
