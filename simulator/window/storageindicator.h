#pragma once

#include <QString>
#include <QWidget>

namespace hardware
{
struct StorageSlot;
}

namespace simulator
{

class ScreenLabel;

/// One storage socket on the home screen: its name, and whether a stick is in it.
class StorageIndicator : public QWidget
{
    Q_OBJECT

public:
    StorageIndicator(const hardware::StorageSlot &slot, QWidget *parent);

    QString mountRoot() const;
    void setPlugged(bool plugged);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    const QString m_mountRoot;
    ScreenLabel *m_name;
    ScreenLabel *m_state;
    bool m_plugged = false;
};

} // namespace simulator
