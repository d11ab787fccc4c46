#pragma once

#include <QWidget>

namespace simulator
{

class ScreenLabel;

/// The face of the activity "usb".
class UsbView : public QWidget
{
    Q_OBJECT

public:
    explicit UsbView(QWidget *parent);

    /// Says what the activity was started with.
    void setArgument(int argument);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    ScreenLabel *m_argument;
};

} // namespace simulator
