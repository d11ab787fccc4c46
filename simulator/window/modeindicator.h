#pragma once

#include <QWidget>

namespace simulator
{

/// A sun or a moon on the bezel: whether the unit is in day or in night mode.
class ModeIndicator : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool night READ isNight WRITE setNight)

public:
    explicit ModeIndicator(QWidget *parent);

    bool isNight() const;
    void setNight(bool night);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_night = false;
};

} // namespace simulator
