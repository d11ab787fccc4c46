#pragma once

#include <QList>
#include <QWidget>

namespace hardware
{
struct StorageSlot;
}

namespace simulator
{

class StorageIndicator;

/// What the unit shows while no activity runs: that it is simulated, how to go on, and which
/// storage is plugged.
class HomeScreen : public QWidget
{
    Q_OBJECT

public:
    explicit HomeScreen(QWidget *parent = nullptr);

    /// The sockets to show, left to right; to be called once.
    void setSlots(const QList<hardware::StorageSlot> &slotTable);

    /// Marks the sockets with these mount roots as plugged, the others as empty.
    void setPlugged(const QStringList &mountRoots);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QList<StorageIndicator *> m_indicators;
};

} // namespace simulator
