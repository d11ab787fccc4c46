#pragma once

#include <QWidget>

namespace simulator
{

/// What the unit shows while it starts. Takes every touch.
class BootScreen : public QWidget
{
    Q_OBJECT

public:
    explicit BootScreen(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace simulator
