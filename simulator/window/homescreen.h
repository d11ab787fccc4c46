#pragma once

#include <QList>
#include <QWidget>

namespace hardware
{
struct StorageSlot;
}

namespace simulator
{

class ScreenLabel;
class SlotTile;

/// What the unit shows while no activity runs: that it is simulated, how to go on, and its storage
/// sockets, which plug and pull the unit's own sticks by touch.
class HomeScreen : public QWidget
{
    Q_OBJECT

public:
    explicit HomeScreen(QWidget *parent = nullptr);

    /// The sockets to show, left to right; to be called once.
    void setSlots(const QList<hardware::StorageSlot> &slotTable);

    /// Marks the sockets with these mount roots as plugged, the others as empty.
    void setPlugged(const QStringList &mountRoots);

    /// Says why a touch could not do what it was to do; until a socket is touched or changes.
    void showFailure(const QString &sentence);

signals:
    /// A socket was touched, and showed whether it was plugged.
    void slotTouched(const QString &name, bool isPlugged);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QList<SlotTile *> m_tiles;
    ScreenLabel *m_failure;
};

} // namespace simulator
